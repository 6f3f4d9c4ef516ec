#include "package/view/local_names.h"

#include "package/host/api/platformapi.h"

#include <memory>

namespace deployment {
namespace {

// The profile that the project assigns to the platform, else the platform's default one; null when
// there is none, or nobody to ask.
std::shared_ptr<IOTARemoteProfile> ProfileOf(ICustomProject& project, std::string_view platform,
                                             VelmorIDEServices& services) {
  const IOTARemoteProfileServices* profiles = services.GetRemoteProfileServices();
  const IOTAProjectPlatforms* platforms = project.GetProjectPlatforms();
  if (!profiles || !platforms)
    return nullptr;
  std::string name = platforms->GetProfileName(platform);
  if (name.empty())
    name = profiles->GetDefaultProfileName(platform);
  return profiles->FindProfile(name);
}

} // namespace

TLocalNames::TLocalNames(ICustomProject& project, std::string_view platform,
                         std::string_view configuration, VelmorIDEServices& services)
    : FServices(services), FProjectFile(project.GetProjectFileName()) {
  FMacroParameters.append("Platform=").append(platform);
  FMacroParameters.append(";Configuration=").append(configuration);
  const auto profile = ProfileOf(project, platform, services);
  if (const IAndroidSDK* sdk = profile ? profile->GetAndroidSDK() : nullptr) {
    const std::string ndk =
        services.GetMacroUtils().ExpandRootMacro(sdk->GetNDKBasePath(), std::string_view());
    FMacroParameters.append(";NDKBasePath=").append(ndk);
  }
}

std::string TLocalNames::FullName(std::string_view localName) const {
  const IFileUtils& files = FServices.GetFileUtils();
  // Most names hold no macro.
  if (localName.find("$(") == std::string_view::npos)
    return files.QualifyPath(localName, FProjectFile);
  return files.QualifyPath(FServices.GetMacroUtils().ExpandRootMacro(localName, FMacroParameters),
                           FProjectFile);
}

} // namespace deployment
