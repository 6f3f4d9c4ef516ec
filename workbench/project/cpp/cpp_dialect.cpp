#include "workbench/project/cpp/cpp_dialect.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "workbench/project/cpp/cpp_output.h"
#include "workbench/project/cpp/referenced_libraries.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <utility>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view CppPersonality = "Corvane.Personality";
constexpr std::string_view Win64 = "Win64";
constexpr std::string_view Win64InCpp = "x64";
constexpr std::string_view PairItem = "ProjectConfiguration";

// The items of a project, one per pair, gathered into one record per configuration.
std::vector<TConfigurationRecord> ReadPairs(const std::vector<TProjectItem>& items) {
  std::vector<TConfigurationRecord> records;
  std::unordered_map<std::string, std::size_t> positions;
  std::set<std::pair<std::string, std::string>> pairs;
  for (const TProjectItem& item : items) {
    if (item.Unknown || !deployment::SameText(item.Type, PairItem))
      continue;
    const std::string_view include = item.Include;
    const std::size_t bar = std::min(include.find('|'), include.size());
    std::string name(item.FindMetadata("Configuration"));
    std::string_view platform = item.FindMetadata("Platform");
    if (name.empty())
      name = include.substr(0, bar);
    if (platform.empty() && bar < include.size())
      platform = include.substr(bar + 1);
    if (name.empty())
      continue;
    const auto [position, isNew] = positions.emplace(name, records.size());
    if (isNew)
      records.push_back({name, {}, {}, item.Node->Place()});
    const std::string known = PlatformFromCpp(platform);
    if (!known.empty() && pairs.emplace(name, known).second)
      records[position->second].Platforms.push_back(known);
  }
  return records;
}

const TConfigurationRecord* FindRecord(const std::vector<TConfigurationRecord>& records,
                                       std::string_view name) {
  const auto found = std::ranges::find(records, name, &TConfigurationRecord::Name);
  return found == records.end() ? nullptr : &*found;
}

bool HasPlatform(const TConfigurationRecord& record, std::string_view platform) {
  return std::ranges::find(record.Platforms, platform) != record.Platforms.end();
}

// Debug where the project has it for the usual platforms, else the first pair.
const TConfigurationRecord& DefaultRecord(const std::vector<TConfigurationRecord>& records) {
  const TConfigurationRecord* debug = FindRecord(records, "Debug");
  return debug && (HasPlatform(*debug, "Win32") || HasPlatform(*debug, Win64)) ? *debug
                                                                               : records.front();
}

std::string DefaultPlatform(const TConfigurationRecord& record, std::string_view lastPlatform) {
  for (const std::string_view usual : {std::string_view("Win32"), Win64}) {
    if (record.Name == "Debug" && HasPlatform(record, usual))
      return std::string(usual);
  }
  return record.Platforms.empty() ? std::string(lastPlatform) : record.Platforms.front();
}

// What the makers call the machine behind a platform.
struct TMachine {
  std::string_view Platform;
  std::string_view Target;
  std::string_view Short;
  std::string_view Architecture;
};

constexpr std::array<TMachine, 4> Machines{{
    {"Win32", "x86", "x86", "32"},
    {"x64", "x64", "x64", "64"},
    {"ARM", "ARM", "ARM", "32"},
    {"ARM64", "ARM64", "ARM64", "64"},
}};

bool HasName(const TNamedTexts& texts, std::string_view name) {
  return std::ranges::any_of(
      texts, [&](const TNamedText& text) { return deployment::SameText(text.Name, name); });
}

} // namespace

std::string PlatformFromCpp(std::string_view name) {
  return std::string(deployment::SameText(name, Win64InCpp) ? Win64 : name);
}

std::string PlatformToCpp(std::string_view name) {
  return std::string(name == Win64 ? Win64InCpp : name);
}

