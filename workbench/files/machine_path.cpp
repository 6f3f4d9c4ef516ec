#include "workbench/files/machine_path.h"

#include "package/common/path_text.h"

#include <algorithm>

namespace workbench {
namespace {

bool HasDriveLetter(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && deployment::IsAbsolutePath(path);
}

} // namespace

std::string ToMachineText(std::string_view storedPath) {
  std::string path(storedPath);
  if (!HasDriveLetter(path))
    std::replace(path.begin(), path.end(), deployment::PathDelimiter, '/');
  return path;
}

std::filesystem::path ToMachinePath(std::string_view storedPath) {
  return ToMachineText(storedPath);
}

std::string ToStoredPath(const std::filesystem::path& path) {
  std::string stored = path.native();
  std::replace(stored.begin(), stored.end(), '/', deployment::PathDelimiter);
  return stored;
}

std::filesystem::path RunningProgram() {
  std::error_code error;
  std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", error);
  return error ? std::filesystem::path(DEPLOYMENT_PREFIX) / "bin" / "deploymgr" : program;
}

} // namespace workbench
