#include "workbench/project/project_layout.h"

#include "package/common/case_fold.h"
#include "workbench/msbuild/msbuild_includes.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace workbench {
namespace {

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

// The first configuration that is built; the base one only when there is no other.
const TConfigurationRecord* FirstConfiguration(const std::vector<TConfigurationRecord>& records) {
  const auto found = std::ranges::find_if(records, [](const TConfigurationRecord& record) {
    return record.Name != BaseConfigurationName;
  });
  return found == records.end() ? nullptr : &*found;
}

} // namespace

std::optional<std::string> TOutsideProperties::Find(std::string_view name) const {
  for (const TNamedTexts* texts : {&Given, &Environment}) {
    for (auto text = texts->rbegin(); text != texts->rend(); ++text) {
      if (deployment::SameText(text->Name, name))
        return text->Text;
    }
  }
  return std::nullopt;
}

std::vector<TProjectPlatform> ReadTargetPlatforms(const std::vector<TProjectItem>& items) {
  std::vector<TProjectPlatform> platforms;
  for (const TProjectItem& item : items) {
    if (deployment::SameText(item.Type, "TargetPlatform"))
      platforms.push_back({item.Include, std::string(item.FindMetadata("Profile")),
                           std::string(item.FindMetadata("SDK"))});
  }
  return platforms;
}

void CollectPlatforms(TProjectLayout& layout, const std::string& active) {
  TPlatformCollector platforms;
  for (TProjectPlatform& platform : layout.Platforms)
    platforms.Add(std::move(platform));
  if (platforms.IsEmpty()) {
    for (const TConfigurationRecord& record : layout.Configurations) {
      for (const std::string& platform : record.Platforms)
        platforms.Add({platform, {}, {}});
    }
  }
  if (platforms.IsEmpty())
    platforms.Add({active, {}, {}});
  layout.Platforms = platforms.Take();
}

TProjectLayout ReadProjectLayout(TMSBuildEvaluation& evaluation, std::string_view lastResort) {
  const std::vector<TProjectItem>& items = evaluation.Items();
  TProjectLayout layout;
  std::string configuration = evaluation.Property("Config");
  std::string platform = evaluation.Property("Platform");
  layout.Configurations = ReadConfigurations(items);
  if (layout.Configurations.empty() && !configuration.empty())
    layout.Configurations.push_back({configuration, {}, {}, evaluation.PropertyPlace("Config")});
  layout.Platforms = ReadTargetPlatforms(items);
  CollectPlatforms(layout, platform.empty() ? std::string(lastResort) : platform);
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

TEvaluationNote UnknownItemNote(const TProjectItem& item, const TUnknownValue& unknown) {
  return {TNoteKind::UnknownValue,
          "the item \"" + item.Type + "\" of \"" + ShortText(item.Include) +
              "\" was left out: " + UnknownSentence(unknown),
          item.Node->Place()};
}

std::vector<std::string> SplitNames(std::string_view list) {
  std::vector<std::string> names;
  for (const std::string_view name : SplitIncludes(list))
    names.emplace_back(name);
  return names;
}

} // namespace workbench
