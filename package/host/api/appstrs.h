// Host unit Appstrs: where the host is installed and what it is called.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace deployment {

/// Implemented by the host, good as long as it runs.
class IAppStrings {
public:
  virtual ~IAppStrings() = default;
  /// Root directory of the IDE on this machine.
  virtual std::string fnRootDir() const = 0;
  /// Root key of the host's settings.
  virtual std::string rkBaseRegKey() const = 0;
  /// Product name that catalogs are filtered by.
  virtual std::string CoreProductName() const = 0;
  /// The copy of a file for the user's language; the name unchanged when there is none.
  virtual std::string GetLocaleFile(std::string_view fileName) const = 0;
};

} // namespace deployment
