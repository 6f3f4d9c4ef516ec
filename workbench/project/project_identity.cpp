#include "workbench/project/project_identity.h"

#include "package/common/case_fold.h"

#include <system_error>

namespace workbench {

std::filesystem::path FullProjectPath(const std::filesystem::path& file) {
  return std::filesystem::absolute(file).lexically_normal();
}

bool IsSameProject(const std::filesystem::path& first, const std::filesystem::path& second) {
  if (deployment::SameText(FullProjectPath(first).native(), FullProjectPath(second).native()))
    return true;
  std::error_code error;
  return std::filesystem::equivalent(first, second, error) && !error;
}

} // namespace workbench
