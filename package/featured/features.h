// The catalog of optional files that ships with the host.
#pragma once

#include "package/common/ordered_dictionary.h"
#include "package/featured/feature.h"
#include "package/featured/feature_class.h"
#include "package/host/api/ideservices.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// The root element's document; null when the host ships no catalog. Throws TInputError when the
/// file is not well-formed.
std::shared_ptr<IXMLDocument> OpenFeaturedFilesXml(VelmorIDEServices& host);

/// The features of this product, and those alone that a file extension calls for when one is given.
class TFeatures {
public:
  /// Reads the catalog; a missing one is empty. `extension` comes with its dot; empty means every
  /// feature. Throws TInputError for what is wrong in the catalog.
  TFeatures(VelmorIDEServices& host, std::string_view extension);

  /// In document order.
  const std::vector<TFeature>& List() const { return FList; }
  /// Every class of this product, under its name trimmed and folded.
  const TOrderedDictionary<TFeatureClass>& FeaturesClasses() const { return FFeaturesClasses; }

  /// Copies of the classes that claim the extension, under their names as written.
  TOrderedDictionary<TFeatureClass> GetFeaturesClassesByExtension(std::string_view extension) const;
  /// True when any class claims the extension, blanks around it and case ignored.
  bool ExtensionInFeaturesClasses(std::string_view extension) const;
  /// True when one of the ";"-delimited classes, blanks and case ignored, claims the extension.
  bool ExtensionInFeatureClass(std::string_view classes, std::string_view extension) const;
  /// The class of that name, blanks and case ignored; null when there is none.
  const TFeatureClass* FindClass(std::string_view name) const;

private:
  void ReadClasses(IXMLNode& root, std::string_view product);
  void ReadFeatures(IXMLNode& root, std::string_view product, std::string_view extension);

  std::vector<TFeature> FList;
  TOrderedDictionary<TFeatureClass> FFeaturesClasses;
};

} // namespace deployment
