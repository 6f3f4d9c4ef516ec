#include "package/featured/feature.h"

#include "package/common/delimited_list.h"
#include "package/featured/catalog_xml.h"

namespace deployment {

TFeature::TFeature(IXMLNode& node) {
  for (const std::string_view name : SplitDelimited(CatalogAttribute(node, "FeatureClass")))
    FFeaturesClasses.emplace_back(name);
  for (IXMLNode* child = node.FirstChild(); child; child = child->NextSibling()) {
    if (IsElement(*child, "Title"))
      FTitle = PlainText(*child);
    else if (IsElement(*child, "DeployFile"))
      FDeployFile.emplace_back(*child);
  }
}

} // namespace deployment
