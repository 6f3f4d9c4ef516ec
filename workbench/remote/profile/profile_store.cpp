#include "workbench/remote/profile/profile_store.h"

#include "package/common/errors.h"
#include "workbench/json/private_json_file.h"
#include "workbench/remote/profile/profile_check.h"
#include "workbench/remote/profile/profile_json.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace workbench {
namespace {

TPrivateJsonFile FileAt(const std::filesystem::path& file) {
  return {file, "profiles"};
}

TProfileGroup GroupFromJson(const TJson& value) {
  TProfileGroup group{value.Text("name"), value.At("profiles").AsTexts("profiles")};
  try {
    CheckNewName(group.Name, "group");
  } catch (const std::invalid_argument& error) {
    throw deployment::TInputError(error.what());
  }
  const std::set<std::string_view> names(group.Profiles.begin(), group.Profiles.end());
  if (names.size() != group.Profiles.size())
    throw deployment::TInputError("the group \"" + group.Name + "\" has a profile twice");
  return group;
}

TStoredProfiles FromJson(const TJson& document) {
  TStoredProfiles stored;
  std::set<std::string> names;
  for (const TJson& value : document.Array("profiles")) {
    stored.Profiles.push_back(ProfileFromJson(value));
    if (!names.insert(stored.Profiles.back().Name).second)
      throw deployment::TInputError("it has two profiles \"" + stored.Profiles.back().Name + "\"");
  }
  if (!document.Find("groups"))
    return stored;
  names.clear();
  for (const TJson& value : document.Array("groups")) {
    stored.Groups.push_back(GroupFromJson(value));
    if (!names.insert(stored.Groups.back().Name).second)
      throw deployment::TInputError("it has two groups \"" + stored.Groups.back().Name + "\"");
  }
  return stored;
}

TJson ToJson(const TStoredProfiles& stored) {
  TJson profiles = TJson::Array();
  for (const TProfile& profile : stored.Profiles)
    profiles.Append(ProfileToJson(profile));
  TJson document{{"profiles", std::move(profiles)}};
  TJson groups = TJson::Array();
  for (const TProfileGroup& group : stored.Groups)
    groups.Append({{"name", group.Name}, {"profiles", group.Profiles}});
  if (!stored.Groups.empty())
    document.Add("groups", std::move(groups));
  return document;
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

const TStoredProfiles& TProfileStore::Stored() const {
  if (!FStored) {
    TStoredProfiles stored;
    FileAt(FFile).Read([&](const TJson& document) { stored = FromJson(document); });
    FStored = std::move(stored);
  }
  return *FStored;
}

const std::vector<TProfile>& TProfileStore::List() const {
  return Stored().Profiles;
}

const TProfile* TProfileStore::Find(std::string_view name) const {
  const auto found = std::ranges::find(List(), name, &TProfile::Name);
  return found == List().end() ? nullptr : &*found;
}

const TProfile* TProfileStore::FindDefault(std::string_view platform) const {
  const auto found = std::ranges::find_if(List(), [&](const TProfile& profile) {
    return profile.IsDefault && profile.Platform == platform;
  });
  return found == List().end() ? nullptr : &*found;
}

void TProfileStore::Add(const TProfile& profile) {
  CheckNewName(profile.Name, "profile");
  CheckProfile(profile);
  Change([&](TStoredProfiles& stored) {
    if (std::ranges::find(stored.Profiles, profile.Name, &TProfile::Name) != stored.Profiles.end())
      throw std::invalid_argument("there is a profile \"" + profile.Name + "\" already");
    YieldDefault(stored.Profiles, profile);
    stored.Profiles.push_back(profile);
  });
}

void TProfileStore::Replace(std::string_view name, const TProfile& profile) {
  if (profile.Name != name)
    CheckNewName(profile.Name, "profile");
  CheckProfile(profile);
  Change([&](TStoredProfiles& stored) {
    std::vector<TProfile>& profiles = stored.Profiles;
    const auto place = std::ranges::find(profiles, name, &TProfile::Name);
    if (place == profiles.end())
      throw std::invalid_argument("there is no profile \"" + std::string(name) + "\"");
    if (profile.Name != name &&
        std::ranges::find(profiles, profile.Name, &TProfile::Name) != profiles.end())
      throw std::invalid_argument("there is a profile \"" + profile.Name + "\" already");
    YieldDefault(profiles, profile);
    *place = profile;
    for (TProfileGroup& group : stored.Groups)
      std::ranges::replace(group.Profiles, std::string(name), profile.Name);
  });
}

bool TProfileStore::Remove(std::string_view name) {
  if (!Find(name))
    return false;
  std::size_t removed = 0;
  Change([&](TStoredProfiles& stored) {
    removed = std::erase_if(stored.Profiles,
                            [&](const TProfile& profile) { return profile.Name == name; });
    for (TProfileGroup& group : stored.Groups)
      std::erase(group.Profiles, name);
  });
  return removed > 0;
}

const std::vector<TProfileGroup>& TProfileStore::Groups() const {
  return Stored().Groups;
}

const TProfileGroup* TProfileStore::FindGroup(std::string_view name) const {
  const auto found = std::ranges::find(Groups(), name, &TProfileGroup::Name);
  return found == Groups().end() ? nullptr : &*found;
}

bool TProfileStore::AddToGroup(const std::string& name, const std::vector<std::string>& profiles) {
  CheckNewName(name, "group");
  bool isChanged = false;
  Change([&](TStoredProfiles& stored) {
    std::set<std::string_view> known;
    for (const TProfile& profile : stored.Profiles)
      known.insert(profile.Name);
    auto group = std::ranges::find(stored.Groups, name, &TProfileGroup::Name);
    isChanged = group == stored.Groups.end();
    if (isChanged)
      group = stored.Groups.insert(group, {name, {}});
    std::set<std::string> members(group->Profiles.begin(), group->Profiles.end());
    for (const std::string& profile : profiles) {
      if (!known.contains(profile))
        throw std::invalid_argument("there is no profile \"" + profile + "\"");
      if (!members.insert(profile).second)
        continue;
      group->Profiles.push_back(profile);
      isChanged = true;
    }
  });
  return isChanged;
}

void TProfileStore::RemoveFromGroup(const std::string& name,
                                    const std::vector<std::string>& profiles) {
  Change([&](TStoredProfiles& stored) {
    const auto group = std::ranges::find(stored.Groups, name, &TProfileGroup::Name);
    if (group == stored.Groups.end())
      throw std::invalid_argument("there is no group \"" + name + "\"");
    const std::set<std::string_view> members(group->Profiles.begin(), group->Profiles.end());
    const std::set<std::string_view> leaving(profiles.begin(), profiles.end());
    for (const std::string_view profile : leaving) {
      if (!members.contains(profile))
        throw std::invalid_argument("the group \"" + name + "\" has no profile \"" +
                                    std::string(profile) + "\"");
    }
    std::vector<std::string> staying;
    staying.reserve(group->Profiles.size());
    for (const std::string& profile : group->Profiles) {
      if (!leaving.contains(profile))
        staying.push_back(profile);
    }
    group->Profiles = std::move(staying);
  });
}

bool TProfileStore::RemoveGroup(std::string_view name) {
  if (!FindGroup(name))
    return false;
  std::size_t removed = 0;
  Change([&](TStoredProfiles& stored) {
    removed = std::erase_if(stored.Groups,
                            [&](const TProfileGroup& group) { return group.Name == name; });
  });
  return removed > 0;
}

void TProfileStore::Change(const std::function<void(TStoredProfiles&)>& change) {
  TStoredProfiles before;
  TStoredProfiles after;
  FileAt(FFile).Change([&](const TJson& document) { before = FromJson(document); },
                       [&] {
                         after = before;
                         change(after);
                         return std::optional(ToJson(after));
                       });
  FStored = std::move(after);
}

} // namespace workbench
