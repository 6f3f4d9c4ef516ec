// Names of project files, as the window takes and shows them.
#pragma once

#include <QString>
#include <filesystem>

namespace workbench {

class TOpenProject;

/// True for the file that each save makes from a project for builds.
bool IsSideFile(const std::filesystem::path& file);
/// True for a name such as "Name.vproj"; side files are no projects.
bool IsProjectFile(const std::filesystem::path& file);
/// The name without directory.
QString NameOf(const TOpenProject& project);
/// Full and without links; for a file that is gone, full.
std::filesystem::path CanonicalPath(const std::filesystem::path& file);
/// Filter of file dialogs for project files, side files left out.
QString ProjectFileFilter();
/// The same with solutions.
QString OpenFileFilter();

} // namespace workbench
