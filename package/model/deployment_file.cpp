#include "package/model/deployment_file.h"

#include "package/common/path_text.h"

namespace deployment {

TDeploymentFile::TDeploymentFile(std::string_view configuration, std::string_view platform,
                                 std::string_view localName)
    : FLocalName(localName), FConfiguration(configuration), FPlatform(platform) {}

void TDeploymentFile::SetLocalName(std::string_view value) {
  if (StoreField(TFileField::LocalName, FLocalName, value))
    Modified();
}

void TDeploymentFile::SetDeploymentClass(std::string_view value) {
  if (StoreField(TFileField::DeploymentClass, FClass, value))
    Modified();
}

void TDeploymentFile::SetConfiguration(std::string_view value) {
  if (StoreField(TFileField::Configuration, FConfiguration, value))
    Modified();
}

void TDeploymentFile::SetFilePlatform(std::string_view value) {
  if (StoreField(TFileField::FilePlatform, FPlatform, value))
    Modified();
}

bool TDeploymentFile::GetEnabled(std::string_view platform) const {
  const TFileData* data = FileData(platform);
  return data && data->Enabled;
}

void TDeploymentFile::SetEnabled(std::string_view platform, bool value) {
  Store(GetFileData(platform, /*create=*/true)->Enabled, value);
}

bool TDeploymentFile::GetOverwrite(std::string_view platform) const {
  const TFileData* data = FileData(platform);
  return !data || data->Overwrite;
}

void TDeploymentFile::SetOverwrite(std::string_view platform, bool value) {
  Store(GetFileData(platform, /*create=*/true)->Overwrite, value);
}

std::string TDeploymentFile::GetRemoteName(std::string_view platform) const {
  const TFileData* data = FileData(platform);
  if (data && !data->RemoteName.empty())
    return data->RemoteName;
  return std::string(FileNamePart(FLocalName));
}

void TDeploymentFile::SetRemoteName(std::string_view platform, std::string_view value) {
  Store(GetFileData(platform, /*create=*/true)->RemoteName, value);
}

TFileData* TDeploymentFile::GetFileData(std::string_view platform, bool create) {
  // Every record comes from CreateData below.
  return static_cast<TFileData*>(GetData(platform, create));
}

const TFileData* TDeploymentFile::FileData(std::string_view platform) const {
  return static_cast<const TFileData*>(GetData(platform));
}

std::unique_ptr<TDeployData> TDeploymentFile::CreateData() const {
  return std::make_unique<TFileData>();
}

bool TDeploymentFile::StoreField(TFileField field, std::string& stored, std::string_view value) {
  if (stored == value)
    return false;
  if (GetOwner())
    GetOwner()->FileFieldChanging(*this, field, value);
  stored = value;
  return true;
}

} // namespace deployment
