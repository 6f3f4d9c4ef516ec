#include "workbench/files/user_directories.h"

#include <cstdlib>
#include <pwd.h>
#include <unistd.h>
#include <vector>

namespace workbench {
namespace {

constexpr const char* DirectoryName = "deployment-manager";
constexpr std::size_t UserRecordSize = 16384;

// Empty unless it is a full path: a relative one would depend on where a command is run.
std::filesystem::path PathFromEnvironment(const char* variable) {
  const char* value = std::getenv(variable);
  std::filesystem::path path(value ? value : "");
  return path.is_absolute() ? path : std::filesystem::path();
}

std::filesystem::path HomeDirectory() {
  if (auto home = PathFromEnvironment("HOME"); !home.empty())
    return home;
  std::vector<char> room(UserRecordSize);
  passwd record = {};
  passwd* found = nullptr;
  if (::getpwuid_r(::getuid(), &record, room.data(), room.size(), &found) != 0 || !found)
    return {};
  std::filesystem::path home(found->pw_dir ? found->pw_dir : "");
  return home.is_absolute() ? home : std::filesystem::path();
}

std::filesystem::path UserDirectory(const char* variable, const char* belowHome) {
  if (const auto base = PathFromEnvironment(variable); !base.empty())
    return base / DirectoryName;
  const std::filesystem::path home = HomeDirectory();
  return home.empty() ? home : home / belowHome / DirectoryName;
}

} // namespace

std::filesystem::path UserConfigDirectory() {
  return UserDirectory("XDG_CONFIG_HOME", ".config");
}

std::filesystem::path UserStateDirectory() {
  return UserDirectory("XDG_STATE_HOME", ".local/state");
}

std::filesystem::path UserCacheDirectory() {
  return UserDirectory("XDG_CACHE_HOME", ".cache");
}

} // namespace workbench
