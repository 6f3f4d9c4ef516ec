#include "package/featured/deploy_file.h"

#include "package/common/path_text.h"
#include "package/common/text_trim.h"
#include "package/featured/catalog_xml.h"

namespace deployment {

TDeployFile::TDeployFile(IXMLNode& node)
    : FLocalName(CatalogAttribute(node, "LocalName")), FClassDesc(CatalogAttribute(node, "Class")) {
  for (IXMLNode* child = node.FirstChild(); child; child = child->NextSibling()) {
    if (IsElement(*child, "Platform"))
      ReadPlatform(*child);
  }
}

void TDeployFile::ReadPlatform(IXMLNode& node) {
  const std::string& platform = FPlatforms.emplace_back(CatalogAttribute(node, "Name"));
  if (!node.HasChildren() && Trimmed(node.Text()).empty())
    return;
  IXMLNode* directory = node.FirstChild();
  while (directory && !IsElement(*directory, "RemoteDir"))
    directory = directory->NextSibling();
  if (!directory)
    RaiseCatalogError(node, "the platform \"" + platform + "\" of the file \"" + FLocalName +
                                "\" holds no \"RemoteDir\"");
  if (FRemoteDir.Find(platform))
    RaiseCatalogError(*directory, "the file \"" + FLocalName + "\" has two \"RemoteDir\" for \"" +
                                      platform + "\"");
  FRemoteDir.Set(platform, WithTrailingDelimiter(PlainText(*directory)));
}

std::string TDeployFile::GetRemoteDir(std::string_view platform) const {
  const std::string* directory = FRemoteDir.Find(platform);
  return directory ? *directory : std::string();
}

} // namespace deployment
