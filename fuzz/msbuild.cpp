// MSBuild texts and whole projects: escapes, lists, wildcards and conditions keep the laws of their
// kind, and an evaluation says the same every time.
#include "fuzz/fuzz_input.h"
#include "package/common/errors.h"
#include "package/common/text_trim.h"
#include "workbench/msbuild/msbuild_condition.h"
#include "workbench/msbuild/msbuild_evaluation.h"
#include "workbench/msbuild/msbuild_includes.h"
#include "workbench/msbuild/msbuild_wildcards.h"
#include "workbench/msbuild/values/msbuild_escapes.h"
#include "workbench/text/utf8.h"
#include "workbench/xml/xml_reader.h"

#include <memory>
#include <optional>

namespace workbench::fuzz {
namespace {

// No directory of this machine is looked at for the sake of an input.
constexpr const char* ProjectFile = "/nowhere/input/input.vproj";

class TNoImports final : public ILoadImports {
public:
  std::shared_ptr<deployment::IXMLDocument> Load(const std::filesystem::path& /*file*/) override {
    return nullptr;
  }
};

class TSmallWorld final : public IConditionContext {
public:
  TExpanded Expand(std::string_view text) const override {
    if (text == "$(Unknown)")
      return {{}, std::make_shared<TUnknownValue>(TUnknownValue{"Unknown", "nobody said"})};
    return {text == "$(Config)" ? "Debug" : UnescapeMSBuild(text), nullptr};
  }
  bool Exists(std::string_view path) const override { return path.size() % 2 == 0; }
};

std::optional<TConditionResult> Evaluated(const std::string& condition) {
  try {
    return EvaluateCondition(condition, TSmallWorld(), {ProjectFile, 1});
  } catch (const deployment::TInputError&) {
    return std::nullopt;
  }
}

// A condition in parentheses may reach the limit of their depth, which is no law of logic.
void CheckCondition(const std::string& text) {
  const auto plain = Evaluated(text);
  if (!plain || deployment::Trimmed(text).empty())
    return;
  Require(!(plain->Holds && plain->Unknown), "what is not known does not hold", text);
  const auto same = [&](const std::string& other, bool expected) {
    const auto result = Evaluated(other);
    if (result && !plain->Unknown)
      Require(result->Holds == expected && !result->Unknown, "conditions keep the laws of logic",
              other);
  };
  const std::string group = "(" + text + ")";
  same(group, plain->Holds);
  same("!" + group, !plain->Holds);
  same(group + " And " + group, plain->Holds);
  same(group + " Or " + group, plain->Holds);
  same(group + " Or true", true);
  same(group + " And false", false);
}

void CheckText(std::string_view text) {
  const std::string escaped = EscapeMSBuild(text);
  RequireEqual(UnescapeMSBuild(escaped), text, "an escaped text is itself when it is unescaped");
  Require(!TWildcardPattern::IsPattern(escaped), "an escaped text has no wildcards", escaped);
  const auto pieces = SplitIncludes(escaped);
  const std::string_view trimmed = deployment::Trimmed(escaped);
  Require(pieces.size() <= 1 && (trimmed.empty() || pieces.size() == 1),
          "an escaped text is one name", escaped);
  if (IsUtf8(text) && text.find_first_of("\\/.%") == std::string_view::npos && !text.empty())
    Require(TWildcardPattern(escaped).Matches(text), "a name matches itself", text);
  for (const std::string_view piece : SplitIncludes(text)) {
    Require(!piece.empty(), "a list has no empty names", text);
    if (TWildcardPattern::IsPattern(piece))
      static_cast<void>(TWildcardPattern(piece).Matches("some\\where\\else.txt"));
    if (IsItemReference(piece))
      static_cast<void>(ReferencedType(piece));
  }
  CheckCondition(std::string(text));
}

std::string Summary(TXmlReader& document) {
  TNoImports imports;
  TMSBuildEvaluation evaluation({.Root = &document.Root(),
                                 .ProjectFile = ProjectFile,
                                 .Imports = &imports,
                                 .Environment = {{"HOME", "/home/user"}}},
                                {{"Config", "Debug"}, {"Platform", "Win32"}});
  Require(evaluation.Property("Platform") == "Win32", "a property from outside wins");
  std::string summary = evaluation.Property("OutDir") + "\n" + evaluation.Property("A") + "\n";
  for (const TProjectItem& item : evaluation.Items()) {
    Require(!item.Removed, "removed items are not listed");
    Require(item.Node != nullptr, "an item knows its element");
    summary.append(item.Type).append("=").append(item.Include).append("\n");
    for (const TItemMetadata& metadata : item.Metadata)
      summary.append(" ").append(metadata.Name).append("=").append(metadata.Text).append("\n");
  }
  for (const TEvaluationNote& note : evaluation.Notes()) {
    Require(!note.Text.empty(), "a note says something");
    summary.append(note.Text).append("\n");
  }
  return summary;
}

std::string Evaluated(TXmlReader& document) {
  try {
    return Summary(document);
  } catch (const deployment::TInputError& error) {
    return error.what();
  }
}

// Wildcards for any depth would walk directories of this machine.
bool LooksAround(std::string_view text) {
  return text.find("**") != std::string_view::npos || text.find('*') != std::string_view::npos;
}

void CheckProject(std::string_view text) {
  if (LooksAround(text))
    return;
  try {
    TXmlReader document(text, ProjectFile);
    RequireEqual(Evaluated(document), Evaluated(document), "an evaluation says the same again");
  } catch (const deployment::TInputError&) {
    return; // no XML
  }
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text = workbench::fuzz::TFuzzInput(data, size).Rest();
  if (text.starts_with('<'))
    workbench::fuzz::CheckProject(text);
  else
    workbench::fuzz::CheckText(text);
  return 0;
}
