// From the local name that an entry stores to the file on this machine.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/ideservices.h"

#include <string>
#include <string_view>

namespace deployment {

/// Macros of one target and the place of one project, asked for once and used for many names.
class TLocalNames {
public:
  /// The services must outlive the object.
  TLocalNames(ICustomProject& project, std::string_view platform, std::string_view configuration,
              VelmorIDEServices& services);

  /// The name with its macros expanded, relative to the project file; unknown macros stay.
  std::string FullName(std::string_view localName) const;

private:
  VelmorIDEServices& FServices;
  std::string FProjectFile;
  std::string FMacroParameters;
};

} // namespace deployment
