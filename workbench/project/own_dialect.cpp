#include "workbench/project/own_dialect.h"

#include "package/common/application_type.h"
#include "package/common/case_fold.h"
#include "package/common/convert.h"
#include "package/common/path_text.h"
#include "workbench/project/project_settings.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

// The personality whose options name a kind of output of their own.
constexpr std::string_view OutputKindPersonality = "Corvane.Personality";

// What is compiled is no file of the project: the build consumes it.
constexpr std::array<std::string_view, 5> FileItemTypes = {"ProjectFile", "None", "Content",
                                                           "Image", "Text"};

bool IsFileItem(const TProjectItem& item) {
  return std::ranges::any_of(
      FileItemTypes, [&](std::string_view type) { return deployment::SameText(type, item.Type); });
}

} // namespace

void FailProperty(const TMSBuildEvaluation& evaluation, std::string_view name,
                  std::string_view value, std::string_view wanted) {
  throw deployment::TInputError("the property \"" + std::string(name) + "\" is \"" +
                                    ShortText(value) + "\", which is not " + std::string(wanted),
                                evaluation.PropertyPlace(name));
}

bool BooleanProperty(const TMSBuildEvaluation& evaluation, std::string_view name) {
  const std::string text = evaluation.Property(name);
  if (text.empty())
    return false;
  const auto value = deployment::TextToBoolean(text);
  if (!value)
    FailProperty(evaluation, name, text, "a Boolean (true or false)");
  return *value;
}

bool TOwnDialect::Claims(deployment::IXMLNode& /*root*/,
                         const std::filesystem::path& /*file*/) const {
  return true;
}

void TOwnDialect::Prepare(TEvaluationSource& /*source*/, const TPlatform* /*platform*/,
                          std::string_view /*platformName*/) {}

TNamedTexts TOwnDialect::Globals(const std::filesystem::path& /*file*/,
                                 const TNamedTexts& /*environment*/, TEvaluationNotes& /*notes*/) {
  return {};
}

TNamedTexts TOwnDialect::TargetProperties(const TProjectTarget& target) const {
  return {{"Config", target.Configuration}, {"Platform", target.Platform}};
}

bool TOwnDialect::ReadLayout(TMSBuildEvaluation& evaluation, const TOutsideProperties& /*given*/,
                             std::string_view lastPlatform, TProjectLayout& layout,
                             TEvaluationNotes& /*notes*/) const {
  layout = ReadProjectLayout(evaluation, lastPlatform);
  return std::ranges::none_of(evaluation.Items(), [](const TProjectItem& item) {
    return deployment::SameText(item.Type, "ProjectConfiguration");
  });
}

std::string TOwnDialect::Personality(const TMSBuildEvaluation& evaluation) const {
  return evaluation.Property("ProjectPersonality");
}

void TOwnDialect::TraceOutput(TMSBuildEvaluation& /*evaluation*/, TOutputTrace& trace) const {
  for (const std::string_view name : {"OutputDir", "OutputName", "AppType", "OutputKind"})
    trace.AddProperty(name);
}

TExpanded TOwnDialect::OutputDirectory(const TMSBuildEvaluation& evaluation) const {
  return evaluation.Value("OutputDir");
}

TBuildOutput TOwnDialect::Output(TMSBuildEvaluation& evaluation, const TPlatform* platform,
                                 const std::filesystem::path& file) const {
  TBuildOutput output;
  output.ApplicationType = evaluation.Property("AppType");
  if (Personality(evaluation) == OutputKindPersonality)
    output.Kind = evaluation.Property("OutputKind");
  if (output.Kind.empty())
    output.Kind = deployment::MapApplicationType(output.ApplicationType);
  TExpanded name = evaluation.Value("OutputName");
  output.BaseName = name.Text.empty() ? file.stem().string() : name.Text;
  const TExpanded directory = evaluation.Value("OutputDir");
  output.Unknown = directory.Unknown ? directory.Unknown : name.Unknown;
  if (output.Unknown)
    return output;
  const std::string fileName = platform ? platform->GetOutputPrefix(output.Kind) + output.BaseName +
                                              platform->GetOutputExtension(output.Kind)
                                        : output.BaseName;
  output.Path = deployment::Combine(directory.Text, fileName);
  return output;
}

std::vector<std::string> TOwnDialect::Files(TMSBuildEvaluation& evaluation,
                                            TEvaluationNotes& notes) const {
  std::vector<std::string> files;
  for (const TProjectItem& item : evaluation.Items()) {
    if (!IsFileItem(item))
      continue;
    if (item.Unknown)
      notes.push_back(UnknownItemNote(item, *item.Unknown));
    else
      files.push_back(item.Include);
  }
  return files;
}

std::vector<std::string> TOwnDialect::Packages(const TProjectSettings& settings,
                                               const TProjectTarget& target,
                                               TEvaluationNotes& /*notes*/) {
  return SplitNames(settings.Option(target.Configuration, target.Platform, "RuntimePackages"));
}

bool TOwnDialect::HasRemoteDebugSymbols(TMSBuildEvaluation& evaluation) const {
  return BooleanProperty(evaluation, "RemoteDebugSymbols");
}

std::string TOwnDialect::SymbolExtension(const TPlatform* platform,
                                         std::string_view personality) const {
  return platform ? platform->SymbolExtension(personality) : std::string();
}

} // namespace workbench
