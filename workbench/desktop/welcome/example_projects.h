// The projects that come along for somebody who has none yet.
#pragma once

#include <QString>
#include <filesystem>
#include <vector>

namespace workbench {

struct TExampleProject {
  QString Name;
  QString Description;
  std::filesystem::path File; ///< the project, as it came along
};

/// Those that stand below the root directory of the installation.
std::vector<TExampleProject> FindExamples(const std::filesystem::path& root);

/// Where the example can be worked on: its own file where its directory can be written, else a copy
/// in the user's home directory, which is made when it is not there. Throws what copying throws.
std::filesystem::path WritableExample(const TExampleProject& example);

} // namespace workbench
