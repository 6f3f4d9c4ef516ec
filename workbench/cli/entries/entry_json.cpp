#include "workbench/cli/entries/entry_json.h"

namespace workbench {
namespace {

TJson CommandsAsJson(const deployment::TCommandList* commands) {
  TJson list = TJson::Array();
  if (commands) {
    for (const std::string& command : *commands)
      list.Append(command);
  }
  return list;
}

TJson RecordAsJson(deployment::IProjectDeploymentFile& file, const std::string& platform) {
  const deployment::TFileData& data = *file.GetFileData(platform, /*create=*/false);
  return {{"enabled", data.Enabled},
          {"overwrite", data.Overwrite},
          {"remoteDir", data.RemoteDir},
          {"remoteName", data.RemoteName},
          {"operation", static_cast<int>(data.Operation)},
          {"localCommands", CommandsAsJson(&data.LocalCommands)},
          {"remoteCommands", CommandsAsJson(&data.RemoteCommands)}};
}

TJson RecordAsJson(deployment::IProjectDeploymentClass& entry, const std::string& platform) {
  return {{"remoteDir", entry.GetRemoteDir(platform)},
          {"operation", static_cast<int>(entry.GetOperation(platform))},
          {"extensions", entry.GetExtensions(platform)},
          {"localCommands", CommandsAsJson(entry.GetLocalCommands(platform))},
          {"remoteCommands", CommandsAsJson(entry.GetRemoteCommands(platform))}};
}

template <class TEntry>
TJson PlatformsAsJson(TEntry& entry) {
  TJson platforms = TJson::Object();
  for (const std::string& platform : entry.GetPlatforms())
    platforms.Add(platform, RecordAsJson(entry, platform));
  return platforms;
}

} // namespace

TJson FileAsJson(deployment::IProjectDeploymentFile& file) {
  return {{"localName", file.GetLocalName()},   {"configuration", file.GetConfiguration()},
          {"class", file.GetDeploymentClass()}, {"platform", file.GetFilePlatform()},
          {"condition", file.GetCondition()},   {"required", file.GetRequired()},
          {"platforms", PlatformsAsJson(file)}};
}

TJson ClassAsJson(deployment::IProjectDeploymentClass& deploymentClass) {
  return {{"name", deploymentClass.GetClassId()},
          {"description", deploymentClass.GetDescription()},
          {"condition", deploymentClass.GetCondition()},
          {"required", deploymentClass.GetRequired()},
          {"platforms", PlatformsAsJson(deploymentClass)}};
}

TJson ClassesAsJson(const deployment::TDeploymentClasses& classes) {
  TJson list = TJson::Array();
  for (const auto& deploymentClass : classes)
    list.Append(ClassAsJson(*deploymentClass));
  return list;
}

} // namespace workbench
