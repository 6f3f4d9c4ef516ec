// Host unit Macroutils: "$(NAME)" in stored texts.
#pragma once

#include "package/host/api/codemgr.h"

#include <string>
#include <string_view>

namespace deployment {

/// Implemented by the host, good as long as it runs.
class IMacroUtils {
public:
  virtual ~IMacroUtils() = default;
  /// Expands the macros that `parameters` ("NAME=value" items, ";"-delimited) defines. Unknown
  /// macros stay as they are.
  virtual std::string ExpandMacros(std::string_view text, std::string_view parameters) const = 0;
  /// The same, and the IDE root macro "$(ZELK)" besides.
  virtual std::string ExpandRootMacro(std::string_view text, std::string_view parameters) const = 0;
  /// The same with the macros that a project has for a target.
  virtual std::string ExpandRootMacro(std::string_view text, ICustomProject& project,
                                      std::string_view configuration,
                                      std::string_view platform) const = 0;
};

} // namespace deployment
