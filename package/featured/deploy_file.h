// One file of a feature.
#pragma once

#include "package/common/ordered_dictionary.h"
#include "package/host/api/xml.h"

#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// A file that belongs to a feature, and where it goes on each platform.
class TDeployFile {
public:
  /// Reads a "DeployFile" element. Throws TInputError for a platform that is given two directories,
  /// and for a platform element with something in it but no directory.
  explicit TDeployFile(IXMLNode& node);

  const std::string& LocalName() const { return FLocalName; }
  /// The deployment class that the catalog names.
  const std::string& ClassDesc() const { return FClassDesc; }
  /// In document order, duplicates kept.
  const std::vector<std::string>& Platforms() const { return FPlatforms; }
  /// The catalog names none; a file is added for every configuration.
  const std::string& Configuration() const { return FConfiguration; }
  /// The directory of a platform (compared exactly), with a delimiter at its end; empty when the
  /// catalog names none.
  std::string GetRemoteDir(std::string_view platform) const;

private:
  void ReadPlatform(IXMLNode& node);

  std::string FLocalName;
  std::string FClassDesc;
  std::vector<std::string> FPlatforms;
  std::string FConfiguration;
  TOrderedDictionary<std::string> FRemoteDir; // by platform
};

} // namespace deployment
