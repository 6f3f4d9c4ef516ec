#include "workbench/services/user_directories.h"

#include "package/common/delimited_list.h"
#include "workbench/files/machine_path.h"
#include "workbench/settings/consent_texts.h"

namespace workbench {

std::vector<std::filesystem::path> UserDirectories(const TSettings& settings,
                                                   const std::filesystem::path& root) {
  std::vector<std::filesystem::path> directories{root};
  for (const auto& [key, value] : settings.List()) {
    if (key.starts_with(AllowedCommandsPrefix) || key.starts_with(AllowedSourcesPrefix))
      continue;
    for (const std::string_view each : deployment::SplitDelimited(value)) {
      const std::filesystem::path path = ToMachinePath(each);
      std::error_code ignored;
      if (!path.is_absolute())
        continue;
      // A tool, such as a debugger's server, stands for the directory that it is in.
      const bool isFile = std::filesystem::is_regular_file(path, ignored);
      directories.push_back(isFile ? path.parent_path() : path);
    }
  }
  return directories;
}

} // namespace workbench
