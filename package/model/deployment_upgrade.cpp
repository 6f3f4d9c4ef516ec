#include "package/model/deployment_upgrade.h"

#include "package/common/class_names.h"
#include "package/host/api/xmlutils.h"
#include "package/model/section_names.h"

#include <algorithm>
#include <string>
#include <string_view>

namespace deployment {
namespace {

// The oldest layout knew one platform for all iOS devices.
constexpr std::string_view OldDevice = "iOSDevice";
constexpr std::string_view Device32 = "iOSDevice32";
constexpr std::string_view Device64 = "iOSDevice64";

bool HasOldDevice(const IProjectDeploymentItem& item) {
  const auto platforms = item.GetPlatforms();
  return std::find(platforms.begin(), platforms.end(), OldDevice) != platforms.end();
}

std::string WithDevice32(std::string_view path) {
  std::string result;
  for (std::size_t found = path.find(OldDevice); found != std::string_view::npos;
       found = path.find(OldDevice)) {
    result.append(path.substr(0, found)).append(Device32);
    path.remove_prefix(found + OldDevice.size());
  }
  return result.append(path);
}

void SplitDeviceOfFile(IProjectDeploymentFile& file) {
  if (!HasOldDevice(file))
    return;
  // Nobody renames the paths of files that the user added.
  if (file.GetDeploymentClass() != class_names::File)
    file.SetLocalName(WithDevice32(file.GetLocalName()));
  // The record and not the getters: an unset remote name stays unset.
  if (const TFileData* record = file.GetFileData(OldDevice, false)) {
    const bool enabled = record->Enabled;
    const bool overwrite = record->Overwrite;
    const std::string remoteName = record->RemoteName;
    const TDeployOperation operation = record->Operation;
    const std::string remoteDir = record->RemoteDir;
    file.SetEnabled(Device32, enabled);
    file.SetOverwrite(Device32, overwrite);
    file.SetRemoteName(Device32, remoteName);
    file.SetOperation(Device32, operation);
    file.SetRemoteDir(Device32, remoteDir);
  }
  file.SetFilePlatform(Device32);
  file.RemovePlatform(OldDevice);
}

void SplitDeviceOfClass(IProjectDeploymentClass& deploymentClass) {
  if (!HasOldDevice(deploymentClass))
    return;
  // The setters make the new record and may move the old one: each value is copied first.
  deploymentClass.SetOperation(Device32, deploymentClass.GetOperation(OldDevice));
  deploymentClass.SetRemoteDir(Device32, std::string(deploymentClass.GetRemoteDir(OldDevice)));
  deploymentClass.SetExtensions(Device32, std::string(deploymentClass.GetExtensions(OldDevice)));
  deploymentClass.RemovePlatform(OldDevice);
}

void SplitDeviceOfRoots(IProjectDeployment& deployment, IXMLNode& section) {
  for (IXMLNode* node = FindChild(section, section_names::ProjectRoot); node;
       node = FirstNamed(node->NextSibling(), section_names::ProjectRoot)) {
    if (ExpectAttribute(*node, section_names::Platform) != OldDevice)
      continue;
    const std::string_view name = ExpectAttribute(*node, section_names::Name);
    deployment.SetProjectRoot(Device32, name);
    deployment.SetProjectRoot(Device64, name);
    deployment.SetProjectRoot(OldDevice, "");
  }
}

// From 0 to 1: what was set for the one device goes on for the 32-bit one.
void SplitDevice(IProjectDeployment& deployment, IXMLNode* section) {
  for (const auto& file : deployment.FindFiles("", "", "", ""))
    SplitDeviceOfFile(*file);
  for (const auto& deploymentClass : deployment.GetClasses())
    SplitDeviceOfClass(*deploymentClass);
  if (section)
    SplitDeviceOfRoots(deployment, *section);
}

// From 1 to 2: a library that was listed for the simulator, which has no use for it.
void DropSimulatorUnwinder(IProjectDeployment& deployment) {
  for (const auto& file : deployment.FindFiles("$(ZELK)\\Redist\\osx32\\libtqunwind.1.0.dylib", "",
                                               "", class_names::DependencyModule))
    deployment.RemoveFile("", "iOSSimulator", file->GetLocalName());
}

} // namespace

void UpgradeDeployment(IProjectDeployment& deployment, IXMLNode* section, int version) {
  if (version < 1)
    SplitDevice(deployment, section);
  if (version <= 1)
    DropSimulatorUnwinder(deployment);
}

} // namespace deployment
