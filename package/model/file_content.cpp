#include "package/model/file_content.h"

namespace deployment {
namespace {

TFileRecord RecordOf(const std::string& platform, const TFileData& data) {
  return {platform,       data.LocalCommands, data.Operation, data.RemoteCommands,
          data.RemoteDir, data.RemoteName,    data.Enabled,   data.Overwrite};
}

void SetRecord(TFileData& data, const TFileRecord& record) {
  data.LocalCommands = record.LocalCommands;
  data.Operation = record.Operation;
  data.RemoteCommands = record.RemoteCommands;
  data.RemoteDir = record.RemoteDir;
  data.RemoteName = record.RemoteName;
  data.Enabled = record.Enabled;
  data.Overwrite = record.Overwrite;
}

} // namespace

TFileContent ContentOf(IProjectDeploymentFile& file) {
  TFileContent content{file.GetConfiguration(),
                       file.GetFilePlatform(),
                       file.GetLocalName(),
                       file.GetDeploymentClass(),
                       file.GetCondition(),
                       file.GetRequired(),
                       {}};
  for (const std::string& platform : file.GetPlatforms())
    content.Records.push_back(RecordOf(platform, *file.GetFileData(platform, /*create=*/false)));
  return content;
}

void SetContent(IProjectDeploymentFile& file, const TFileContent& content) {
  file.SetConfiguration(content.Configuration);
  file.SetFilePlatform(content.Platform);
  file.SetLocalName(content.LocalName);
  file.SetDeploymentClass(content.ClassName);
  file.SetCondition(content.Condition);
  file.SetRequired(content.Required);
  // All are made anew, so that they stand in their order.
  for (const std::string& platform : file.GetPlatforms())
    file.RemovePlatform(platform);
  for (const TFileRecord& record : content.Records)
    SetRecord(*file.GetFileData(record.Platform, /*create=*/true), record);
}

} // namespace deployment
