#include "workbench/deploy/plan/deploy_files.h"

#include "package/common/class_names.h"
#include "package/host/api/target_entries.h"
#include "workbench/files/machine_path.h"

#include <cstddef>

namespace workbench {
namespace {

using deployment::TDeployOperation;

// A few milliseconds of work.
constexpr std::size_t EntriesBetweenPauses = 250;

bool IsExecutable(const deployment::IProjectDeploymentFile& file, TDeployOperation operation) {
  return operation == TDeployOperation::CopyExecutable || operation == TDeployOperation::Run ||
         operation == TDeployOperation::RunAndRemove ||
         deployment::class_names::IsProgramClass(file.GetDeploymentClass());
}

deployment::TCommandList Expanded(const deployment::TEntryPaths& paths,
                                  deployment::TCommandList commands) {
  for (std::string& command : commands)
    command = paths.Expand(command);
  return commands;
}

TDeployFile Read(deployment::IProjectDeploymentFile& file,
                 deployment::IProjectDeployment& deployment, const std::string& platform,
                 const deployment::TEntryPaths& paths) {
  TDeployFile result;
  result.LocalName = file.GetLocalName();
  result.Class = file.GetDeploymentClass();
  result.LocalFile = ToMachinePath(paths.LocalFile(file));
  result.RemoteName = paths.RemoteFile(file);
  result.Operation = GetDeploymentOperation(file, platform, deployment);
  if (result.Operation == TDeployOperation::Default)
    result.Operation = TDeployOperation::Copy;
  result.Required = GetDeploymentRequired(file, deployment);
  result.Overwrite = file.GetOverwrite(platform);
  result.Executable = IsExecutable(file, result.Operation);
  result.LocalCommands = Expanded(paths, GetDeploymentLocalCommands(file, platform, deployment));
  result.RemoteCommands = Expanded(paths, GetDeploymentRemoteCommands(file, platform, deployment));
  return result;
}

} // namespace

std::vector<TDeployFile> CollectDeployFiles(deployment::ICustomProject& project,
                                            deployment::IProjectDeployment& deployment,
                                            const deployment::TDeploymentTarget& target,
                                            const deployment::TEntryPathServices& services,
                                            deployment::TRemoteBase base, const TPause& pause) {
  deployment::TTargetEntries entries(project, target);
  const deployment::TEntryPaths paths(project, deployment, target, services, base);
  std::vector<TDeployFile> files;
  std::size_t looked = 0;
  for (const auto& file : deployment.GetFiles()) {
    if (entries.IsDeployed(*file))
      files.push_back(Read(*file, deployment, target.Platform, paths));
    if (pause && ++looked % EntriesBetweenPauses == 0)
      pause();
  }
  return files;
}

} // namespace workbench
