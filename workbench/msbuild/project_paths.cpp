#include "workbench/msbuild/project_paths.h"

#include "package/common/path_text.h"
#include "workbench/files/machine_path.h"

namespace workbench {

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
  return IsForeignPath(storedPath) ? std::string(storedPath)
                                   : ResolvePath(storedPath, directory).string();
}

} // namespace workbench
