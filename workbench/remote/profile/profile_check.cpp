#include "workbench/remote/profile/profile_check.h"

#include "workbench/remote/ssh/ssh_fields.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>

namespace workbench {
namespace {

bool HasControls(std::string_view text) {
  return std::any_of(text.begin(), text.end(),
                     [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; });
}

// What of a path lies below the root of a file system; the whole path when it is a relative one.
std::string BelowRoot(const TProfile& profile) {
  std::string path = profile.Path;
  const bool isOnDrive = profile.Kind == TProfileKind::Ssh && path.size() > 2 && path[1] == ':' &&
                         (path[2] == '/' || path[2] == '\\');
  if (isOnDrive) {
    path.erase(0, 2);
    std::ranges::replace(path, '\\', '/');
  }
  return path;
}

bool IsName(const std::string& name) {
  return !HasControls(name) && !name.starts_with('-');
}

} // namespace

void CheckNewName(const std::string& name, const std::string& kind) {
  if (name.empty())
    throw std::invalid_argument("the name of the " + kind + " is empty");
  const std::string problem = "\"" + name + "\" cannot be the name of a " + kind;
  if (!IsName(name))
    throw std::invalid_argument(problem);
  if (name.find(',') != std::string::npos)
    throw std::invalid_argument(problem + ": a comma stands between names");
}

void CheckProfile(const TProfile& profile) {
  const auto refuse = [&](const std::string& reason) {
    throw std::invalid_argument("the path of the profile \"" + profile.Name + "\" " + reason);
  };
  if (profile.Name.empty())
    throw std::invalid_argument("the name of the profile is empty");
  if (!IsName(profile.Name))
    throw std::invalid_argument("\"" + profile.Name + "\" cannot be the name of a profile");
  if (profile.Platform.empty())
    throw std::invalid_argument("the profile \"" + profile.Name + "\" names no platform");
  if (profile.Kind == TProfileKind::Ssh)
    CheckSshFields(profile);
  if (profile.Path.empty())
    refuse("is empty");
  const bool isAtHome =
      profile.Kind == TProfileKind::Ssh && (profile.Path == "~" || profile.Path.starts_with("~/"));
  const std::filesystem::path path(BelowRoot(profile));
  if (HasControls(profile.Path) || !(path.is_absolute() || isAtHome))
    refuse("is not a full path: " + profile.Path);
  if (!path.lexically_normal().has_relative_path())
    refuse("is the root of the file system");
  if (std::ranges::find(path, "..") != path.end())
    refuse("climbs with \"..\": " + profile.Path);
}

} // namespace workbench
