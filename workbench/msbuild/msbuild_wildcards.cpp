#include "workbench/msbuild/msbuild_wildcards.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "workbench/msbuild/msbuild_escapes.h"
#include "workbench/msbuild/project_paths.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

// Neither byte occurs in UTF-8, so neither can be meant literally.
constexpr char AnyText = '\xFF';
constexpr char AnyCharacter = '\xFE';
constexpr std::string_view Wildcards = "\xFF\xFE";
constexpr std::string_view AnyDirectories = "\xFF\xFF";

constexpr std::size_t MostEntries = 200'000;
constexpr std::size_t DeepestSearch = 64;

std::vector<std::string> SplitPath(std::string_view path) {
  std::vector<std::string> parts;
  while (!path.empty()) {
    const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
    const std::string_view part = path.substr(0, end);
    path.remove_prefix(std::min(end + 1, path.size()));
    if (!part.empty() && part != ".")
      parts.emplace_back(deployment::UpperCase(part));
  }
  return parts;
}

std::size_t NextCharacter(std::string_view text, std::size_t position) {
  ++position;
  while (position < text.size() && (static_cast<unsigned char>(text[position]) & 0xC0U) == 0x80U)
    ++position;
  return position;
}

bool MatchesName(std::string_view pattern, std::string_view name) {
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t star = std::string_view::npos;
  std::size_t retry = 0;
  while (n < name.size()) {
    if (p < pattern.size() && pattern[p] == AnyText) {
      star = p++;
      retry = n;
    } else if (p < pattern.size() && pattern[p] == AnyCharacter) {
      ++p;
      n = NextCharacter(name, n);
    } else if (p < pattern.size() && pattern[p] == name[n]) {
      ++p;
      ++n;
    } else if (star != std::string_view::npos) {
      p = star + 1;
      n = retry = NextCharacter(name, retry);
    } else {
      return false;
    }
  }
  while (p < pattern.size() && pattern[p] == AnyText)
    ++p;
  return p == pattern.size();
}

// The pattern's text with wildcards marked and escapes resolved.
std::string MarkWildcards(std::string_view escaped) {
  std::string marked(escaped);
  std::ranges::replace(marked, '*', AnyText);
  std::ranges::replace(marked, '?', AnyCharacter);
  return UnescapeMSBuild(marked);
}

struct TSearch {
  std::vector<std::string> Found; // relative to where the search starts, "\" between names
  std::size_t Entries = 0;
  std::size_t Deepest = 0;
};

// False when the limit of entries was passed.
bool CollectFiles(const fs::path& directory, const std::string& prefix, std::size_t depth,
                  TSearch& search) {
  std::error_code error;
  for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
       entry.increment(error)) {
    if (++search.Entries > MostEntries)
      return false;
    const std::string name = entry->path().filename().string();
    std::error_code ignored;
    if (name.find(deployment::PathDelimiter) != std::string::npos)
      continue; // a project has no way to write such a name
    const bool isLink = entry->is_symlink(ignored);
    if (!isLink && entry->is_directory(ignored)) {
      if (depth < search.Deepest &&
          !CollectFiles(entry->path(), prefix + name + deployment::PathDelimiter, depth + 1,
                        search))
        return false;
    } else if (entry->is_regular_file(ignored)) {
      search.Found.push_back(prefix + name);
    }
  }
  return true;
}

} // namespace

bool TWildcardPattern::IsPattern(std::string_view escaped) {
  return escaped.find_first_of("*?") != std::string_view::npos;
}

TWildcardPattern::TWildcardPattern(std::string_view escaped) : FText(escaped) {
  const std::string marked = MarkWildcards(escaped);
  const std::size_t wildcard = std::min(marked.find_first_of(Wildcards), marked.size());
  const std::string_view fixed =
      deployment::DirectoryPart(std::string_view(marked).substr(0, wildcard));
  FFixedPart = fixed;
  FFixedParts = SplitPath(fixed);
  for (std::string& part : SplitPath(std::string_view(marked).substr(fixed.size()))) {
    if (part == "\xFF.\xFF")
      part = AnyText; // "*.*" has always meant every file, with or without a dot
    if (part != AnyDirectories || FParts.empty() || FParts.back() != AnyDirectories)
      FParts.push_back(std::move(part));
  }
  if (!FParts.empty() && FParts.back() == AnyDirectories)
    FParts.emplace_back(1, AnyText); // "data\**" takes in the files of all directories below
}

bool TWildcardPattern::MatchesParts(const TParts& parts) const {
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t star = std::string::npos;
  std::size_t retry = 0;
  while (n < parts.size()) {
    if (p < FParts.size() && FParts[p] == AnyDirectories) {
      star = p++;
      retry = n;
    } else if (p < FParts.size() && MatchesName(FParts[p], parts[n])) {
      ++p;
      ++n;
    } else if (star != std::string::npos) {
      p = star + 1;
      n = ++retry;
    } else {
      return false;
    }
  }
  return p == FParts.size();
}

bool TWildcardPattern::Matches(std::string_view path) const {
  TParts parts = SplitPath(path);
  if (parts.size() < FFixedParts.size() ||
      !std::equal(FFixedParts.begin(), FFixedParts.end(), parts.begin()))
    return false;
  parts.erase(parts.begin(), parts.begin() + static_cast<std::ptrdiff_t>(FFixedParts.size()));
  return MatchesParts(parts);
}

std::size_t TWildcardPattern::DeepestDirectory() const {
  const bool anyDepth = std::ranges::find(FParts, AnyDirectories) != FParts.end();
  return anyDepth ? DeepestSearch : std::min(FParts.size() - 1, DeepestSearch);
}

std::vector<std::string> TWildcardPattern::Expand(const std::filesystem::path& directory,
                                                  const deployment::TErrorPlace& place) const {
  if (FParts.empty())
    return {};
  TSearch search;
  search.Deepest = DeepestDirectory();
  if (!CollectFiles(ResolvePath(FFixedPart, directory), "", 0, search))
    throw deployment::TInputError("the wildcard \"" + ShortText(FText) +
                                      "\" stands for more than " + std::to_string(MostEntries) +
                                      " files and directories",
                                  place);
  std::vector<std::string> names;
  for (const std::string& found : search.Found) {
    if (MatchesParts(SplitPath(found)))
      names.push_back(FFixedPart + found);
  }
  std::ranges::sort(names);
  return names;
}

} // namespace workbench
