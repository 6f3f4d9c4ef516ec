// The XML reader: what is kept in compact form says what a plain tree says, and what is written
// reads back.
#include "fuzz/fuzz_input.h"
#include "fuzz/xml_model.h"
#include "package/common/errors.h"
#include "workbench/xml/xml_reader.h"
#include "workbench/xml/xml_writer.h"

#include <memory>

namespace workbench::fuzz {
namespace {

constexpr TXmlSectionPath Section{"ProjectExtensions", "Deployment"};

std::unique_ptr<TXmlReader> Read(std::string_view text, const TXmlSectionPath& section = {}) {
  try {
    return std::make_unique<TXmlReader>(text, "input.xml", section);
  } catch (const deployment::TInputError& error) {
    Require(!std::string_view(error.what()).empty(), "a refusal gives a reason");
    return nullptr;
  }
}

void CheckRanges(TXmlElement& element) {
  std::uint32_t at = element.ContentStart();
  for (TXmlElement* child = element.FirstChild(); child; child = child->NextSibling()) {
    Require(child->Range().Start >= at && child->Range().End <= element.Range().End,
            "elements stand in their parent, one behind the other");
    at = child->Range().End;
    CheckRanges(*child);
  }
}

void CheckWritten(TXmlElement& root, const TXmlModel& model) {
  std::string markup;
  AppendXmlElement(markup, root, {"", ""}, "");
  const auto again = Read(markup);
  Require(again != nullptr, "what is written is well-formed", markup);
  RequireEqual(TXmlModel::Of(again->Root()).Shown(), model.Shown(), "what is written reads back");
  const auto wide =
      Read("\xFF\xFE" + EncodeMarkup(std::move(markup), TXmlEncoding::Utf16LittleEndian));
  Require(wide != nullptr, "what is written is well-formed in UTF-16 too");
  RequireEqual(TXmlModel::Of(wide->Root()).Shown(), model.Shown(), "the encoding changes nothing");
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench::fuzz;
  const std::string_view text = TFuzzInput(data, size).Rest();
  const auto plain = Read(text);
  const auto compact = Read(text, Section);
  Require(!plain == !compact, "a section changes nothing about what is well-formed");
  if (!plain)
    return 0;
  const TXmlModel model = TXmlModel::Of(plain->Root());
  const std::string shown = model.Shown();
  RequireEqual(TXmlModel::Of(compact->Root()).Shown(), shown, "a compact section says the same");
  RequireEqual(TXmlModel::Of(compact->Root()).Shown(), shown, "it says it again");
  compact->ForgetSection();
  RequireEqual(TXmlModel::Of(compact->Root()).Shown(), shown, "it is read anew");
  CheckRanges(plain->Root());
  if (!model.IsMixed())
    CheckWritten(plain->Root(), model);
  return 0;
}
