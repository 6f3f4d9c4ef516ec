// A directory for one test, with everything in it gone afterwards.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace workbench::testing {

/// Writes a whole file; directories that are missing are made.
inline void WriteText(const std::filesystem::path& file, std::string_view text) {
  std::error_code ignored; // what is missing then shows in the next line
  std::filesystem::create_directories(file.parent_path(), ignored);
  std::ofstream stream(file, std::ios::binary | std::ios::trunc);
  stream.write(text.data(), static_cast<std::streamsize>(text.size()));
}

/// A whole file; empty when there is none.
inline std::string ReadText(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

class TTemporaryDirectory {
public:
  /// Below /tmp where a short path matters, as for sockets.
  explicit TTemporaryDirectory(
      const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
    std::string name = (parent / "deployment-test-XXXXXX").string();
    if (!::mkdtemp(name.data()))
      throw std::runtime_error("no temporary directory");
    FPath = std::filesystem::canonical(name);
  }
  ~TTemporaryDirectory() {
    std::error_code ignored;
    std::filesystem::permissions(FPath, std::filesystem::perms::owner_all, ignored);
    std::filesystem::remove_all(FPath, ignored);
  }
  TTemporaryDirectory(const TTemporaryDirectory&) = delete;
  TTemporaryDirectory& operator=(const TTemporaryDirectory&) = delete;

  /// Without symbolic links in it.
  const std::filesystem::path& Path() const { return FPath; }

private:
  std::filesystem::path FPath;
};

} // namespace workbench::testing
