// How a file stands in XML: reading and writing side by side.
#include "package/common/convert.h"
#include "package/host/api/xmlutils.h"
#include "package/model/deployment_file.h"
#include "package/model/section_names.h"

#include <array>

namespace deployment {

void TDeploymentFile::Read(IXMLNode& node) {
  TDeploymentItem::Read(node);
  SetLocalName(node.GetAttribute(section_names::LocalName).value_or(std::string_view()));
  if (const auto configuration = node.GetAttribute(section_names::Configuration))
    SetConfiguration(*configuration);
  // Listeners hear nothing of the class that a file was stored with.
  if (const auto className = node.GetAttribute(section_names::Class))
    StoreField(TFileField::DeploymentClass, FClass, *className);
}

void TDeploymentFile::Write(IXMLNode& node) const {
  TDeploymentItem::Write(node);
  node.SetAttribute(section_names::LocalName, FLocalName);
  node.SetAttribute(section_names::Configuration, FConfiguration);
  node.SetAttribute(section_names::Class, FClass);
}

void TDeploymentFile::ReadPlatformData(IXMLNode& node, std::string_view platform) {
  TDeploymentItem::ReadPlatformData(node, platform);
  SetFilePlatform(platform);
  constexpr std::array Names{section_names::Enabled, section_names::RemoteName,
                             section_names::Overwrite};
  std::array<IXMLNode*, Names.size()> found{};
  FindChildren(node, Names, found);
  const auto [enabled, remoteName, overwrite] = found;
  // Set in any case, so that every platform that is read has a record.
  SetEnabled(platform,
             !enabled || ExpectBoolean(*enabled, section_names::Enabled, enabled->Text()));
  if (remoteName && !remoteName->Text().empty())
    SetRemoteName(platform, remoteName->Text());
  if (overwrite && !overwrite->Text().empty())
    SetOverwrite(platform, ExpectBoolean(*overwrite, section_names::Overwrite, overwrite->Text()));
}

void TDeploymentFile::WritePlatformData(IXMLNode& node, const TDeployData& data,
                                        std::string_view platform) const {
  TDeploymentItem::WritePlatformData(node, data, platform);
  const auto& fileData = static_cast<const TFileData&>(data);
  if (!fileData.Enabled)
    SetChildValue(node, section_names::Enabled, BooleanToText(false));
  if (!fileData.RemoteName.empty())
    SetChildValue(node, section_names::RemoteName, fileData.RemoteName);
  SetChildValue(node, section_names::Overwrite, BooleanToText(fileData.Overwrite));
}

} // namespace deployment