TCppDialect::TCppDialect(ILoadImports& imports, const TPlatformTable& platforms,
                         TNamedTexts properties, std::shared_ptr<const TSolution> solution)
    : FImports(imports), FPlatforms(platforms),
      FProperties(std::move(properties)), FGivenSolution{std::move(solution), {}} {}

bool TCppDialect::Claims(deployment::IXMLNode& root, const fs::path& file) const {
  if (deployment::SameText(file.extension().string(), ".vcxproj"))
    return true;
  for (auto* group = root.FirstChild(); group; group = group->NextSibling()) {
    if (group->NodeName() != "ItemGroup")
      continue;
    for (auto* item = group->FirstChild(); item; item = item->NextSibling()) {
      if (deployment::SameText(item->NodeName(), PairItem))
        return true;
    }
  }
  return false;
}

void TCppDialect::Prepare(TEvaluationSource& source, const TPlatform* platform,
                          std::string_view platformName) {
  const std::string stored = PlatformToCpp(platformName);
  const auto machine = std::ranges::find_if(
      Machines, [&](const TMachine& row) { return deployment::SameText(row.Platform, stored); });
  const bool known = machine != Machines.end();
  const auto naming = [&](std::string_view kind, std::string_view windows) {
    return platform ? platform->GetOutputExtension(kind) : std::string(windows);
  };
  source.BuildSystem = &FBuildSystem;
  source.ImportsBuildSystem = true;
  source.Told = {
      {"OS", "Windows_NT"},
      {"MSBuildToolsVersion", "Current"},
      {"ProjectDir", (source.ProjectFile.parent_path() / "").string()},
      {"ProjectPath", source.ProjectFile.string()},
      {"ProjectFileName", source.ProjectFile.filename().string()},
      {"ProjectExt", source.ProjectFile.extension().string()},
      {"PlatformName", stored},
      {"PlatformTarget", std::string(known ? machine->Target : stored)},
      {"PlatformShortName", std::string(known ? machine->Short : stored)},
      {"PlatformArchitecture", std::string(known ? machine->Architecture : "")},
      {"_ProgramExtension", naming("Application", ".exe")},
      {"_ProgramPrefix", platform ? platform->GetOutputPrefix("Application") : ""},
      {"_LibraryExtension", naming("Library", ".dll")},
      {"_LibraryPrefix", platform ? platform->GetOutputPrefix("Library") : ""},
  };
  if (!HasName(source.Environment, "VisualStudioVersion"))
    source.Told.push_back({"VisualStudioVersion", "17.0"});
}

const TFoundSolution& TCppDialect::SolutionOf(const fs::path& project) {
  if (FGivenSolution.Solution)
    return FGivenSolution;
  const auto [found, isNew] = FSolutions.try_emplace(project);
  if (isNew)
    found->second = FindSolutionOf(project);
  return found->second;
}

TNamedTexts TCppDialect::Globals(const fs::path& file, const TNamedTexts& environment,
                                 TEvaluationNotes& notes) {
  if (!FGivenSolution.Solution && HasName(environment, "SolutionDir"))
    return {};
  const TFoundSolution& found = SolutionOf(file);
  if (!found.Solution)
    return {};
  const fs::path& solution = found.Solution->File();
  if (!found.Others.empty())
    notes.push_back({TNoteKind::FromOutside,
                     "several solutions name the project: \"" + solution.filename().string() +
                         "\" is taken, and not \"" +
                         deployment::JoinDelimited(found.Others, "\", \"") + "\"",
                     {solution.string(), 0}});
  return {{"SolutionDir", (solution.parent_path() / "").string()},
          {"SolutionName", solution.stem().string()},
          {"SolutionPath", solution.string()},
          {"SolutionFileName", solution.filename().string()},
          {"SolutionExt", solution.extension().string()}};
}

TNamedTexts TCppDialect::TargetProperties(const TProjectTarget& target) const {
  return {{"Configuration", target.Configuration},
          {"ConfigurationName", target.Configuration},
          {"Platform", PlatformToCpp(target.Platform)}};
}

