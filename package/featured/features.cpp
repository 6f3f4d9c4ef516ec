#include "package/featured/features.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "package/common/text_trim.h"
#include "package/featured/catalog_xml.h"
#include "package/host/api/repositoryfile.h"

#include <algorithm>

namespace deployment {
namespace {

std::string KeyOf(std::string_view className) {
  return UpperCase(Trimmed(className));
}

bool IsOfProduct(const IXMLNode& node, std::string_view product) {
  return SameText(CatalogAttribute(node, "ProductName"), product);
}

std::string Wanted(std::string_view extension) {
  return LowerCaseAscii(Trimmed(extension));
}

} // namespace

std::shared_ptr<IXMLDocument> OpenFeaturedFilesXml(VelmorIDEServices& host) {
  const std::string file = RepositoryFile(host.GetAppStrings(), "Deploy\\featuredfiles.xml");
  if (!host.GetFileUtils().FileExists(file))
    return nullptr;
  return host.GetXMLDocuments().LoadXMLFile(file);
}

TFeatures::TFeatures(VelmorIDEServices& host, std::string_view extension) {
  const auto document = OpenFeaturedFilesXml(host);
  if (!document)
    return;
  const std::string product = host.GetAppStrings().CoreProductName();
  IXMLNode& root = document->DocumentElement();
  ReadClasses(root, product);
  if (extension.empty() || ExtensionInFeaturesClasses(extension))
    ReadFeatures(root, product, extension);
}

void TFeatures::ReadClasses(IXMLNode& root, std::string_view product) {
  for (IXMLNode* node = root.FirstChild(); node; node = node->NextSibling()) {
    if (!IsElement(*node, "FeatureClass") || !IsOfProduct(*node, product))
      continue;
    TFeatureClass featureClass(*node);
    const std::string key = KeyOf(featureClass.Name());
    if (FFeaturesClasses.Find(key))
      RaiseCatalogError(*node, "the feature class \"" + featureClass.Name() + "\" stands twice");
    FFeaturesClasses.Set(key, std::move(featureClass));
  }
}

void TFeatures::ReadFeatures(IXMLNode& root, std::string_view product, std::string_view extension) {
  for (IXMLNode* node = root.FirstChild(); node; node = node->NextSibling()) {
    if (!IsElement(*node, "Feature") || !IsOfProduct(*node, product))
      continue;
    if (extension.empty() ||
        ExtensionInFeatureClass(CatalogAttribute(*node, "FeatureClass"), extension))
      FList.emplace_back(*node);
  }
}

TOrderedDictionary<TFeatureClass>
TFeatures::GetFeaturesClassesByExtension(std::string_view extension) const {
  TOrderedDictionary<TFeatureClass> found;
  const std::string wanted = Wanted(extension);
  for (const auto& each : FFeaturesClasses) {
    if (each.Value.Claims(wanted))
      found.Set(each.Value.Name(),
                TFeatureClass(each.Value.Name(), JoinDelimited(each.Value.Extensions())));
  }
  return found;
}

bool TFeatures::ExtensionInFeaturesClasses(std::string_view extension) const {
  const std::string wanted = Wanted(extension);
  return std::any_of(FFeaturesClasses.begin(), FFeaturesClasses.end(),
                     [&](const auto& each) { return each.Value.Claims(wanted); });
}

bool TFeatures::ExtensionInFeatureClass(std::string_view classes,
                                        std::string_view extension) const {
  const std::string wanted = Wanted(extension);
  for (const std::string_view name : SplitDelimited(classes)) {
    const TFeatureClass* featureClass = FindClass(name);
    if (featureClass && featureClass->Claims(wanted))
      return true;
  }
  return false;
}

const TFeatureClass* TFeatures::FindClass(std::string_view name) const {
  return FFeaturesClasses.Find(KeyOf(name));
}

} // namespace deployment
