#include "workbench/remote/profile.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace workbench {
namespace {

constexpr std::string_view FolderName = "folder";

bool HasControls(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; });
}

} // namespace

std::string_view ProfileKindName(TProfileKind /*kind*/) {
  return FolderName;
}

TProfileKind ProfileKindFromName(std::string_view name) {
  if (name != FolderName)
    throw std::invalid_argument("there are no profiles of kind \"" + std::string(name) +
                                "\"; known are: " + std::string(FolderName));
  return TProfileKind::Folder;
}

void CheckProfile(const TProfile& profile) {
  if (profile.Name.empty())
    throw std::invalid_argument("the name of the profile is empty");
  if (HasControls(profile.Name) || profile.Name.front() == '-')
    throw std::invalid_argument("\"" + profile.Name + "\" cannot be the name of a profile");
  if (profile.Platform.empty())
    throw std::invalid_argument("the profile \"" + profile.Name + "\" names no platform");
  if (profile.Path.empty())
    throw std::invalid_argument("the path of the profile \"" + profile.Name + "\" is empty");
  const std::filesystem::path path(profile.Path);
  if (HasControls(profile.Path) || !path.is_absolute())
    throw std::invalid_argument("the path of the profile \"" + profile.Name +
                                "\" is not a full path: " + profile.Path);
  if (!path.lexically_normal().has_relative_path())
    throw std::invalid_argument("the path of the profile \"" + profile.Name +
                                "\" is the root of the file system");
}

} // namespace workbench
