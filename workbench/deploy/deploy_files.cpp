#include "workbench/deploy/deploy_files.h"

#include "package/common/case_fold.h"
#include "package/common/class_names.h"
#include "package/common/path_text.h"
#include "workbench/files/machine_path.h"

#include <unordered_set>

namespace workbench {
namespace {

using deployment::TDeployOperation;

bool IsExecutable(const deployment::IProjectDeploymentFile& file, TDeployOperation operation) {
  return operation == TDeployOperation::CopyExecutable || operation == TDeployOperation::Run ||
         operation == TDeployOperation::RunAndRemove ||
         deployment::class_names::IsProgramClass(file.GetDeploymentClass());
}

// Upper-cased names of the configuration and of those that it inherits from.
std::unordered_set<std::string> InheritedConfigurations(deployment::ICustomProject& project,
                                                        std::string_view configuration) {
  std::unordered_set<std::string> names{deployment::UpperCase(configuration)};
  auto* options = project.GetOptionsConfigurations();
  const deployment::IOTABuildConfiguration* found = nullptr;
  if (options) {
    for (const auto* candidate : options->GetConfigurations()) {
      if (!found && deployment::SameText(candidate->GetName(), configuration))
        found = candidate;
    }
  }
  for (; found; found = found->GetParent())
    names.insert(deployment::UpperCase(found->GetName()));
  // An entry of the base configuration is in every other one.
  names.insert(deployment::UpperCase(deployment::BaseConfiguration));
  return names;
}

// A directory of its own, from the root or the user's home, or one below the base directory.
std::string RemoteDirectory(const std::string& directory, const std::string& base) {
  const bool stands = deployment::IsAbsolutePath(directory) || directory.starts_with('~');
  std::string text = stands ? directory : base + directory;
  return text.empty() ? text : deployment::WithTrailingDelimiter(text);
}

class TCollector {
public:
  TCollector(deployment::ICustomProject& project, deployment::IProjectDeployment& deployment,
             const TDeployTarget& target, const TPathServices& services)
      : FDeployment(deployment), FTarget(target), FServices(services),
        FProjectFile(project.GetProjectFileName()),
        FBase(target.BaseDirectory.empty()
                  ? std::string()
                  : deployment::WithTrailingDelimiter(target.BaseDirectory)),
        FParameters("Platform=" + std::string(target.Platform) +
                    ";Configuration=" + std::string(target.Configuration) +
                    ";Config=" + std::string(target.Configuration) + target.MoreParameters) {}

  TDeployFile Read(deployment::IProjectDeploymentFile& file) const {
    const std::string_view platform = FTarget.Platform;
    TDeployFile result;
    result.LocalName = file.GetLocalName();
    const std::string expanded = Expand(result.LocalName);
    result.LocalFile = ToMachinePath(FServices.Files.QualifyPath(expanded, FProjectFile));
    std::string name = file.GetRemoteName(platform);
    if (name.empty())
      name = deployment::FileNamePart(expanded);
    result.RemoteName =
        RemoteDirectory(Expand(GetDeploymentRemoteDir(file, platform, FDeployment)), FBase) +
        Expand(name);
    result.Operation = GetDeploymentOperation(file, platform, FDeployment);
    if (result.Operation == TDeployOperation::Default)
      result.Operation = TDeployOperation::Copy;
    result.Required = GetDeploymentRequired(file, FDeployment);
    result.Overwrite = file.GetOverwrite(platform);
    result.Executable = IsExecutable(file, result.Operation);
    result.LocalCommands = Expand(GetDeploymentLocalCommands(file, platform, FDeployment));
    result.RemoteCommands = Expand(GetDeploymentRemoteCommands(file, platform, FDeployment));
    return result;
  }

private:
  std::string Expand(std::string_view text) const {
    return FServices.Macros.ExpandRootMacro(text, FParameters);
  }
  deployment::TCommandList Expand(deployment::TCommandList commands) const {
    for (std::string& command : commands)
      command = Expand(std::string_view(command));
    return commands;
  }

  deployment::IProjectDeployment& FDeployment;
  const TDeployTarget& FTarget;
  const TPathServices& FServices;
  const std::string FProjectFile;
  const std::string FBase;
  const std::string FParameters;
};

} // namespace

std::vector<TDeployFile> CollectDeployFiles(deployment::ICustomProject& project,
                                            deployment::IProjectDeployment& deployment,
                                            const TDeployTarget& target,
                                            const TPathServices& services) {
  const auto configurations = InheritedConfigurations(project, target.Configuration);
  const TCollector collector(project, deployment, target, services);
  std::vector<TDeployFile> files;
  for (const auto& file : deployment.GetFiles()) {
    const std::string& configuration = file->GetConfiguration();
    const bool isOfTarget =
        configuration.empty() || configurations.contains(deployment::UpperCase(configuration));
    if (isOfTarget && file->GetEnabled(target.Platform))
      files.push_back(collector.Read(*file));
  }
  return files;
}

} // namespace workbench
