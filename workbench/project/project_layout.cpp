#include "workbench/project/project_layout.h"

#include "package/common/case_fold.h"
#include "workbench/msbuild/msbuild_includes.h"

#include <algorithm>
#include <set>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace workbench {
namespace {

constexpr std::string_view Win64 = "Win64";
constexpr std::string_view Win64OfMSBuild = "x64";

std::string PlatformFromMSBuild(std::string_view name) {
  return std::string(deployment::SameText(name, Win64OfMSBuild) ? Win64 : name);
}

// The items of an MSBuild C++ project, one per pair, gathered into one record per configuration.
std::vector<TConfigurationRecord> ReadPairs(const std::vector<TProjectItem>& items) {
  std::vector<TConfigurationRecord> records;
  std::unordered_map<std::string, std::size_t> positions;
  std::set<std::pair<std::string, std::string>> pairs;
  for (const TProjectItem& item : items) {
    if (!deployment::SameText(item.Type, "ProjectConfiguration"))
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
    const std::string known = PlatformFromMSBuild(platform);
    if (!known.empty() && pairs.emplace(name, known).second)
      records[position->second].Platforms.push_back(known);
  }
  return records;
}

std::vector<TConfigurationRecord> ReadConfigurations(const std::vector<TProjectItem>& items) {
  std::vector<TConfigurationRecord> records;
  for (const TProjectItem& item : items) {
    if (deployment::SameText(item.Type, "BuildConfiguration"))
      records.push_back({item.Include, std::string(item.FindMetadata("Parent")),
                         SplitNames(item.FindMetadata("Platforms")), item.Node->Place()});
  }
  return records;
}

class TPlatformCollector {
public:
  void Add(TProjectPlatform platform) {
    if (!platform.Name.empty() && FNames.insert(platform.Name).second)
      FPlatforms.push_back(std::move(platform));
  }
  bool IsEmpty() const { return FPlatforms.empty(); }
  std::vector<TProjectPlatform> Take() { return std::move(FPlatforms); }

private:
  std::vector<TProjectPlatform> FPlatforms;
  std::unordered_set<std::string> FNames;
};

// The project's own list; without one the platforms that configurations name, else `active`.
std::vector<TProjectPlatform> ReadPlatforms(const std::vector<TProjectItem>& items,
                                            const std::vector<TConfigurationRecord>& records,
                                            const std::string& active) {
  TPlatformCollector platforms;
  for (const TProjectItem& item : items) {
    if (deployment::SameText(item.Type, "TargetPlatform"))
      platforms.Add({item.Include, std::string(item.FindMetadata("Profile")),
                     std::string(item.FindMetadata("SDK"))});
  }
  if (platforms.IsEmpty()) {
    for (const TConfigurationRecord& record : records) {
      for (const std::string& platform : record.Platforms)
        platforms.Add({platform, {}, {}});
    }
  }
  if (platforms.IsEmpty())
    platforms.Add({active, {}, {}});
  return platforms.Take();
}

// The first configuration that is built; the base one only when there is no other.
const TConfigurationRecord* FirstConfiguration(const std::vector<TConfigurationRecord>& records) {
  const auto found = std::ranges::find_if(records, [](const TConfigurationRecord& record) {
    return record.Name != BaseConfigurationName;
  });
  return found == records.end() ? nullptr : &*found;
}

} // namespace

TProjectLayout ReadProjectLayout(TMSBuildEvaluation& evaluation, std::string_view lastResort) {
  const std::vector<TProjectItem>& items = evaluation.Items();
  TProjectLayout layout;
  layout.Configurations = ReadPairs(items);
  std::string configuration = evaluation.Property("Config");
  std::string platform = evaluation.Property("Platform");
  if (layout.Configurations.empty()) {
    layout.Configurations = ReadConfigurations(items);
  } else {
    layout.Dialect = TProjectDialect::MSBuildCpp;
    platform = PlatformFromMSBuild(platform);
    if (configuration.empty())
      configuration = evaluation.Property("Configuration");
  }
  if (layout.Configurations.empty() && !configuration.empty())
    layout.Configurations.push_back({configuration, {}, {}, evaluation.PropertyPlace("Config")});
  layout.Platforms = ReadPlatforms(items, layout.Configurations,
                                   platform.empty() ? std::string(lastResort) : platform);
  const TConfigurationRecord* first = FirstConfiguration(layout.Configurations);
  if (configuration.empty())
    configuration = first ? first->Name : BaseConfigurationName;
  if (platform.empty())
    platform = first && !first->Platforms.empty() ? first->Platforms.front()
                                                  : layout.Platforms.front().Name;
  layout.ActiveConfiguration = std::move(configuration);
  layout.ActivePlatform = std::move(platform);
  return layout;
}

TNamedTexts TargetProperties(TProjectDialect dialect, std::string_view configuration,
                             std::string_view platform) {
  if (dialect == TProjectDialect::Own)
    return {{"Config", std::string(configuration)}, {"Platform", std::string(platform)}};
  return {{"Config", std::string(configuration)},
          {"Configuration", std::string(configuration)},
          {"Platform", std::string(platform == Win64 ? Win64OfMSBuild : platform)}};
}

TNamedTexts DialectDefaults(TProjectDialect dialect, std::string_view platform) {
  if (dialect == TProjectDialect::Own)
    return {};
  // Only the oldest platform has its outputs in a directory without its name.
  const std::string directory = platform == "Win32" ? "" : "$(Platform)\\";
  return {{"ProjectName", "$(MSBuildProjectName)"},
          {"ProjectDir", "$(MSBuildProjectDirectory)\\"},
          {"ProjectFileName", "$(MSBuildProjectFile)"},
          {"ProjectPath", "$(MSBuildProjectFullPath)"},
          {"SolutionDir", "$(MSBuildProjectDirectory)\\"},
          {"OutDir", "$(SolutionDir)" + directory + "$(Configuration)\\"},
          {"TargetName", "$(ProjectName)"}};
}

std::vector<std::string> SplitNames(std::string_view list) {
  std::vector<std::string> names;
  for (const std::string_view name : SplitIncludes(list))
    names.emplace_back(name);
  return names;
}

} // namespace workbench
