// A named category of files with the defaults that its members get per platform.
#pragma once

#include "package/model/deployment_item.h"

#include <memory>
#include <string>
#include <string_view>

namespace deployment {

/// A class of files. Files refer to it by its id.
class TDeploymentClass final : public TDeploymentItem, public IProjectDeploymentClass {
public:
  const std::string& GetClassId() const override { return FClassId; }
  void SetClassId(std::string_view value) override;
  const std::string& GetDescription() const override { return FDescription; }
  void SetDescription(std::string_view value) override;
  const std::string& GetExtensions(std::string_view platform) const override;
  void SetExtensions(std::string_view platform, std::string_view value) override;
  bool MatchesExtension(std::string_view fileName, std::string_view platform) const override;

  void Read(IXMLNode& node) override;
  void Write(IXMLNode& node) const override;

protected:
  std::unique_ptr<TDeployData> CreateData() const override;
  void ReadPlatformData(IXMLNode& node, std::string_view platform) override;
  void WritePlatformData(IXMLNode& node, const TDeployData& data,
                         std::string_view platform) const override;

private:
  const TClassData* ClassData(std::string_view platform) const;
  TClassData& OwnClassData(std::string_view platform);

  std::string FClassId;
  std::string FDescription;
};

} // namespace deployment
