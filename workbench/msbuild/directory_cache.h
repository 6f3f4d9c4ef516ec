// What the directories of this machine hold, looked at once for all items of a project.
#pragma once

#include "package/common/errors.h"

#include <cstddef>
#include <cstdint>
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

/// The files below a directory, sorted, with indexes for what patterns ask most.
class TFoundFiles {
public:
  using TPositions = std::vector<std::uint32_t>;

  TFoundFiles() = default;
  explicit TFoundFiles(std::vector<TFoundFile> files);

  const std::vector<TFoundFile>& All() const { return FFiles; }
  /// Those whose last part is the text, or ends with it from its last dot on; upper case. Null for
  /// none.
  const TPositions* Named(std::string_view name) const { return Find(FByName, name); }
  const TPositions* WithExtension(std::string_view extension) const {
    return Find(FByExtension, extension);
  }

private:
  using TIndex = std::unordered_map<std::string_view, TPositions>; // texts are the files' own

  static const TPositions* Find(const TIndex& index, std::string_view text);

  std::vector<TFoundFile> FFiles;
  TIndex FByName;
  TIndex FByExtension;
};

/// Keeps what it found. Used on one thread.
class TDirectoryCache {
public:
  /// The files below a directory down to so many levels, links to directories not followed. The
  /// reference is good until the next call. Throws TInputError with `place`, naming the wildcard,
  /// when all walks together meet too many entries.
  const TFoundFiles& FilesBelow(const std::filesystem::path& directory, std::size_t levels,
                                std::string_view wildcard, const deployment::TErrorPlace& place);
  /// Counts what holding names against wildcards took, in characters. Throws TInputError as above
  /// when it is too much in all.
  void SpendOnMatches(std::size_t characters, std::string_view wildcard,
                      const deployment::TErrorPlace& place);
  /// The file or directory that the full path names, else the one whose names differ in case
  /// alone; nothing when there is none.
  std::optional<std::filesystem::path> Find(const std::filesystem::path& path);
  /// Forgets everything.
  void Clear();

private:
  struct TWalk {
    std::size_t Levels = 0;
    TFoundFiles Files;
  };
  using TNames = std::unordered_map<std::string, std::string>; // by upper case

  bool Collect(const std::filesystem::path& directory, const TFoundFile& prefix, std::size_t levels,
               std::vector<TFoundFile>& files);
  const TNames& NamesIn(const std::filesystem::path& directory);

  std::map<std::filesystem::path, TWalk> FWalks;
  std::map<std::filesystem::path, TNames> FNames;
  std::size_t FEntries = 0;
  std::size_t FCharacters = 0;
};

} // namespace workbench
