// What a build installs, told by its own tool: files, where they go below the install prefix, and
// which line of the build's files says so.
#pragma once

#include "package/common/errors.h"
#include "workbench/text/warning.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// One file that a build installs.
struct TInstalledFile {
  std::string Configuration;       ///< "Base" for a file of whatever configuration is built
  std::filesystem::path LocalFile; ///< full; need not be there yet
  std::string Directory;           ///< below the install prefix, "/" between names; empty: itself
  std::string Name;                ///< there
  std::string Component;           ///< that the build counts it to; never empty
  bool IsProgram = false;
  deployment::TErrorPlace Rule; ///< in the build's files; line 0 where the tool tells none
};

/// Everything that a build installs.
struct TInstallPlan {
  std::string Tool;                        ///< "CMake" or "Meson"
  std::vector<std::string> Configurations; ///< that the build makes; never empty
  std::vector<TInstalledFile> Files;       ///< in the order of the rules
  std::vector<TWarning> Warnings;          ///< of rules that no entry is made from
};

} // namespace workbench
