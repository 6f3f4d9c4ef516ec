// A project that an IDE has open, and the deployment lists that stand in it.
#pragma once

#include <QString>
#include <filesystem>
#include <vector>

namespace workbench {

/// What an IDE tells of a project.
struct TIdeProject {
  QString Name;
  std::filesystem::path Directory; ///< that its CMakeLists.txt stands in; tells projects apart
  std::filesystem::path Build;     ///< build directory; empty when the IDE knows none
};

/// The deployment lists (".vproj") in the directory of the project, sorted.
std::vector<std::filesystem::path> ListFilesOf(const TIdeProject& project);

/// The file that the project's first list is written to.
std::filesystem::path FirstListFileOf(const TIdeProject& project);

/// The platform that programs built on this machine run on; empty for one that is none of them.
QString PlatformOfThisMachine();

} // namespace workbench
