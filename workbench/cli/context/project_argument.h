// The project that a command is about, as it was named.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// True for a name such as "Name.vproj"; side files are no projects.
bool HasProjectName(const std::filesystem::path& file);

/// False for a file that can be read and begins with something else than XML does.
bool MayBeXml(const std::filesystem::path& file);

/// The file itself; for a directory the one project in it. Throws TUsageError when the name is
/// empty or the directory holds several projects, which are listed, and TInputError when it holds
/// none.
std::filesystem::path FindProject(const std::string& argument);

/// Throws TUsageError when the project and one of the files were given the wrong way round.
void CheckOrder(const std::string& command, const std::string& project,
                const std::vector<std::string>& files);

} // namespace workbench
