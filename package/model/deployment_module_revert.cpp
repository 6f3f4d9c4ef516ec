// Reverting a project's deployment to its defaults.
#include "package/common/class_names.h"
#include "package/model/deployment_module_handler.h"
#include "package/model/file_list_snapshot.h"
#include "package/reconcile/reconcile_target.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace deployment {
namespace {

bool BelongsTo(const IProjectDeploymentItem& item, std::span<const std::string> platforms) {
  const std::vector<std::string> present = item.GetPlatforms();
  return std::any_of(present.begin(), present.end(), [&](const std::string& platform) {
    return std::find(platforms.begin(), platforms.end(), platform) != platforms.end();
  });
}

bool HasDebugSymbols(const TReconcileTarget& target) {
  const ISymbolService* service = target.SymbolService();
  return service && !service->GetDebugSymbolExtension(target.Project(), target.Platform()).empty() &&
         target.NeedsRemoteDebugSymbolsFile();
}

} // namespace

void TDeploymentModuleHandler::Revert(std::span<const std::string> platforms, bool keepAddedFiles) {
  ICustomProject* project = Project();
  if (!project)
    return;
  EnsureDefaultDeployment();
  // Read before anything is taken away, so that defaults which cannot be read cost nothing.
  TDeploymentModuleHandler defaults(*FModule, FServices, FStorage);
  FStorage.ReadDefaultDeployment(*project, defaults);
  const TDeploymentClasses classes = defaults.GetClasses();
  const TDeploymentFiles files = defaults.FFiles.Files();
  defaults.Clear();

  // A reconcile may fail when much is changed already. Listeners hear of what was changed for good.
  const TFileListSnapshot before(FFiles);
  const TDeploymentClasses oldClasses = GetClasses();
  const bool blocked = std::exchange(FBlockNotification, true);
  try {
    DropPlatforms(platforms, keepAddedFiles);
    ReplaceClasses(classes);
    for (const auto& file : files) {
      if (!FFiles.Get({file->GetConfiguration(), file->GetFilePlatform(), file->GetLocalName()}))
        AddFileEntry(file->GetConfiguration(), file->GetFilePlatform(), file);
    }
    ReconcileConfigurations(platforms);
  } catch (...) {
    before.Restore(FFiles);
    ReplaceClasses(oldClasses);
    FBlockNotification = blocked;
    throw;
  }
  FBlockNotification = blocked;
  for (const TFileListSnapshot::TChange& change : before.ChangesSince(FFiles))
    Notify(*change.File, change.Action);
}

void TDeploymentModuleHandler::ReplaceClasses(const TDeploymentClasses& classes) {
  ClearClasses();
  for (const auto& deploymentClass : classes)
    AddClass(deploymentClass);
}

// An entry that had one of the platforms and is left without any goes; one that never had any
// stays.
void TDeploymentModuleHandler::DropPlatforms(std::span<const std::string> platforms,
                                             bool keepAddedFiles) {
  TDeploymentFiles concerned;
  for (const auto& file : FFiles.Files()) {
    if (BelongsTo(*file, platforms))
      concerned.push_back(file);
  }
  Clear(platforms);
  for (const auto& file : concerned) {
    if (!keepAddedFiles && file->GetDeploymentClass() == class_names::File) {
      for (const std::string& platform : platforms)
        file->RemovePlatform(platform);
    }
    if (file->GetPlatforms().empty())
      RemoveFileEntry(*file);
  }
}

// A target without debug symbols takes those of every target out of the list, so the targets that
// have some come last.
void TDeploymentModuleHandler::ReconcileConfigurations(std::span<const std::string> platforms) {
  ICustomProject* project = Project();
  const IOTAProjectOptionsConfigurations* options =
      project ? project->GetOptionsConfigurations() : nullptr;
  if (!options)
    return;
  std::vector<std::pair<std::string, std::string>> targets;
  for (const IOTABuildConfiguration* configuration : options->GetConfigurations()) {
    const std::vector<std::string> own = configuration->GetPlatforms();
    for (const std::string& platform : platforms) {
      if (std::find(own.begin(), own.end(), platform) != own.end())
        targets.emplace_back(configuration->GetName(), platform);
    }
  }
  std::stable_partition(targets.begin(), targets.end(), [&](const auto& target) {
    return !HasDebugSymbols(TReconcileTarget(*project, target.second, target.first, FServices));
  });
  for (const auto& [configuration, platform] : targets)
    RunReconciler(configuration, platform, /*reconcileInternally=*/false, nullptr);
}

} // namespace deployment
