// The saver of project files: bytes outside the section stay, what was written reads back, and
// what changed nothing writes nothing.
#include "fuzz/fuzz_input.h"
#include "fuzz/xml_model.h"
#include "package/common/errors.h"
#include "workbench/project/project_document.h"

#include <array>
#include <memory>
#include <optional>

namespace workbench::fuzz {
namespace {

constexpr const char* Section = "Deployment";

std::unique_ptr<TProjectDocument> Open(std::string_view text) {
  try {
    return std::make_unique<TProjectDocument>(text, "input.vproj", Section);
  } catch (const deployment::TInputError&) {
    return nullptr;
  }
}

std::optional<TXmlModel> SectionOf(TProjectDocument& document) {
  TXmlElement* section = document.FindSection(Section);
  return section ? std::optional(TXmlModel::Of(*section)) : std::nullopt;
}

std::optional<std::string> Compose(TProjectDocument& document, const TXmlModel& model) {
  const auto pieces =
      document.Compose([&model](deployment::IXMLNode& node) { model.WriteInto(node); });
  if (!pieces)
    return std::nullopt;
  std::string text;
  for (const std::string_view piece : pieces->Pieces())
    text += piece;
  return text;
}

std::string ChosenText(TFuzzInput& input) {
  constexpr std::array<std::string_view, 12> Pieces{
      "a", "b", "<", "&", "\"", "'", "\t", "\r\n", "]]>", "\xC3\xA4", "\xF0\x9F\x98\x80", "-->"};
  std::string text;
  for (std::size_t count = input.Below(4); count > 0; --count)
    text += Pieces[input.Below(Pieces.size())];
  return text;
}

TXmlModel ChosenChild(TFuzzInput& input) {
  TXmlModel child{"E" + std::to_string(input.Below(3)), {{"N", ChosenText(input)}}, {}, {}};
  if (input.Flag())
    child.Children.push_back({"T", {}, ChosenText(input), {}});
  return child;
}

void Change(TXmlModel& model, TFuzzInput& input) {
  auto& children = model.Children;
  const auto place = [&](std::size_t end) {
    return children.begin() + static_cast<std::ptrdiff_t>(input.Below(end));
  };
  switch (children.empty() ? 0 : input.Below(6)) {
  case 0:
    children.insert(place(children.size() + 1), ChosenChild(input));
    break;
  case 1:
    children.erase(place(children.size()));
    break;
  case 2:
    std::iter_swap(place(children.size()), place(children.size()));
    break;
  case 3:
    *place(children.size()) = ChosenChild(input);
    break;
  case 4:
    children.push_back(TXmlModel(*place(children.size())));
    break;
  default:
    model.Attributes = {{"Version", ChosenText(input)}};
  }
}

// What stands around the section of the document.
std::pair<std::string_view, std::string_view> Around(TProjectDocument& document) {
  const TByteRange range = document.FindSection(Section)->Range();
  return {document.Bytes().substr(0, range.Start), document.Bytes().substr(range.End)};
}

void CheckSaved(std::string_view before, std::string_view after, const TXmlModel& model) {
  const auto old = Open(before);
  const auto next = Open(after);
  Require(next != nullptr, "a saved project can be opened", after);
  const auto saved = SectionOf(*next);
  Require(saved.has_value(), "a saved section is there", after);
  RequireEqual(saved->Shown(), model.Shown(), "what was written reads back");
  Require(!Compose(*next, model), "a second save has nothing to do", after);
  if (!old->FindSection(Section))
    return;
  const auto [oldHead, oldTail] = Around(*old);
  const auto [newHead, newTail] = Around(*next);
  RequireEqual(newHead, oldHead, "bytes in front of the section stay");
  RequireEqual(newTail, oldTail, "bytes behind the section stay");
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench::fuzz;
  TFuzzInput input(data, size);
  TFuzzInput edits(data, std::min<std::size_t>(size, 16));
  for (int i = 0; i < 16; ++i)
    input.Byte();
  const std::string_view text = input.Rest();
  const auto document = Open(text);
  if (!document)
    return 0;
  const auto found = SectionOf(*document);
  TXmlModel model = found.value_or(TXmlModel{Section, {}, {}, {}});
  if (model.IsMixed() || !model.Text.empty())
    return 0;
  if (found)
    Require(!Compose(*document, model), "a section that says the same is not written", text);
  for (std::size_t count = edits.Below(4); count > 0; --count)
    Change(model, edits);
  const auto composed = Compose(*document, model);
  if (!composed) {
    Require(found == model, "a change is written", text);
    return 0;
  }
  CheckSaved(text, *composed, model);
  document->ForgetLargeSection();
  Require(Compose(*document, model) == composed, "a section read anew is written as before", text);
  return 0;
}
