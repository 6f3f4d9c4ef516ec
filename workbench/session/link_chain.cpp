#include "workbench/session/link_chain.h"

#include <algorithm>
#include <optional>
#include <string>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr int MostLinks = 16; // a library has two; a ring has no end

// The name in its own directory that a link leads to; nothing for what is none, or leads elsewhere.
std::optional<std::string> NextName(const fs::path& file) {
  std::error_code error;
  const fs::path text = fs::read_symlink(file, error);
  if (error || text.empty() || text.has_parent_path() || text == "." || text == "..")
    return std::nullopt;
  return text.string();
}

// The file at the end of the links; nothing when that is no file of the same directory.
std::optional<fs::path> EndOf(fs::path file) {
  std::error_code ignored;
  for (int links = 0; links < MostLinks; ++links) {
    if (!fs::is_symlink(file, ignored))
      return fs::is_regular_file(file, ignored) ? std::optional(file) : std::nullopt;
    const auto next = NextName(file);
    if (!next)
      return std::nullopt;
    file.replace_filename(*next);
  }
  return std::nullopt;
}

// True for "libx.so.1" of "libx.so.1.2.3" and for "libx.1.dylib" of "libx.1.2.dylib".
bool IsShorterVersion(std::string name, std::string whole) {
  constexpr std::string_view Apple = ".dylib";
  if (name.ends_with(Apple) && whole.ends_with(Apple)) {
    name.resize(name.size() - Apple.size());
    whole.resize(whole.size() - Apple.size());
  } else if (whole.find(".so.") == std::string::npos || name.find(".so") == std::string::npos) {
    return false;
  }
  return whole.size() > name.size() + 1 && whole.starts_with(name) && whole[name.size()] == '.';
}

} // namespace

std::vector<fs::path> LinkChain(const fs::path& file) {
  const auto end = EndOf(file);
  if (!end)
    return {file};
  const std::string whole = end->filename().string();
  if (*end != file && !IsShorterVersion(file.filename().string(), whole))
    return {file};
  // A name without a version has no links of that kind, so that its directory is not looked at.
  if (whole.find(".so.") == std::string::npos && !whole.ends_with(".dylib"))
    return {file};
  std::vector<fs::path> links;
  const fs::path directory = end->has_parent_path() ? end->parent_path() : fs::path(".");
  std::error_code error;
  for (fs::directory_iterator entries(directory, error), last; !error && entries != last;
       entries.increment(error)) {
    const fs::path other = fs::path(*end).replace_filename(entries->path().filename());
    if (IsShorterVersion(other.filename().string(), whole) && EndOf(other) == end)
      links.push_back(other);
  }
  std::ranges::sort(links, [](const fs::path& left, const fs::path& right) {
    const auto length = [](const fs::path& path) { return path.filename().native().size(); };
    return length(left) != length(right) ? length(left) > length(right) : left < right;
  });
  links.insert(links.begin(), *end);
  return links;
}

} // namespace workbench
