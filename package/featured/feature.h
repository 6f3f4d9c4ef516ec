// One feature of the catalog: optional files that are chosen together.
#pragma once

#include "package/featured/deploy_file.h"

#include <memory>
#include <string>
#include <vector>

namespace deployment {

class TFeature {
public:
  /// Reads a "Feature" element. Throws TInputError for what is wrong in it.
  explicit TFeature(IXMLNode& node);

  const std::string& Title() const { return FTitle; }
  /// Names of the classes that the feature belongs to, as written.
  const std::vector<std::string>& FeaturesClasses() const { return FFeaturesClasses; }
  /// In document order.
  const std::vector<TDeployFile>& DeployFiles() const { return FDeployFile; }

private:
  std::string FTitle;
  std::vector<std::string> FFeaturesClasses;
  std::vector<TDeployFile> FDeployFile;
};

} // namespace deployment
