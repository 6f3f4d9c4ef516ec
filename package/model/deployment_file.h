// One local file of a deployment, with its settings per platform.
#pragma once

#include "package/model/deployment_item.h"
#include "package/model/slot_chains.h"

#include <memory>
#include <string>
#include <string_view>

namespace deployment {

/// A file entry. One that a TDeploymentFileList holds tells its owner before a text changes that
/// the list finds it by.
class TDeploymentFile final : public TDeploymentItem, public IProjectDeploymentFile {
public:
  TDeploymentFile() = default;
  TDeploymentFile(std::string_view configuration, std::string_view platform,
                  std::string_view localName);

  const std::string& GetLocalName() const override { return FLocalName; }
  void SetLocalName(std::string_view value) override;
  const std::string& GetDeploymentClass() const override { return FClass; }
  void SetDeploymentClass(std::string_view value) override;
  const std::string& GetConfiguration() const override { return FConfiguration; }
  void SetConfiguration(std::string_view value) override;
  const std::string& GetFilePlatform() const override { return FPlatform; }
  void SetFilePlatform(std::string_view value) override;

  bool GetEnabled(std::string_view platform) const override;
  void SetEnabled(std::string_view platform, bool value) override;
  bool GetOverwrite(std::string_view platform) const override;
  void SetOverwrite(std::string_view platform, bool value) override;
  std::string GetRemoteName(std::string_view platform) const override;
  void SetRemoteName(std::string_view platform, std::string_view value) override;
  TFileData* GetFileData(std::string_view platform, bool create) override;

  void Read(IXMLNode& node) override;
  void Write(IXMLNode& node) const override;

protected:
  std::unique_ptr<TDeployData> CreateData() const override;
  void ReadPlatformData(IXMLNode& node, std::string_view platform) override;
  void WritePlatformData(IXMLNode& node, const TDeployData& data,
                         std::string_view platform) const override;

private:
  friend class TDeploymentFileList;

  const TFileData* FileData(std::string_view platform) const;
  // Stores a text that the list finds the file by; false when it is there already.
  bool StoreField(TFileField field, std::string& stored, std::string_view value);

  std::string FClass;
  std::string FLocalName;
  std::string FConfiguration;
  std::string FPlatform;
  // Where the list keeps the file; written by the list alone.
  TSlot FSlot = NoSlot;
};

} // namespace deployment
