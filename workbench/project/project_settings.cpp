#include "workbench/project/project_settings.h"

#include "package/common/application_type.h"
#include "package/common/case_fold.h"
#include "package/common/convert.h"
#include "package/common/path_text.h"
#include "workbench/msbuild/project_paths.h"
#include "workbench/project/project_kind.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <array>
#include <unordered_set>

namespace workbench {
namespace {

using deployment::IXMLNode;

// More targets than this are rare, and an evaluation holds every property of the environment.
constexpr std::size_t MostEvaluations = 64;

constexpr std::array<std::string_view, 9> FileItemTypes = {
    "ProjectFile",     "None",  "Content", "Compile", "ClCompile", "ClInclude",
    "ResourceCompile", "Image", "Text"};

bool IsFileItem(const TProjectItem& item) {
  return std::ranges::any_of(
      FileItemTypes, [&](std::string_view type) { return deployment::SameText(type, item.Type); });
}

bool HasCondition(const IXMLNode& node) {
  const auto condition = node.GetAttribute("Condition");
  return condition && condition->find_first_not_of(" \t\r\n") != std::string_view::npos;
}

[[noreturn]] void FailProperty(const TMSBuildEvaluation& evaluation, std::string_view name,
                               std::string_view value, std::string_view wanted) {
  throw deployment::TInputError("the property \"" + std::string(name) + "\" is \"" +
                                    ShortText(value) + "\", which is not " + std::string(wanted),
                                evaluation.PropertyPlace(name));
}

} // namespace

TProjectSettings::TProjectSettings(IXMLNode& root, std::filesystem::path projectFile,
                                   ILoadImports& imports, const TPlatformTable& platforms,
                                   TNamedTexts environment)
    : FImports(std::make_unique<TImportCache>(imports)), FSource{&root,
                                                                 std::move(projectFile),
                                                                 FImports.get(),
                                                                 std::move(environment),
                                                                 {}},
      FPlatformTable(platforms) {
  FLayout = ReadLayout();
  TMSBuildEvaluation& active = Evaluate({}, {});
  active.Items();
  FNotes = active.Notes();
  std::vector<std::string> names;
  for (const TProjectPlatform& platform : FLayout.Platforms)
    names.push_back(platform.Name);
  FConfigurations = std::make_unique<TConfigurationTree>(FLayout.Configurations, names, FNotes);
}

// The targets of a project are known before anything is evaluated for one of them.
TProjectLayout TProjectSettings::ReadLayout() {
  TMSBuildEvaluation evaluation(FSource, {});
  const std::vector<std::string> known = FPlatformTable.Names();
  return ReadProjectLayout(evaluation, known.empty() ? "Win32" : known.front());
}

void TProjectSettings::Refresh() {
  FEvaluations.clear();
  FImports->Clear();
  FLayout.Platforms = ReadLayout().Platforms;
}

TMSBuildEvaluation& TProjectSettings::Evaluate(std::string_view configuration,
                                               std::string_view platform) const {
  TTarget target(configuration.empty() ? FLayout.ActiveConfiguration : configuration,
                 platform.empty() ? FLayout.ActivePlatform : platform);
  if (const auto found = FEvaluations.find(target); found != FEvaluations.end())
    return *found->second;
  if (FEvaluations.size() >= MostEvaluations)
    FEvaluations.clear();
  TEvaluationSource source = FSource;
  source.Defaults = DialectDefaults(FLayout.Dialect, target.second);
  auto evaluation = std::make_unique<TMSBuildEvaluation>(
      source, TargetProperties(FLayout.Dialect, target.first, target.second));
  return *FEvaluations.emplace(std::move(target), std::move(evaluation)).first->second;
}

const std::vector<std::unique_ptr<TBuildConfiguration>>& TProjectSettings::Configurations() const {
  return FConfigurations->All();
}

const TBuildConfiguration* TProjectSettings::FindConfiguration(std::string_view name) const {
  return FConfigurations->Find(name);
}

const TProjectPlatform* TProjectSettings::FindPlatform(std::string_view name) const {
  const auto found = std::ranges::find(FLayout.Platforms, name, &TProjectPlatform::Name);
  return found == FLayout.Platforms.end() ? nullptr : &*found;
}

std::string TProjectSettings::Option(std::string_view configuration, std::string_view platform,
                                     std::string_view name) const {
  return Evaluate(configuration, platform).Property(name);
}

std::string TProjectSettings::BaseProperty(std::string_view name) const {
  const IXMLNode* last = nullptr;
  for (IXMLNode* group = FSource.Root->FirstChild(); group; group = group->NextSibling()) {
    if (group->NodeName() != "PropertyGroup" || HasCondition(*group))
      continue;
    for (IXMLNode* property = group->FirstChild(); property; property = property->NextSibling()) {
      if (deployment::SameText(property->NodeName(), name) && !HasCondition(*property))
        last = property;
    }
  }
  return last ? Evaluate({}, {}).Expand(last->Text(), *last) : std::string();
}

std::vector<std::string> TProjectSettings::CompleteFileList(std::string_view configuration,
                                                            std::string_view platform) const {
  const std::filesystem::path directory = FSource.ProjectFile.parent_path();
  const std::vector<TProjectItem>& items = Evaluate(configuration, platform).Items();
  std::vector<std::string> files;
  std::unordered_set<std::string_view> known; // views of `files`, which never moves
  files.reserve(items.size());
  known.reserve(items.size());
  for (const TProjectItem& item : items) {
    if (!IsFileItem(item))
      continue;
    files.push_back(FullPathText(item.Include, directory));
    if (!known.insert(files.back()).second)
      files.pop_back();
  }
  return files;
}

std::string TProjectSettings::StoredOutputDirectory(const TMSBuildEvaluation& evaluation) const {
  return evaluation.Property(FLayout.Dialect == TProjectDialect::MSBuildCpp ? "OutDir"
                                                                            : "OutputDir");
}

std::string TProjectSettings::OutputDirectory(std::string_view configuration,
                                              std::string_view platform) const {
  std::string directory = FullPathText(StoredOutputDirectory(Evaluate(configuration, platform)),
                                       FSource.ProjectFile.parent_path());
  while (directory.size() > 1 && deployment::IsPathDelimiter(directory.back()))
    directory.pop_back();
  return directory;
}

std::string TProjectSettings::OutputFileName(std::string_view configuration,
                                             std::string_view platform) const {
  const TMSBuildEvaluation& evaluation = Evaluate(configuration, platform);
  const TPlatform* facts =
      FPlatformTable.FindPlatform(platform.empty() ? FLayout.ActivePlatform : platform);
  const std::string kind = OutputKindIn(evaluation);
  std::string name = facts ? facts->GetOutputPrefix(kind) : std::string();
  name += BaseName(configuration, platform);
  name += OutputExtension(evaluation, facts, kind);
  return FullPathText(deployment::Combine(StoredOutputDirectory(evaluation), name),
                      FSource.ProjectFile.parent_path());
}

// An MSBuild C++ project may name an extension of its own.
std::string TProjectSettings::OutputExtension(const TMSBuildEvaluation& evaluation,
                                              const TPlatform* platform,
                                              std::string_view kind) const {
  if (FLayout.Dialect == TProjectDialect::MSBuildCpp) {
    if (std::string extension = evaluation.Property("TargetExt"); !extension.empty())
      return extension;
  }
  return platform ? platform->GetOutputExtension(kind) : std::string();
}

std::string TProjectSettings::BaseName(std::string_view configuration,
                                       std::string_view platform) const {
  const std::string_view property =
      FLayout.Dialect == TProjectDialect::MSBuildCpp ? "TargetName" : "OutputName";
  const std::string name = Option(configuration, platform, property);
  return name.empty() ? ProjectName() : name;
}

std::string TProjectSettings::Personality() const {
  std::string personality = ProjectOption("ProjectPersonality");
  if (personality.empty() && FLayout.Dialect == TProjectDialect::MSBuildCpp)
    personality = ForeignPersonality;
  return personality;
}

std::string TProjectSettings::ApplicationType() const {
  return ApplicationTypeIn(Evaluate({}, {}));
}

std::string TProjectSettings::ApplicationTypeIn(const TMSBuildEvaluation& evaluation) const {
  std::string type = evaluation.Property("AppType");
  if (!type.empty() || FLayout.Dialect == TProjectDialect::Own)
    return type;
  return std::string(ApplicationTypeOf(evaluation.Property("ConfigurationType")));
}

std::string TProjectSettings::FrameworkType() const {
  return ProjectOption("FrameworkType");
}

std::string TProjectSettings::OutputKind(std::string_view configuration,
                                         std::string_view platform) const {
  return OutputKindIn(Evaluate(configuration, platform));
}

std::string TProjectSettings::OutputKindIn(const TMSBuildEvaluation& evaluation) const {
  if (Personality() == OutputKindPersonality) {
    if (std::string kind = evaluation.Property("OutputKind"); !kind.empty())
      return kind;
  }
  return std::string(deployment::MapApplicationType(ApplicationTypeIn(evaluation)));
}

std::string TProjectSettings::ProjectOption(std::string_view name) const {
  return Option({}, {}, name);
}

std::vector<std::string> TProjectSettings::RuntimePackages(std::string_view configuration,
                                                           std::string_view platform) const {
  return SplitNames(Option(configuration, platform, "RuntimePackages"));
}

bool TProjectSettings::HasRemoteDebugSymbols(std::string_view configuration,
                                             std::string_view platform) const {
  constexpr std::string_view Name = "RemoteDebugSymbols";
  const TMSBuildEvaluation& evaluation = Evaluate(configuration, platform);
  const std::string text = evaluation.Property(Name);
  if (text.empty())
    return false;
  const auto value = deployment::TextToBoolean(text);
  if (!value)
    FailProperty(evaluation, Name, text, "a Boolean (true or false)");
  return *value;
}

int TProjectSettings::OSXKind(std::string_view configuration, std::string_view platform) const {
  constexpr std::string_view Name = "OSXKind";
  const TMSBuildEvaluation& evaluation = Evaluate(configuration, platform);
  const std::string text = evaluation.Property(Name);
  if (text.empty())
    return 1;
  const auto value = deployment::TextToInteger(text);
  if (!value)
    FailProperty(evaluation, Name, text, "an integer");
  return *value;
}

} // namespace workbench
