#include "workbench/msbuild/msbuild_wildcards.h"

#include "package/common/case_fold.h"
#include "workbench/msbuild/directory_cache.h"
#include "workbench/msbuild/values/msbuild_escapes.h"
#include "workbench/msbuild/values/project_paths.h"
#include "workbench/xml/short_text.h"

#include <algorithm>

namespace workbench {
namespace {

namespace fs = std::filesystem;

// Neither byte occurs in UTF-8, so neither can be meant literally.
constexpr char AnyText = '\xFF';
constexpr char AnyCharacter = '\xFE';
constexpr std::string_view Wildcards = "\xFF\xFE";
constexpr std::string_view AnyDirectories = "\xFF\xFF";

constexpr std::size_t LongestPath = 4096;
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

bool MatchesName(std::string_view pattern, std::string_view name, std::size_t& work) {
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t star = std::string_view::npos;
  std::size_t retry = 0;
  ++work;
  while (n < name.size()) {
    ++work;
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

// Stars that follow each other say no more than one.
std::string WithSingleStars(std::string part) {
  const auto isRun = [](char left, char right) { return left == AnyText && right == AnyText; };
  part.erase(std::unique(part.begin(), part.end(), isRun), part.end());
  return part;
}

} // namespace

bool TWildcardPattern::IsPattern(std::string_view escaped) {
  return escaped.find_first_of("*?") != std::string_view::npos;
}

TWildcardPattern::TWildcardPattern(std::string_view escaped) : FText(escaped) {
  if (escaped.size() > LongestPath && IsPattern(escaped))
    return; // is refused, and takes in nothing
  const std::string marked = MarkWildcards(escaped);
  const std::size_t wildcard = std::min(marked.find_first_of(Wildcards), marked.size());
  // Up to the last delimiter: a colon is none, "t:*" is a name that begins with "t:".
  const std::string_view fixed = std::string_view(marked).substr(
      0, std::string_view(marked).substr(0, wildcard).find_last_of("\\/") + 1);
  FFixedPart = fixed;
  FFixedParts = SplitPath(fixed);
  for (std::string& part : SplitPath(std::string_view(marked).substr(fixed.size()))) {
    if (part != AnyDirectories)
      part = WithSingleStars(std::move(part));
    if (part == "\xFF.\xFF")
      part = AnyText; // "*.*" has always meant every file, with or without a dot
    if (part != AnyDirectories || FParts.empty() || FParts.back() != AnyDirectories)
      FParts.push_back(std::move(part));
  }
  if (!FParts.empty() && FParts.back() == AnyDirectories)
    FParts.emplace_back(1, AnyText); // "data\**" takes in the files of all directories below
}

// Most files are turned down by their names.
bool TWildcardPattern::MatchesParts(std::span<const std::string> parts, std::size_t& work) const {
  if (parts.empty() || FParts.empty())
    return parts.empty() && FParts.empty();
  return MatchesName(FParts.back(), parts.back(), work) &&
         MatchesDirectories(parts.first(parts.size() - 1), work);
}

bool TWildcardPattern::MatchesDirectories(std::span<const std::string> parts,
                                          std::size_t& work) const {
  const std::span<const std::string> wanted(FParts.data(), FParts.size() - 1);
  std::size_t p = 0;
  std::size_t n = 0;
  std::size_t star = std::string::npos;
  std::size_t retry = 0;
  while (n < parts.size()) {
    if (p < wanted.size() && wanted[p] == AnyDirectories) {
      star = p++;
      retry = n;
    } else if (p < wanted.size() && MatchesName(wanted[p], parts[n], work)) {
      ++p;
      ++n;
    } else if (star != std::string::npos) {
      p = star + 1;
      n = ++retry;
    } else {
      return false;
    }
  }
  while (p < wanted.size() && wanted[p] == AnyDirectories)
    ++p;
  return p == wanted.size();
}

TWildcardPattern::TParts TWildcardPattern::PartsOf(std::string_view path) {
  return path.size() > LongestPath ? TParts() : SplitPath(path);
}

bool TWildcardPattern::Matches(const TParts& path, std::size_t& work) const {
  ++work;
  if (path.size() < FFixedParts.size() ||
      !std::equal(FFixedParts.begin(), FFixedParts.end(), path.begin()))
    return false;
  return MatchesParts(std::span(path).subspan(FFixedParts.size()), work);
}

bool TWildcardPattern::Matches(std::string_view path) const {
  std::size_t ignored = 0;
  return Matches(SplitPath(path), ignored);
}

bool TWildcardPattern::TakesAnyDepth() const {
  return std::ranges::find(FParts, AnyDirectories) != FParts.end();
}

std::size_t TWildcardPattern::DeepestDirectory() const {
  return TakesAnyDepth() ? DeepestSearch : std::min(FParts.size() - 1, DeepestSearch);
}

std::string_view TWildcardPattern::Refusal(const std::filesystem::path& directory) const {
  if (FText.size() > LongestPath)
    return "is longer than any path";
  if (IsForeignPath(FFixedPart))
    return "looks for files that are not on this machine";
  if (!TakesAnyDepth())
    return {};
  const std::string start = (ResolvePath(FFixedPart, directory) / "").lexically_normal().string();
  const std::string inside = (directory / "").lexically_normal().string();
  return inside.size() > start.size() && inside.starts_with(start)
             ? "walks through everything above the project's directory"
             : "";
}

std::vector<std::string> TWildcardPattern::Expand(const std::filesystem::path& directory,
                                                  TDirectoryCache& files,
                                                  const deployment::TErrorPlace& place) const {
  std::vector<std::string> names;
  if (FParts.empty())
    return names;
  const TFoundFiles& found =
      files.FilesBelow(ResolvePath(FFixedPart, directory), DeepestDirectory(), FText, place);
  const auto take = [&](const TFoundFile& file) {
    std::size_t work = 0;
    if (MatchesParts(file.Parts, work))
      names.push_back(FFixedPart + file.Name);
    files.SpendOnMatches(work, FText, place);
  };
  // What stands behind the last wildcard of the name decides how many files need a look.
  const std::string_view name = FParts.back();
  const std::size_t wildcard = name.find_last_of(Wildcards);
  const std::size_t dot = name.rfind('.');
  const bool isPlain = wildcard == std::string_view::npos;
  if (isPlain || (dot != std::string_view::npos && dot > wildcard)) {
    if (const auto* positions = isPlain ? found.Named(name) : found.WithExtension(name.substr(dot)))
      std::ranges::for_each(*positions, [&](std::uint32_t i) { take(found.All()[i]); });
  } else {
    std::ranges::for_each(found.All(), take);
  }
  return names;
}

} // namespace workbench
