// Directories and names that only this user can reach: for sockets and what else must not be
// shared.
#pragma once

#include <filesystem>
#include <string>

namespace workbench {

/// A directory of the user alone, with a path short enough for sockets in it. It stays for the next
/// program that asks. Throws std::system_error.
std::filesystem::path RuntimeDirectory();

/// One for this user in a directory that everybody may write into; another one that was made before
/// where somebody else has the name, so that these do not pile up. Throws std::system_error.
std::filesystem::path RuntimeDirectoryBelow(const std::filesystem::path& shared);

/// Hexadecimal digits that nobody can guess, 16 for each word.
std::string RandomDigits(unsigned words);

/// A directory inside the private one that goes with the object, or with the next one when the
/// program is killed.
class TScratchDirectory {
public:
  /// Throws std::system_error.
  TScratchDirectory();
  ~TScratchDirectory();
  TScratchDirectory(const TScratchDirectory&) = delete;
  TScratchDirectory& operator=(const TScratchDirectory&) = delete;

  const std::filesystem::path& Path() const { return FPath; }

private:
  std::filesystem::path FPath;
};

} // namespace workbench
