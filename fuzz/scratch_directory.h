// A directory for the files of a fuzz target, in memory where the machine has that.
#pragma once

#include <cstdlib>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <string_view>
#include <unistd.h>

namespace workbench::fuzz {

/// Gone with the object.
class TScratchDirectory {
public:
  TScratchDirectory() {
    const bool hasMemory = ::access("/dev/shm", W_OK) == 0;
    std::string name =
        hasMemory ? "/dev/shm/deployment-fuzz-XXXXXX" : "/tmp/deployment-fuzz-XXXXXX";
    if (!::mkdtemp(name.data()))
      throw std::runtime_error("no scratch directory");
    FPath = name;
  }
  ~TScratchDirectory() {
    std::error_code ignored;
    std::filesystem::remove_all(FPath, ignored);
  }
  TScratchDirectory(const TScratchDirectory&) = delete;
  TScratchDirectory& operator=(const TScratchDirectory&) = delete;

  const std::filesystem::path& Path() const { return FPath; }
  /// A directory in it, made with those above it.
  std::filesystem::path Directory(std::string_view name) const {
    std::filesystem::create_directories(FPath / name);
    return FPath / name;
  }
  void Write(std::string_view name, std::string_view text) const { WriteFile(FPath / name, text); }
  /// Writes a whole file without the cost of a stream.
  static void WriteFile(const std::filesystem::path& file, std::string_view text) {
    const int descriptor = ::open(file.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
    const bool isWritten = descriptor >= 0 && ::write(descriptor, text.data(), text.size()) ==
                                                  static_cast<ssize_t>(text.size());
    ::close(descriptor);
    if (!isWritten)
      throw std::runtime_error("the scratch directory cannot be written");
  }

private:
  std::filesystem::path FPath;
};

} // namespace workbench::fuzz
