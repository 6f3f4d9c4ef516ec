#include "workbench/project/cpp/cpp_output.h"

#include "package/common/application_type.h"
#include "package/common/case_fold.h"
#include "package/common/path_text.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

using deployment::SameText;

// What a kind of project makes. Kinds that are in no row make a file of no known use.
struct TKindRow {
  std::string_view Type;
  std::string_view Kind;
  std::string_view Nothing; ///< why there is nothing to deploy
};

constexpr std::array<TKindRow, 5> Kinds{{
    {"Application", "Application", ""},
    {"DynamicLibrary", "Library", ""},
    {"StaticLibrary", "StaticLibrary", "makes a static library, which other builds link"},
    {"Utility", "Utility", "is a utility, which makes no program or library"},
    {"Makefile", "Application", ""},
}};

constexpr std::array<std::string_view, 13> CompiledTypes = {
    "ClCompile", "ClInclude", "ResourceCompile", "Compile",   "MASM",        "NASM",       "YASM",
    "MARMASM",   "Midl",      "Natvis",          "FxCompile", "CudaCompile", "ISPCCompile"};

// Items that are no files to be shipped, whatever they say.
constexpr std::array<std::string_view, 5> OtherTypes = {
    "ProjectReference", "Reference", "COMReference", "ProjectConfiguration", "PackageReference"};

template <class TTypes>
bool IsAmong(const TTypes& types, std::string_view type) {
  return std::ranges::any_of(types, [&](std::string_view known) { return SameText(known, type); });
}

// The name on a target: the platform adds what the table has for the kind. A file with another
// prefix or extension is given whole, under a kind for which the table adds nothing.
void NameOutput(TBuildOutput& output, const TPlatform* platform) {
  std::string_view name = deployment::FileNamePart(output.Path);
  if (platform) {
    const std::string prefix = platform->GetOutputPrefix(output.Kind);
    const std::string extension = platform->GetOutputExtension(output.Kind);
    if (name.size() > prefix.size() + extension.size() && name.starts_with(prefix) &&
        name.ends_with(extension)) {
      name.remove_prefix(prefix.size());
      name.remove_suffix(extension.size());
      output.BaseName = name;
      return;
    }
  }
  output.BaseName = name;
  output.Kind.clear();
}

TExpanded LinkedFile(TMSBuildEvaluation& evaluation) {
  if (const auto defined = evaluation.Definition("Link", "OutputFile")) {
    if (defined->Unknown || !defined->Text.empty())
      return {defined->Text, defined->Unknown};
  }
  TExpanded path = evaluation.Value("OutDir");
  for (const std::string_view part : {"TargetName", "TargetExt"}) {
    TExpanded value = evaluation.Value(part);
    path.Text += value.Text;
    if (!path.Unknown)
      path.Unknown = std::move(value.Unknown);
  }
  return path;
}

bool IsTrue(const TExpanded& value) {
  return SameText(value.Text, "true");
}

// Whether an item is shipped; the value that decides may not be known.
struct TShipped {
  bool Ships = false;
  TUnknown Unknown;
};

TShipped Ships(TMSBuildEvaluation& evaluation, const TProjectItem& item) {
  const TExpanded content = evaluation.Metadata(item, "DeploymentContent");
  const TExpanded copy = evaluation.Metadata(item, "CopyToOutputDirectory");
  const bool isContent = SameText(item.Type, "Content");
  const bool copies =
      !copy.Text.empty() && !SameText(copy.Text, "Never") && !SameText(copy.Text, "false");
  const bool mayShip = isContent || IsTrue(content) || copies || content.Unknown || copy.Unknown;
  if (!mayShip || (!content.Unknown && SameText(content.Text, "false")))
    return {};
  const TExpanded excluded = evaluation.Metadata(item, "ExcludedFromBuild");
  if (!excluded.Unknown && IsTrue(excluded))
    return {};
  for (const TUnknown& unknown : {item.Unknown, content.Unknown, copy.Unknown, excluded.Unknown}) {
    if (unknown)
      return {false, unknown};
  }
  return {true, nullptr};
}

} // namespace

TBuildOutput CppOutput(TMSBuildEvaluation& evaluation, const TPlatform* platform) {
  TBuildOutput output;
  TExpanded type = evaluation.Value("ConfigurationType");
  if (type.Text.empty() && !type.Unknown)
    type.Text = "Application";
  const auto row = std::ranges::find_if(
      Kinds, [&](const TKindRow& kind) { return SameText(kind.Type, type.Text); });
  output.Unknown = type.Unknown;
  output.ApplicationType = evaluation.Property("AppType");
  if (output.ApplicationType.empty())
    output.ApplicationType = row == Kinds.end() ? type.Text : std::string(row->Kind);
  if (row != Kinds.end())
    output.Nothing = row->Nothing;
  else if (!output.Unknown)
    output.Nothing = "is of the type \"" + type.Text + "\", which makes no known kind of file";
  if (output.Unknown || !output.Nothing.empty())
    return output;
  const bool isMakefile = SameText(type.Text, "Makefile");
  const TExpanded path = isMakefile ? evaluation.Value("NMakeOutput") : LinkedFile(evaluation);
  output.Unknown = path.Unknown;
  if (output.Unknown)
    return output;
  if (path.Text.empty())
    output.Nothing = "runs commands and names no output (NMakeOutput)";
  output.Path = path.Text;
  if (isMakefile && SameText(deployment::ExtensionPart(path.Text), ".dll"))
    output.ApplicationType = "Library";
  output.Kind = deployment::MapApplicationType(output.ApplicationType);
  NameOutput(output, platform);
  return output;
}

std::vector<std::string> CppFiles(TMSBuildEvaluation& evaluation, TEvaluationNotes& notes) {
  std::vector<std::string> files;
  for (const TProjectItem& item : evaluation.Items()) {
    if (IsAmong(CompiledTypes, item.Type) || IsAmong(OtherTypes, item.Type))
      continue;
    const TShipped shipped = Ships(evaluation, item);
    if (shipped.Unknown)
      notes.push_back(UnknownItemNote(item, *shipped.Unknown));
    else if (shipped.Ships)
      files.push_back(item.Include);
  }
  return files;
}

} // namespace workbench
