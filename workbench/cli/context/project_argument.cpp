#include "workbench/cli/context/project_argument.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "package/common/errors.h"
#include "workbench/cli/context/command.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <string_view>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

std::vector<fs::path> ProjectsIn(const fs::path& directory) {
  std::error_code error;
  std::vector<fs::path> projects;
  for (const auto& entry : fs::directory_iterator(directory, error)) {
    std::error_code ignored;
    if (HasProjectName(entry.path()) && entry.is_regular_file(ignored))
      projects.push_back(entry.path());
  }
  if (error)
    throw deployment::TInputError("the directory cannot be read: " + error.message(),
                                  {directory.string(), 0});
  std::sort(projects.begin(), projects.end());
  return projects;
}

} // namespace

bool HasProjectName(const fs::path& file) {
  const std::string extension = deployment::LowerCaseAscii(file.extension().string());
  return extension.size() > 4 && extension.ends_with("proj") && extension != ".deployproj";
}

bool MayBeXml(const fs::path& file) {
  std::error_code ignored;
  if (!fs::is_regular_file(file, ignored))
    return true;
  std::array<char, 512> start{};
  std::ifstream stream(file, std::ios::binary);
  stream.read(start.data(), start.size());
  std::string_view text(start.data(), static_cast<std::size_t>(stream.gcount()));
  constexpr std::string_view Mark = "\xEF\xBB\xBF";
  if (text.starts_with(Mark))
    text.remove_prefix(Mark.size());
  // Wide letters have a zero beside each sign of the markup.
  if (text.find('\0') != std::string_view::npos)
    return true;
  const std::size_t first = text.find_first_not_of(" \t\r\n");
  return first == std::string_view::npos || text[first] == '<';
}

fs::path FindProject(const std::string& argument) {
  if (argument.empty())
    throw TUsageError("the name of the project file is empty");
  std::error_code ignored;
  if (!fs::is_directory(argument, ignored))
    return argument;
  const std::vector<fs::path> projects = ProjectsIn(argument);
  if (projects.empty())
    throw deployment::TInputError("the directory holds no project; \"deploymgr new\" makes one",
                                  {argument, 0});
  if (projects.size() == 1)
    return projects.front();
  std::vector<std::string> names;
  names.reserve(projects.size());
  for (const fs::path& project : projects)
    names.push_back(project.filename().string());
  throw TUsageError("the directory \"" + argument + "\" holds " + std::to_string(names.size()) +
                    " projects; name one of them: " + deployment::JoinDelimited(names, ", "));
}

void CheckOrder(const std::string& command, const std::string& project,
                const std::vector<std::string>& files) {
  std::error_code ignored;
  const bool isProject = HasProjectName(project) || fs::is_directory(project, ignored) ||
                         (fs::exists(project, ignored) && MayBeXml(project));
  if (isProject)
    return;
  for (const std::string& file : files) {
    if (HasProjectName(file) && fs::is_regular_file(file, ignored))
      throw TUsageError(std::string("the project comes first: deploymgr ")
                            .append(command)
                            .append(" ")
                            .append(file)
                            .append(" ")
                            .append(project));
  }
}

} // namespace workbench
