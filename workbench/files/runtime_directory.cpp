#include "workbench/files/runtime_directory.h"

#include "workbench/files/ended_process.h"
#include "workbench/files/file_descriptor.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace workbench {
namespace {

constexpr std::size_t LongestDirectory = 60; // of the 107 bytes that the path of a socket may have
constexpr const char* RuntimeName = "deployment-manager";
constexpr char ScratchMark = '-';

// A directory of the user alone; empty when it cannot be had.
std::filesystem::path OwnDirectory(const std::filesystem::path& path) {
  if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST)
    return {};
  struct stat status = {};
  if (::lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) ||
      status.st_uid != ::geteuid() || (status.st_mode & 077) != 0)
    return {};
  return path;
}

// Whatever a program could not remove that was killed. Names begin with the number of the process.
void RemoveAbandoned(const std::filesystem::path& directory) {
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(directory, ignored)) {
    const std::string name = entry.path().filename().string();
    const std::size_t end = name.find(ScratchMark);
    pid_t process = 0;
    const char* last = name.data() + std::min(end, name.size());
    if (end != std::string::npos && std::from_chars(name.data(), last, process).ptr == last &&
        HasProcessEnded(process))
      std::filesystem::remove_all(entry.path(), ignored);
  }
}

} // namespace

std::filesystem::path RuntimeDirectory() {
  if (const char* runtime = std::getenv("XDG_RUNTIME_DIR"); runtime && *runtime == '/') {
    auto path = std::filesystem::path(runtime) / RuntimeName;
    // The SSH client reads blanks and "%" in the path of a socket as something else.
    if (path.native().size() <= LongestDirectory &&
        path.native().find_first_of(" \t%\"'\\$") == std::string::npos &&
        !OwnDirectory(path).empty())
      return path;
  }
  return RuntimeDirectoryBelow("/tmp");
}

std::filesystem::path RuntimeDirectoryBelow(const std::filesystem::path& shared) {
  const std::string name = std::string(RuntimeName) + "-" + std::to_string(::geteuid());
  if (auto directory = OwnDirectory(shared / name); !directory.empty())
    return directory;
  // Somebody else has the name.
  const std::string start = name + ScratchMark;
  std::error_code ignored;
  for (const auto& entry : std::filesystem::directory_iterator(shared, ignored)) {
    if (entry.path().filename().native().starts_with(start) && !OwnDirectory(entry.path()).empty())
      return entry.path();
  }
  std::string unused = (shared / (start + "XXXXXX")).native();
  if (!::mkdtemp(unused.data()))
    ThrowSystemError("making a private directory");
  return unused;
}

std::string RandomDigits(unsigned words) {
  std::random_device source;
  std::string digits;
  for (unsigned i = 0; i < 2 * words; ++i) {
    std::array<char, 9> part{};
    std::snprintf(part.data(), part.size(), "%08x", source());
    digits += part.data();
  }
  return digits;
}

TScratchDirectory::TScratchDirectory() {
  const std::filesystem::path directory = RuntimeDirectory();
  RemoveAbandoned(directory);
  std::string name = (directory / (std::to_string(::getpid()) + ScratchMark + "XXXXXX")).string();
  if (!::mkdtemp(name.data()))
    ThrowSystemError("making a private directory");
  FPath = name;
}

TScratchDirectory::~TScratchDirectory() {
  std::error_code ignored;
  std::filesystem::remove_all(FPath, ignored);
}

} // namespace workbench
