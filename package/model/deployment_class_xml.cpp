// How a class stands in XML: reading and writing side by side.
#include "package/host/api/xmlutils.h"
#include "package/model/deployment_class.h"
#include "package/model/section_names.h"

namespace deployment {

void TDeploymentClass::Read(IXMLNode& node) {
  TDeploymentItem::Read(node);
  // Listeners hear nothing of the id and the description that a class was stored with.
  FClassId = node.GetAttribute(section_names::Name).value_or(std::string_view());
  if (const auto description = node.GetAttribute(section_names::Description))
    FDescription = *description;
}

void TDeploymentClass::Write(IXMLNode& node) const {
  TDeploymentItem::Write(node);
  node.SetAttribute(section_names::Name, FClassId);
  if (!FDescription.empty())
    node.SetAttribute(section_names::Description, FDescription);
}

void TDeploymentClass::ReadPlatformData(IXMLNode& node, std::string_view platform) {
  TDeploymentItem::ReadPlatformData(node, platform);
  if (const IXMLNode* extensions = FindChild(node, section_names::Extensions))
    OwnClassData(platform).Extensions = extensions->Text();
}

void TDeploymentClass::WritePlatformData(IXMLNode& node, const TDeployData& data,
                                         std::string_view platform) const {
  TDeploymentItem::WritePlatformData(node, data, platform);
  const auto& classData = static_cast<const TClassData&>(data);
  if (!classData.Extensions.empty())
    SetChildValue(node, section_names::Extensions, classData.Extensions);
}

} // namespace deployment
