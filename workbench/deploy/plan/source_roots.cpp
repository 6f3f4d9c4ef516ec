#include "workbench/deploy/plan/source_roots.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <sys/stat.h>

namespace workbench {
namespace {

namespace fs = std::filesystem;

// What nobody nests deeper in.
constexpr int HighestAncestor = 32;

std::string RealPath(const fs::path& path) {
  std::error_code error;
  const fs::path real = fs::weakly_canonical(path, error);
  return error ? path.lexically_normal().string() : real.string();
}

bool IsHome(const fs::path& directory) {
  const char* home = std::getenv("HOME");
  std::error_code ignored;
  return home && *home && fs::equivalent(directory, home, ignored);
}

bool IsTree(const fs::path& directory) {
  std::error_code ignored;
  constexpr std::array<const char*, 4> Marks{".git", ".hg", ".svn", ".jj"};
  if (std::ranges::any_of(Marks,
                          [&](const char* mark) { return fs::exists(directory / mark, ignored); }))
    return true;
  for (fs::directory_iterator entry(directory, ignored), end; !ignored && entry != end;
       entry.increment(ignored)) {
    if (entry->path().extension() == ".sln")
      return true;
  }
  return false;
}

} // namespace

fs::path SourceTreeOf(const fs::path& projectFile) {
  const fs::path own = fs::path(RealPath(projectFile)).parent_path();
  fs::path tree = own;
  fs::path directory = own;
  for (int i = 0; i < HighestAncestor && directory.has_relative_path() && !IsHome(directory); ++i) {
    if (IsTree(directory))
      tree = directory;
    directory = directory.parent_path();
  }
  return tree;
}

TSourceRoots::TSourceRoots(const std::vector<fs::path>& roots) {
  for (const fs::path& root : roots) {
    std::string path = RealPath(root);
    if (!path.ends_with('/'))
      path.push_back('/');
    if (path != "/" && std::ranges::find(FRoots, path) == FRoots.end())
      FRoots.push_back(std::move(path));
  }
}

bool TSourceRoots::Holds(const fs::path& file) {
  struct stat status = {};
  return Holds(file, ::lstat(file.c_str(), &status) == 0 && S_ISLNK(status.st_mode));
}

bool TSourceRoots::Holds(const fs::path& file, bool isLink) {
  if (isLink)
    return IsBelow(RealPath(file));
  return IsBelow(RealDirectory(file.parent_path()) + "/");
}

bool TSourceRoots::IsBelow(std::string_view path) const {
  return std::ranges::any_of(FRoots,
                             [&](const std::string& root) { return path.starts_with(root); });
}

const std::string& TSourceRoots::RealDirectory(const fs::path& directory) {
  const auto [entry, isNew] = FDirectories.try_emplace(directory.string());
  if (isNew)
    entry->second = RealPath(directory);
  return entry->second;
}

} // namespace workbench
