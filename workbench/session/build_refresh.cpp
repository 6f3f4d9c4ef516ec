#include "workbench/session/build_refresh.h"

#include "workbench/files/machine_path.h"
#include "workbench/project/build_import/build_directory.h"

#include <algorithm>

namespace workbench {
namespace {

namespace fs = std::filesystem;

fs::path ProjectDirectory(const TOpenProject& project) {
  return fs::absolute(project.GivenFileName()).lexically_normal().parent_path();
}

} // namespace

TBuildRecord ReadBuildRecord(TOpenProject& project) {
  return RecordFrom(project.LabelledItems(BuildItemsLabel), {project.GivenFileName().string(), 0});
}

fs::path BuildDirectoryOf(const TOpenProject& project, const TBuildRecord& record) {
  return (ProjectDirectory(project) / ToMachinePath(record.Directory)).lexically_normal();
}

TBuildRefresh ApplyInstallPlan(TOpenProject& project, TBuildRecord record,
                               const TInstallPlan& plan) {
  TBuildRefresh result;
  result.Warnings = plan.Warnings;
  std::vector<TTakenFile> now = TakenFiles(plan, ProjectDirectory(project), result.Warnings);
  result.Updates = UpdateList(project.Deployment(), record.Platform, record.Files, now);
  record.Files = std::move(now);
  project.SetLabelledItems(BuildItemsLabel, ItemsOf(record));
  return result;
}

std::vector<std::string> InstallRulesOf(TOpenProject& project,
                                        const deployment::IProjectDeploymentFile& entry) {
  const std::vector<TLabelledItem> items = project.LabelledItems(BuildItemsLabel);
  if (items.empty())
    return {};
  const TBuildRecord record = RecordFrom(items, {project.GivenFileName().string(), 0});
  const bool isTaken = std::ranges::any_of(record.Files, [&](const TTakenFile& file) {
    return file.LocalName == entry.GetLocalName() && file.Configuration == entry.GetConfiguration();
  });
  if (!isTaken)
    return {};
  const TInstallPlan plan =
      ReadBuildDirectory(BuildDirectoryOf(project, record), record.Components, /*mayRun=*/false);
  const fs::path directory = ProjectDirectory(project);
  std::vector<std::string> places;
  for (const TInstalledFile& file : plan.Files) {
    if (file.Configuration != entry.GetConfiguration() ||
        StoredFromProject(file.LocalFile, directory) != entry.GetLocalName())
      continue;
    std::string place = file.Rule.File;
    if (file.Rule.Line)
      place += ":" + std::to_string(file.Rule.Line);
    if (std::ranges::find(places, place) == places.end())
      places.push_back(std::move(place));
  }
  return places;
}

} // namespace workbench
