#include "workbench/remote/profile/profile_entry.h"

#include "workbench/text/visible_text.h"

#include <filesystem>
#include <system_error>

namespace workbench {

TProfile TidyProfile(TProfile profile) {
  if (profile.Kind == TProfileKind::Folder && !profile.Path.empty())
    profile.Path = std::filesystem::absolute(profile.Path).lexically_normal().string();
  while (profile.Path.size() > 1 && profile.Path.ends_with('/'))
    profile.Path.pop_back();
  if (!profile.Identity.empty() && !profile.Identity.starts_with("~/"))
    profile.Identity = std::filesystem::absolute(profile.Identity).string();
  return profile;
}

std::string MakeProfileFolder(const TProfile& profile) {
  std::error_code error;
  if (profile.Kind != TProfileKind::Folder)
    return {};
  std::filesystem::create_directories(profile.Path, error);
  std::error_code ignored;
  if (std::filesystem::is_directory(profile.Path, ignored))
    return {};
  return profile.Path + " is no directory and cannot be made one" +
         (error ? ": " + error.message() : std::string());
}

std::string ProfilePlace(const TProfile& profile) {
  std::string text;
  if (profile.Kind == TProfileKind::Ssh)
    text = (profile.User.empty() ? "" : profile.User + "@") + profile.Host +
           (profile.Port == 0 ? "" : ":" + std::to_string(profile.Port)) + ":";
  return Visible(text + profile.Path);
}

} // namespace workbench
