#include "package/common/path_text.h"

#include "package/common/case_fold.h"

#include <algorithm>
#include <vector>

namespace deployment {
namespace {

bool IsDriveLetter(char c) {
  return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

bool HasDrive(std::string_view path) {
  return path.size() >= 2 && path[1] == ':' && IsDriveLetter(path[0]);
}

// Length of what a ".." cannot climb over: "C:\", "C:", "\\" of a share, "\" or nothing.
std::size_t RootLength(std::string_view path) {
  if (HasDrive(path))
    return path.size() > 2 && IsPathDelimiter(path[2]) ? 3 : 2;
  if (path.size() >= 2 && IsPathDelimiter(path[0]) && IsPathDelimiter(path[1]))
    return 2;
  return !path.empty() && IsPathDelimiter(path[0]) ? 1 : 0;
}

// True when no part has to be left out or taken together with another one.
bool IsCanonical(std::string_view path) {
  for (std::string_view rest = path.substr(RootLength(path)); !rest.empty();) {
    const std::size_t end = std::min(rest.find(PathDelimiter), rest.size());
    const std::string_view part = rest.substr(0, end);
    if (part.empty() || part == "." || part == "..")
      return false;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return path.find('/') == std::string_view::npos;
}

std::size_t NameStart(std::string_view path) {
  for (std::size_t i = path.size(); i > 0; --i) {
    if (IsPathDelimiter(path[i - 1]) || (path[i - 1] == ':' && i == 2 && HasDrive(path)))
      return i;
  }
  return 0;
}

} // namespace

bool IsPathDelimiter(char c) {
  return c == '\\' || c == '/';
}

std::string_view FileNamePart(std::string_view path) {
  return path.substr(NameStart(path));
}

std::string_view DirectoryPart(std::string_view path) {
  return path.substr(0, NameStart(path));
}

std::string_view ExtensionPart(std::string_view path) {
  const std::string_view name = FileNamePart(path);
  const std::size_t dot = name.rfind('.');
  return dot == std::string_view::npos ? std::string_view() : name.substr(dot);
}

std::string ChangeExtension(std::string_view path, std::string_view extension) {
  std::string changed(path.substr(0, path.size() - ExtensionPart(path).size()));
  changed += extension;
  return changed;
}

std::string WithTrailingDelimiter(std::string_view path) {
  std::string result(path);
  if (result.empty() || !IsPathDelimiter(result.back()))
    result.push_back(PathDelimiter);
  return result;
}

bool IsAbsolutePath(std::string_view path) {
  return HasDrive(path) || (!path.empty() && IsPathDelimiter(path.front()));
}

std::string Combine(std::string_view directory, std::string_view path) {
  if (directory.empty() || IsAbsolutePath(path))
    return std::string(path);
  return WithTrailingDelimiter(directory).append(path);
}

// Lists of files are full of paths that are canonical as they stand.
std::string CanonicalizePath(std::string_view path) {
  if (IsCanonical(path))
    return std::string(path);
  const std::size_t rootLength = RootLength(path);
  std::string result(path.substr(0, rootLength));
  std::replace(result.begin(), result.end(), '/', PathDelimiter);
  std::vector<std::string_view> parts;
  std::string_view rest = path.substr(rootLength);
  const bool trailing = !rest.empty() && IsPathDelimiter(rest.back());
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find_first_of("\\/"), rest.size());
    const std::string_view part = rest.substr(0, end);
    rest.remove_prefix(std::min(end + 1, rest.size()));
    if (part.empty() || part == ".")
      continue;
    const bool climbs = part == "..";
    if (climbs && !parts.empty() && parts.back() != "..")
      parts.pop_back();
    else if (!climbs || rootLength == 0)
      parts.push_back(part);
  }
  for (const std::string_view part : parts) {
    result += part;
    result.push_back(PathDelimiter);
  }
  if (!trailing && !parts.empty())
    result.pop_back();
  return result;
}

bool SameFileName(std::string_view left, std::string_view right) {
  if (left.size() == right.size() && left == right)
    return true;
  std::string leftName(left);
  std::string rightName(right);
  std::replace(leftName.begin(), leftName.end(), '/', PathDelimiter);
  std::replace(rightName.begin(), rightName.end(), '/', PathDelimiter);
  return SameText(leftName, rightName);
}

} // namespace deployment
