#include "workbench/msbuild/values/project_paths.h"

#include "package/common/path_text.h"
#include "workbench/files/machine_path.h"

#include <algorithm>

namespace workbench {
namespace {

// True for names of parts with single delimiters between them and nothing to resolve.
bool IsPlainRelativePath(std::string_view path) {
  if (path.empty() || path.find(':') != std::string_view::npos)
    return false;
  std::size_t partLength = 0;
  bool onlyDots = true;
  for (const char c : path) {
    if (!deployment::IsPathDelimiter(c)) {
      ++partLength;
      onlyDots = onlyDots && c == '.';
      continue;
    }
    if (partLength == 0 || onlyDots)
      return false;
    partLength = 0;
    onlyDots = true;
  }
  return partLength > 0 && !onlyDots;
}

} // namespace

bool IsForeignPath(std::string_view storedPath) {
  if (storedPath.size() >= 2 && deployment::IsPathDelimiter(storedPath[0]) &&
      deployment::IsPathDelimiter(storedPath[1]))
    return true;
  if (storedPath.find("://") != std::string_view::npos)
    return true;
  return deployment::IsAbsolutePath(storedPath) && !deployment::IsPathDelimiter(storedPath[0]);
}

std::filesystem::path ResolvePath(std::string_view storedPath,
                                  const std::filesystem::path& directory) {
  return (directory / ToMachinePath(storedPath)).lexically_normal();
}

std::string FullPathText(std::string_view storedPath, const std::filesystem::path& directory) {
  // Nearly every file of a project is named like this, and a project may have very many.
  if (IsPlainRelativePath(storedPath) && !directory.empty()) {
    std::string path = directory.native();
    if (path.back() != '/')
      path.push_back('/');
    const std::size_t start = path.size();
    path.append(storedPath);
    std::replace(path.begin() + static_cast<std::ptrdiff_t>(start), path.end(),
                 deployment::PathDelimiter, '/');
    return path;
  }
  return IsForeignPath(storedPath) ? std::string(storedPath)
                                   : ResolvePath(storedPath, directory).string();
}

} // namespace workbench
