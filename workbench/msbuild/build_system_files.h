// The project files that a build system brings along, for machines that do not have it.
#pragma once

#include "package/host/api/xml.h"

#include <memory>
#include <string_view>
#include <vector>

namespace workbench {

/// Stands in for a build system. Used on one thread.
class IBuildSystemFiles {
public:
  virtual ~IBuildSystemFiles() = default;
  /// What stands in for the file of that name, compared ignoring case; null when nothing does.
  virtual std::shared_ptr<deployment::IXMLDocument> StandIn(std::string_view fileName) = 0;
  /// The names of these files, in the order in which a project imports them.
  virtual std::vector<std::string_view> Names() const = 0;
  /// Properties that the build system sets to what only it knows, such as where it is installed.
  virtual std::vector<std::string_view> UnknownProperties() const = 0;
};

} // namespace workbench
