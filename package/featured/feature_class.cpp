#include "package/featured/feature_class.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "package/common/text_trim.h"
#include "package/featured/catalog_xml.h"

#include <algorithm>

namespace deployment {

TFeatureClass::TFeatureClass(IXMLNode& node) : FName(CatalogAttribute(node, "Name")) {
  for (IXMLNode* child = node.FirstChild(); child; child = child->NextSibling()) {
    if (IsElement(*child, "Extensions"))
      SetExtensions(PlainText(*child));
  }
}

TFeatureClass::TFeatureClass(std::string_view name, std::string_view extensions) : FName(name) {
  SetExtensions(Trimmed(extensions));
}

void TFeatureClass::SetExtensions(std::string_view text) {
  FExtensions.clear();
  for (const std::string_view extension : SplitDelimited(text))
    FExtensions.push_back(LowerCaseAscii(extension));
}

bool TFeatureClass::Claims(std::string_view extension) const {
  return std::any_of(FExtensions.begin(), FExtensions.end(),
                     [&](const std::string& own) { return SameText(own, extension); });
}

} // namespace deployment
