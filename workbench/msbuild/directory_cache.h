// What the directories of this machine hold, looked at once for all items of a project.
#pragma once

#include "package/common/errors.h"

#include <cstddef>
#include <filesystem>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

/// A file below a directory.
struct TFoundFile {
  std::string Name;               ///< seen from the directory, "\" between names
  std::vector<std::string> Parts; ///< the same part by part, upper case
};

/// Keeps what it found. Used on one thread.
class TDirectoryCache {
public:
  /// The files below a directory down to so many levels, links to directories not followed. The
  /// reference is good until the next call. Throws TInputError with `place`, naming the wildcard,
  /// when all walks together meet too many entries.
  const std::vector<TFoundFile>& FilesBelow(const std::filesystem::path& directory,
                                            std::size_t levels, std::string_view wildcard,
                                            const deployment::TErrorPlace& place);
  /// The file or directory that the full path names, else the one whose names differ in case
  /// alone; nothing when there is none.
  std::optional<std::filesystem::path> Find(const std::filesystem::path& path);
  /// Forgets everything.
  void Clear();

private:
  struct TWalk {
    std::size_t Levels = 0;
    std::vector<TFoundFile> Files;
  };
  using TNames = std::unordered_map<std::string, std::string>; // by upper case

  bool Collect(const std::filesystem::path& directory, const TFoundFile& prefix, std::size_t levels,
               std::vector<TFoundFile>& files);
  const TNames& NamesIn(const std::filesystem::path& directory);

  std::map<std::filesystem::path, TWalk> FWalks;
  std::map<std::filesystem::path, TNames> FNames;
  std::size_t FEntries = 0;
};

} // namespace workbench
