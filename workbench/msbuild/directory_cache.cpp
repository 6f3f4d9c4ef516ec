#include "workbench/msbuild/directory_cache.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr std::size_t MostEntries = 200'000;
constexpr std::size_t MostCharacters = 400'000'000; // about a second

} // namespace

TFoundFiles::TFoundFiles(std::vector<TFoundFile> files) : FFiles(std::move(files)) {
  std::ranges::sort(FFiles, {}, &TFoundFile::Name);
  for (std::uint32_t i = 0; i < FFiles.size(); ++i) {
    const std::string_view name = FFiles[i].Parts.back();
    FByName[name].push_back(i);
    if (const std::size_t dot = name.rfind('.'); dot != std::string_view::npos)
      FByExtension[name.substr(dot)].push_back(i);
  }
}

const TFoundFiles::TPositions* TFoundFiles::Find(const TIndex& index, std::string_view text) {
  const auto found = index.find(text);
  return found == index.end() ? nullptr : &found->second;
}

const TFoundFiles& TDirectoryCache::FilesBelow(const fs::path& directory, std::size_t levels,
                                               std::string_view wildcard,
                                               const deployment::TErrorPlace& place) {
  const auto [found, isNew] = FWalks.try_emplace(directory);
  TWalk& walk = found->second;
  if (!isNew && walk.Levels >= levels)
    return walk.Files;
  walk.Levels = levels;
  std::vector<TFoundFile> files;
  if (Collect(directory, {}, levels, files)) {
    walk.Files = TFoundFiles(std::move(files));
    return walk.Files;
  }
  FWalks.erase(found);
  throw deployment::TInputError("the wildcard \"" + ShortText(wildcard) +
                                    "\" stands for more than " + std::to_string(MostEntries) +
                                    " files and directories",
                                place);
}

void TDirectoryCache::SpendOnMatches(std::size_t characters, std::string_view wildcard,
                                     const deployment::TErrorPlace& place) {
  FCharacters += characters;
  if (FCharacters > MostCharacters)
    throw deployment::TInputError("the wildcard \"" + ShortText(wildcard) +
                                      "\" is one too many: holding the wildcards of the project "
                                      "against the files takes too long",
                                  place);
}

// False when the limit of entries was passed.
bool TDirectoryCache::Collect(const fs::path& directory, const TFoundFile& prefix,
                              std::size_t levels, std::vector<TFoundFile>& files) {
  std::error_code error;
  for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
       entry.increment(error)) {
    if (++FEntries > MostEntries)
      return false;
    const std::string name = entry->path().filename().string();
    if (name.find(deployment::PathDelimiter) != std::string::npos)
      continue; // a project has no way to write such a name
    std::error_code ignored;
    const bool isDirectory = !entry->is_symlink(ignored) && entry->is_directory(ignored);
    if (!isDirectory && !entry->is_regular_file(ignored))
      continue;
    TFoundFile found{prefix.Name + name, prefix.Parts};
    found.Parts.push_back(deployment::UpperCase(name));
    if (!isDirectory) {
      files.push_back(std::move(found));
    } else if (levels > 0) {
      found.Name += deployment::PathDelimiter;
      if (!Collect(entry->path(), found, levels - 1, files))
        return false;
    }
  }
  return true;
}

std::optional<fs::path> TDirectoryCache::Find(const fs::path& path) {
  std::error_code error;
  if (fs::exists(path, error))
    return path;
  if (!path.has_relative_path() || path == path.parent_path())
    return std::nullopt;
  const auto directory = Find(path.parent_path());
  if (!directory)
    return std::nullopt;
  const TNames& names = NamesIn(*directory);
  const auto found = names.find(deployment::UpperCase(path.filename().string()));
  return found == names.end() ? std::nullopt : std::optional(*directory / found->second);
}

const TDirectoryCache::TNames& TDirectoryCache::NamesIn(const fs::path& directory) {
  const auto [found, isNew] = FNames.try_emplace(directory);
  if (!isNew)
    return found->second;
  std::error_code error;
  std::size_t count = 0;
  for (fs::directory_iterator entry(directory, error), end;
       !error && entry != end && ++count < MostEntries; entry.increment(error)) {
    std::string name = entry->path().filename().string();
    std::string key = deployment::UpperCase(name);
    found->second.emplace(std::move(key), std::move(name));
  }
  return found->second;
}

void TDirectoryCache::Clear() {
  FWalks.clear();
  FNames.clear();
  FEntries = 0;
  FCharacters = 0;
}

} // namespace workbench
