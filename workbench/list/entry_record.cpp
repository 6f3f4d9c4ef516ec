#include "workbench/list/entry_record.h"

#include <algorithm>
#include <cstddef>

namespace workbench {
namespace {

using deployment::IProjectDeploymentClass;
using deployment::IProjectDeploymentFile;
using deployment::IProjectDeploymentItem;
using deployment::TCommandList;

TFilePlatformRecord PlatformOf(IProjectDeploymentFile& file, const std::string& platform) {
  const deployment::TFileData& data = *file.GetFileData(platform, /*create=*/false);
  TFilePlatformRecord record;
  record.Platform = platform;
  record.RemoteDir = data.RemoteDir;
  record.Operation = data.Operation;
  record.LocalCommands = data.LocalCommands;
  record.RemoteCommands = data.RemoteCommands;
  record.RemoteName = data.RemoteName;
  record.Enabled = data.Enabled;
  record.Overwrite = data.Overwrite;
  return record;
}

TClassPlatformRecord PlatformOf(IProjectDeploymentClass& deploymentClass,
                                const std::string& platform) {
  TClassPlatformRecord record;
  record.Platform = platform;
  record.RemoteDir = deploymentClass.GetRemoteDir(platform);
  record.Operation = deploymentClass.GetOperation(platform);
  record.LocalCommands = *deploymentClass.GetLocalCommands(platform);
  record.RemoteCommands = *deploymentClass.GetRemoteCommands(platform);
  record.Extensions = deploymentClass.GetExtensions(platform);
  return record;
}

template <class TRecord, class TItem>
void TakeItem(TRecord& record, TItem& item) {
  record.Condition = item.GetCondition();
  record.Required = item.GetRequired();
  const std::vector<std::string> platforms = item.GetPlatforms();
  record.Platforms.reserve(platforms.size());
  for (const std::string& platform : platforms)
    record.Platforms.push_back(PlatformOf(item, platform));
}

void ApplyPlatform(const TFilePlatformRecord& record, IProjectDeploymentFile& file) {
  deployment::TFileData& data = *file.GetFileData(record.Platform, /*create=*/true);
  data.RemoteDir = record.RemoteDir;
  data.Operation = record.Operation;
  data.LocalCommands = record.LocalCommands;
  data.RemoteCommands = record.RemoteCommands;
  data.RemoteName = record.RemoteName;
  data.Enabled = record.Enabled;
  data.Overwrite = record.Overwrite;
}

void ApplyPlatform(const TClassPlatformRecord& record, IProjectDeploymentClass& deploymentClass) {
  deploymentClass.SetRemoteDir(record.Platform, record.RemoteDir);
  deploymentClass.SetOperation(record.Platform, record.Operation);
  *deploymentClass.GetLocalCommands(record.Platform) = record.LocalCommands;
  *deploymentClass.GetRemoteCommands(record.Platform) = record.RemoteCommands;
  deploymentClass.SetExtensions(record.Platform, record.Extensions);
}

// A new platform becomes the last one, so from the first difference on they are made anew.
template <class TRecord>
void DropDifferentPlatforms(const std::vector<TRecord>& wanted, IProjectDeploymentItem& item) {
  const std::vector<std::string> present = item.GetPlatforms();
  std::size_t same = 0;
  while (same < present.size() && same < wanted.size() && present[same] == wanted[same].Platform)
    ++same;
  for (std::size_t i = same; i < present.size(); ++i)
    item.RemovePlatform(present[i]);
}

template <class TRecord, class TItem>
void ApplyItem(const TRecord& record, TItem& item) {
  item.SetCondition(record.Condition);
  item.SetRequired(record.Required);
  DropDifferentPlatforms(record.Platforms, item);
  for (const auto& platform : record.Platforms)
    ApplyPlatform(platform, item);
}

} // namespace

TEntryKey NamesOf(const IProjectDeploymentFile& file) {
  return {file.GetConfiguration(), file.GetFilePlatform(), file.GetLocalName()};
}

TEntryRecord RecordOf(IProjectDeploymentFile& file) {
  TEntryRecord record;
  record.Names = NamesOf(file);
  record.Class = file.GetDeploymentClass();
  TakeItem(record, file);
  return record;
}

TClassRecord RecordOf(IProjectDeploymentClass& deploymentClass) {
  TClassRecord record;
  record.Id = deploymentClass.GetClassId();
  record.Description = deploymentClass.GetDescription();
  TakeItem(record, deploymentClass);
  return record;
}

TClassRecords ClassRecordsOf(const deployment::IProjectDeployment& deployment) {
  const deployment::TDeploymentClasses classes = deployment.GetClasses();
  TClassRecords records;
  records.reserve(classes.size());
  for (const auto& deploymentClass : classes)
    records.push_back(RecordOf(*deploymentClass));
  return records;
}

void Apply(const TEntryRecord& record, IProjectDeploymentFile& file) {
  file.SetConfiguration(record.Names.Configuration);
  file.SetFilePlatform(record.Names.Platform);
  file.SetLocalName(record.Names.LocalName);
  file.SetDeploymentClass(record.Class);
  ApplyItem(record, file);
}

void Apply(const TClassRecord& record, IProjectDeploymentClass& deploymentClass) {
  deploymentClass.SetClassId(record.Id);
  deploymentClass.SetDescription(record.Description);
  ApplyItem(record, deploymentClass);
}

TEntryRecord AsStored(TEntryRecord record) {
  record.Names.Platform.clear();
  for (TFilePlatformRecord& platform : record.Platforms) {
    for (auto* commands : {&platform.LocalCommands, &platform.RemoteCommands}) {
      if (commands->size() > 1)
        commands->erase(commands->begin(), commands->end() - 1);
    }
  }
  return record;
}

} // namespace workbench
