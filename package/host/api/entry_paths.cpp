#include "package/host/api/entry_paths.h"

#include "package/common/path_text.h"
#include "package/host/api/ideservices.h"

#include <memory>

namespace deployment {
namespace {

const IAndroidSDK* KitOfProfile(ICustomProject& project, std::string_view platform,
                                const TEntryPathServices& services) {
  if (!services.Profiles || !project.GetProjectPlatforms())
    return nullptr;
  const auto profile =
      services.Profiles->FindProfile(GetTargetProfileName(project, platform, *services.Profiles));
  return profile ? profile->GetAndroidSDK() : nullptr;
}

const IAndroidSDK* KitOfProject(ICustomProject& project, std::string_view platform,
                                const TEntryPathServices& services) {
  const IOTAProjectPlatforms* platforms = project.GetProjectPlatforms();
  if (!services.SDKs || !platforms)
    return nullptr;
  const std::string name = platforms->GetSDKName(platform);
  const IPlatformSDK* kit =
      name.empty() ? services.SDKs->GetDefaultSDK(platform) : services.SDKs->FindSDK(name);
  return kit ? services.SDKs->AsAndroidSDK(*kit) : nullptr;
}

std::string MacroParameters(ICustomProject& project, const TDeploymentTarget& target,
                            const TEntryPathServices& services) {
  std::string parameters = "Platform=" + target.Platform +
                           ";Configuration=" + target.Configuration +
                           ";Config=" + target.Configuration;
  // A platform that is packed here needs no profile, and its files come out of a kit all the same.
  const IAndroidSDK* kit = KitOfProfile(project, target.Platform, services);
  if (!kit)
    kit = KitOfProject(project, target.Platform, services);
  if (kit)
    parameters += ";NDKBasePath=" +
                  services.Macros.ExpandRootMacro(kit->GetNDKBasePath(), std::string_view());
  return parameters;
}

} // namespace

std::string GetRemoteBase(const IDeploymentRoots& roots, std::string_view platform) {
  std::string root = roots.GetRemoteBaseDir(platform);
  return root.empty() ? root : WithTrailingDelimiter(root);
}

bool StandsForItself(std::string_view remoteDirectory) {
  return IsAbsolutePath(remoteDirectory) || remoteDirectory.starts_with('~');
}

std::string FixPath(std::string_view remoteDirectory, std::string_view base) {
  std::string fixed(remoteDirectory);
  if (!StandsForItself(remoteDirectory))
    fixed.insert(0, base);
  return WithTrailingDelimiter(fixed);
}

std::string GetTargetProfileName(ICustomProject& project, std::string_view platform,
                                 const IOTARemoteProfileServices& profiles) {
  const IOTAProjectPlatforms* platforms = project.GetProjectPlatforms();
  std::string name = platforms ? platforms->GetProfileName(platform) : std::string();
  return name.empty() ? profiles.GetDefaultProfileName(platform) : name;
}

TEntryPathServices TEntryPathServices::Of(VelmorIDEServices& services) {
  return {services.GetMacroUtils(), services.GetFileUtils(), services.GetRemoteProfileServices(),
          services.GetSDKServices()};
}

TEntryPaths::TEntryPaths(ICustomProject& project, const IProjectDeployment& deployment,
                         const TDeploymentTarget& target, const TEntryPathServices& services,
                         TRemoteBase base)
    : FClasses(deployment), FServices(services), FPlatform(target.Platform),
      FProjectFile(project.GetProjectFileName()),
      FMacroParameters(MacroParameters(project, target, services)),
      FBase(base == TRemoteBase::ProjectRoot ? GetRemoteBase(deployment, target.Platform)
                                             : std::string()) {}

std::string TEntryPaths::Expand(std::string_view text) const {
  // Most texts hold no macro.
  if (text.find("$(") == std::string_view::npos)
    return std::string(text);
  return FServices.Macros.ExpandRootMacro(text, FMacroParameters);
}

std::string TEntryPaths::LocalFile(const IProjectDeploymentFile& file) const {
  return FServices.Files.QualifyPath(Expand(file.GetLocalName()), FProjectFile);
}

std::string TEntryPaths::RemoteFile(const IProjectDeploymentFile& file) const {
  return RemoteDirectory(file) + RemoteName(file);
}

std::string TEntryPaths::RemoteDirectory(const IProjectDeploymentFile& file) const {
  const std::string directory = Expand(GetDeploymentRemoteDir(file, FPlatform, FClasses));
  return directory.empty() && FBase.empty() ? std::string() : FixPath(directory, FBase);
}

std::string TEntryPaths::RemoteName(const IProjectDeploymentFile& file) const {
  const std::string name = file.GetRemoteName(FPlatform);
  return Expand(name.empty() ? FileNamePart(file.GetLocalName()) : std::string_view(name));
}

} // namespace deployment
