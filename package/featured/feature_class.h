// One feature class: a name, and the file extensions that it claims.
#pragma once

#include "package/host/api/xml.h"

#include <string>
#include <string_view>
#include <vector>

namespace deployment {

class TFeatureClass {
public:
  /// Reads a "FeatureClass" element. Throws TInputError when its extensions are no plain text.
  explicit TFeatureClass(IXMLNode& node);
  /// `extensions` is trimmed, lowered and split at ";".
  TFeatureClass(std::string_view name, std::string_view extensions);

  /// As the catalog writes it.
  const std::string& Name() const { return FName; }
  /// Lowered, each with its dot; blanks around an item belong to it.
  const std::vector<std::string>& Extensions() const { return FExtensions; }
  /// True when the class claims the extension, compared ignoring case and nothing else.
  bool Claims(std::string_view extension) const;

private:
  void SetExtensions(std::string_view text);

  std::string FName;
  std::vector<std::string> FExtensions;
};

} // namespace deployment
