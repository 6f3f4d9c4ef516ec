#include "workbench/desktop/notices/missing_parts.h"

#include "package/common/class_names.h"
#include "package/host/api/platformapi.h"
#include "package/host/api/platforms.h"
#include "package/host/api/target_entries.h"
#include "workbench/files/machine_path.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"

#include <filesystem>

namespace workbench {
namespace {

std::string MissingProfile(TSession& session, TOpenProject& project, const std::string& platform) {
  const auto* platforms = project.Project().GetProjectPlatforms();
  std::string name = platforms ? platforms->GetProfileName(platform) : std::string();
  if (name.empty() || session.RemoteProfiles().FindProfile(name))
    return {};
  return name;
}

} // namespace

TMissingParts FindMissingParts(TSession& session, TOpenProject& project,
                               const deployment::TDeploymentTarget& target) {
  TMissingParts missing;
  if (target.Platform.empty() || target.Platform == deployment::sAllPlatforms)
    return missing;
  missing.Profile = MissingProfile(session, project, target.Platform);
  deployment::TTargetEntries entries(project.Project(), target);
  for (const auto& file : project.Deployment().GetFiles()) {
    if (file->GetDeploymentClass() != deployment::class_names::ProjectOutput ||
        !entries.IsDeployed(*file))
      continue;
    std::error_code ignored;
    const auto paths = session.PathsOf(project, target);
    if (!std::filesystem::exists(ToMachinePath(paths.LocalFile(*file)), ignored))
      missing.Output = file->GetLocalName();
  }
  return missing;
}

} // namespace workbench
