#include "package/featured/catalog_xml.h"

#include "package/common/case_fold.h"

namespace deployment {

bool IsElement(const IXMLNode& node, std::string_view name) {
  return node.NodeName() == name || SameText(node.NodeName(), name);
}

std::string_view CatalogAttribute(const IXMLNode& node, std::string_view name) {
  if (const auto value = node.GetAttribute(name))
    return *value;
  for (std::size_t i = 0; i < node.AttributeCount(); ++i) {
    const std::string_view attribute = node.AttributeName(i);
    if (SameText(attribute, name))
      return node.GetAttribute(attribute).value_or("");
  }
  return {};
}

std::string PlainText(const IXMLNode& node) {
  if (node.HasChildren())
    RaiseCatalogError(node, "the element \"" + std::string(node.NodeName()) +
                                "\" holds elements where a text is wanted");
  return std::string(node.Text());
}

void RaiseCatalogError(const IXMLNode& node, const std::string& text) {
  throw TInputError(text, node.Place());
}

} // namespace deployment