bool TCppDialect::ReadLayout(TMSBuildEvaluation& evaluation, const TOutsideProperties& given,
                             std::string_view lastPlatform, TProjectLayout& layout,
                             TEvaluationNotes& notes) const {
  layout = {};
  layout.Configurations = ReadPairs(evaluation.Items());
  if (layout.Configurations.empty())
    return false;
  layout.Platforms = ReadTargetPlatforms(evaluation.Items());
  for (TProjectPlatform& platform : layout.Platforms)
    platform.Name = PlatformFromCpp(platform.Name);
  CollectPlatforms(layout, std::string(lastPlatform));
  std::string name = given.Find("Config").value_or(given.Find("Configuration").value_or(""));
  if (name.empty()) {
    name = evaluation.Property("Config");
    if (!name.empty() && !FindRecord(layout.Configurations, name)) {
      notes.push_back(
          {TNoteKind::WrongConfiguration,
           "the project has no configuration \"" + name + "\", which its property \"Config\" names",
           evaluation.PropertyPlace("Config")});
      name.clear();
    }
  }
  const TConfigurationRecord* record = FindRecord(layout.Configurations, name);
  if (!record)
    record = &DefaultRecord(layout.Configurations);
  layout.ActiveConfiguration = name.empty() ? record->Name : name;
  layout.ActivePlatform = PlatformFromCpp(given.Find("Platform").value_or(""));
  if (layout.ActivePlatform.empty())
    layout.ActivePlatform = DefaultPlatform(*record, lastPlatform);
  return true;
}

std::string TCppDialect::Personality(const TMSBuildEvaluation& evaluation) const {
  std::string personality = evaluation.Property("ProjectPersonality");
  return personality.empty() ? std::string(CppPersonality) : personality;
}

TBuildOutput TCppDialect::Output(TMSBuildEvaluation& evaluation, const TPlatform* platform,
                                 const fs::path& /*file*/) const {
  return CppOutput(evaluation, platform);
}

void TCppDialect::TraceOutput(TMSBuildEvaluation& evaluation, TOutputTrace& trace) const {
  trace.AddProperty("ConfigurationType");
  if (deployment::SameText(evaluation.Property("ConfigurationType"), "Makefile"))
    return trace.AddProperty("NMakeOutput");
  if (const auto linked = evaluation.Definition("Link", "OutputFile"))
    trace.AddDefinition("Link.OutputFile", *linked);
  for (const std::string_view name : {"OutDir", "TargetName", "TargetExt"})
    trace.AddProperty(name);
}

TExpanded TCppDialect::OutputDirectory(const TMSBuildEvaluation& evaluation) const {
  return evaluation.Value("OutDir");
}

std::vector<std::string> TCppDialect::Files(TMSBuildEvaluation& evaluation,
                                            TEvaluationNotes& notes) const {
  return CppFiles(evaluation, notes);
}

std::vector<std::string> TCppDialect::Packages(const TProjectSettings& settings,
                                               const TProjectTarget& target,
                                               TEvaluationNotes& notes) {
  return TReferencedLibraries(*this, settings.ProjectFile(), notes).Collect(settings, target);
}

// The linker writes symbols beside a program where it is told to; a debugger of another machine
// wants those of a build for debugging.
bool TCppDialect::HasRemoteDebugSymbols(TMSBuildEvaluation& evaluation) const {
  constexpr std::string_view Own = "RemoteDebugSymbols";
  if (!evaluation.Property(Own).empty())
    return BooleanProperty(evaluation, Own);
  const auto information = evaluation.Definition("Link", "GenerateDebugInformation");
  return information && !information->Unknown && !information->Text.empty() &&
         !deployment::SameText(information->Text, "No") &&
         !deployment::SameText(information->Text, "false") &&
         deployment::SameText(evaluation.Property("UseDebugLibraries"), "true");
}

std::string TCppDialect::SymbolExtension(const TPlatform* /*platform*/,
                                         std::string_view /*personality*/) const {
  return ".pdb";
}

} // namespace workbench
