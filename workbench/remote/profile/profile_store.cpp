#include "workbench/remote/profile/profile_store.h"

#include "package/common/errors.h"
#include "workbench/json/private_json_file.h"
#include "workbench/remote/profile/profile_check.h"
#include "workbench/remote/profile/profile_json.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string>
#include <utility>

namespace workbench {
namespace {

TPrivateJsonFile FileAt(const std::filesystem::path& file) {
  return {file, "profiles"};
}

std::vector<TProfile> FromJson(const TJson& document) {
  std::vector<TProfile> profiles;
  std::set<std::string> names;
  for (const TJson& value : document.Array("profiles")) {
    profiles.push_back(ProfileFromJson(value));
    if (!names.insert(profiles.back().Name).second)
      throw deployment::TInputError("it has two profiles \"" + profiles.back().Name + "\"");
  }
  return profiles;
}

TJson ToJson(const std::vector<TProfile>& profiles) {
  TJson list = TJson::Array();
  for (const TProfile& profile : profiles)
    list.Append(ProfileToJson(profile));
  return {{"profiles", std::move(list)}};
}

// A platform has one default profile.
void YieldDefault(std::vector<TProfile>& profiles, const TProfile& next) {
  for (TProfile& profile : profiles)
    profile.IsDefault = profile.IsDefault && !(next.IsDefault && profile.Platform == next.Platform);
}

} // namespace

std::filesystem::path ProfilesFileBeside(const std::filesystem::path& settingsFile) {
  return settingsFile.empty() ? settingsFile : settingsFile.parent_path() / "profiles.json";
}

const std::vector<TProfile>& TProfileStore::List() const {
  if (!FProfiles) {
    std::vector<TProfile> profiles;
    FileAt(FFile).Read([&](const TJson& document) { profiles = FromJson(document); });
    FProfiles = std::move(profiles);
  }
  return *FProfiles;
}

const TProfile* TProfileStore::Find(std::string_view name) const {
  const auto found =
      std::ranges::find_if(List(), [&](const TProfile& profile) { return profile.Name == name; });
  return found == List().end() ? nullptr : &*found;
}

const TProfile* TProfileStore::FindDefault(std::string_view platform) const {
  const auto found = std::ranges::find_if(List(), [&](const TProfile& profile) {
    return profile.IsDefault && profile.Platform == platform;
  });
  return found == List().end() ? nullptr : &*found;
}

void TProfileStore::Add(const TProfile& profile) {
  CheckProfile(profile);
  Change([&](std::vector<TProfile>& profiles) {
    for (TProfile& other : profiles) {
      if (other.Name == profile.Name)
        throw std::invalid_argument("there is a profile \"" + profile.Name + "\" already");
    }
    YieldDefault(profiles, profile);
    profiles.push_back(profile);
  });
}

void TProfileStore::Replace(std::string_view name, const TProfile& profile) {
  CheckProfile(profile);
  Change([&](std::vector<TProfile>& profiles) {
    const auto named = [&profiles](std::string_view wanted) {
      return std::ranges::find_if(profiles,
                                  [&](const TProfile& other) { return other.Name == wanted; });
    };
    const auto place = named(name);
    if (place == profiles.end())
      throw std::invalid_argument("there is no profile \"" + std::string(name) + "\"");
    if (profile.Name != name && named(profile.Name) != profiles.end())
      throw std::invalid_argument("there is a profile \"" + profile.Name + "\" already");
    YieldDefault(profiles, profile);
    *place = profile;
  });
}

bool TProfileStore::Remove(std::string_view name) {
  if (!Find(name))
    return false;
  std::size_t removed = 0;
  Change([&](std::vector<TProfile>& profiles) {
    removed =
        std::erase_if(profiles, [&](const TProfile& profile) { return profile.Name == name; });
  });
  return removed > 0;
}

void TProfileStore::Change(const std::function<void(std::vector<TProfile>&)>& change) {
  std::vector<TProfile> before;
  std::vector<TProfile> after;
  FileAt(FFile).Change([&](const TJson& document) { before = FromJson(document); },
                       [&] {
                         after = before;
                         change(after);
                         return std::optional(ToJson(after));
                       });
  FProfiles = std::move(after);
}

} // namespace workbench
