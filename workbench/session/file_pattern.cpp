// Files that a pattern names, as a shell would find them.
#include "workbench/files/machine_path.h"
#include "workbench/session/added_file.h"

#include <algorithm>
#include <fnmatch.h>
#include <set>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view AnyDirectories = "**";

std::vector<std::string> NamesIn(const fs::path& pattern) {
  std::vector<std::string> names;
  for (const fs::path& name : pattern.relative_path()) {
    if (!name.empty())
      names.push_back(name.string());
  }
  return names;
}

bool IsHidden(const fs::path& path) {
  return path.filename().string().starts_with('.');
}

// Directories and files that match the names of a pattern, one name at a time.
class TPatternSearch {
public:
  explicit TPatternSearch(std::vector<std::string> names) : FNames(std::move(names)) {}

  /// `directory` is empty for the current one.
  std::set<fs::path> Run(const fs::path& directory) {
    FFound.clear();
    if (!FNames.empty())
      Search(directory, 0);
    return std::move(FFound);
  }

private:
  void Search(const fs::path& directory, std::size_t index) {
    const std::string& name = FNames[index];
    const bool isLast = index + 1 == FNames.size();
    if (name == AnyDirectories) {
      // Any number of them, none at all too; behind the last name it stands for all files below.
      if (!isLast)
        Search(directory, index + 1);
      for (const fs::directory_entry& entry : Entries(directory)) {
        if (IsHidden(entry.path()))
          continue;
        if (IsDirectory(entry) && !entry.is_symlink())
          Search(Below(directory, entry), index);
        else if (isLast)
          Take(Below(directory, entry));
      }
      return;
    }
    if (!IsPattern(name)) {
      const fs::path path = directory / name;
      isLast ? Take(path) : Search(path, index + 1);
      return;
    }
    for (const fs::directory_entry& entry : Entries(directory)) {
      if (::fnmatch(name.c_str(), entry.path().filename().c_str(), FNM_PERIOD) != 0)
        continue;
      if (isLast)
        Take(Below(directory, entry));
      else if (IsDirectory(entry))
        Search(Below(directory, entry), index + 1);
    }
  }

  void Take(const fs::path& path) {
    std::error_code ignored;
    if (fs::is_regular_file(path, ignored))
      FFound.insert(path);
  }

  static fs::path Below(const fs::path& directory, const fs::directory_entry& entry) {
    return directory / entry.path().filename();
  }
  static bool IsDirectory(const fs::directory_entry& entry) {
    std::error_code ignored;
    return entry.is_directory(ignored);
  }
  // None of one that cannot be read.
  static std::vector<fs::directory_entry> Entries(const fs::path& directory) {
    std::error_code ignored;
    std::vector<fs::directory_entry> entries;
    for (const auto& entry : fs::directory_iterator(directory.empty() ? "." : directory, ignored))
      entries.push_back(entry);
    return entries;
  }

  const std::vector<std::string> FNames;
  std::set<fs::path> FFound;
};

} // namespace

bool IsPattern(std::string_view argument) {
  return argument.find_first_of("*?[") != std::string_view::npos;
}

std::vector<std::string> FilesOfPattern(const std::string& pattern,
                                        const std::filesystem::path& projectFile) {
  const fs::path given = ToMachinePath(pattern);
  TPatternSearch search(NamesIn(given));
  std::set<fs::path> found = search.Run(given.root_path());
  if (found.empty() && !given.is_absolute())
    found = search.Run(fs::absolute(projectFile).lexically_normal().parent_path());
  std::vector<std::string> files;
  std::transform(found.begin(), found.end(), std::back_inserter(files),
                 [](const fs::path& file) { return file.string(); });
  return files;
}

} // namespace workbench
