#include "workbench/remote/profile/profile_choice.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"

#include <algorithm>
#include <filesystem>
#include <stdexcept>
#include <unordered_map>
#include <unordered_set>

namespace workbench {
namespace {

// The names of what is known, for the end of a sentence.
template <class TNamed>
std::string Known(const std::vector<TNamed>& all) {
  std::vector<std::string> names;
  names.reserve(all.size());
  for (const TNamed& each : all)
    names.push_back(each.Name);
  return names.empty() ? "; none was added yet"
                       : "; known are: " + deployment::JoinDelimited(names, ", ");
}

// The profiles that could have been named.
std::string KnownOf(const TProfileStore& profiles, const std::string& platform) {
  std::vector<TProfile> fitting;
  std::ranges::copy_if(profiles.List(), std::back_inserter(fitting),
                       [&](const TProfile& profile) { return profile.Platform == platform; });
  return fitting.empty() ? "; there are none of that platform" : Known(fitting);
}

std::vector<std::string> NamesOf(const TProfileStore& profiles, const TNamedTarget& named) {
  if (!named.IsGroup)
    return {named.Name};
  const TProfileGroup* group = profiles.FindGroup(named.Name);
  if (!group)
    throw std::invalid_argument("there is no group \"" + named.Name + "\"" +
                                Known(profiles.Groups()));
  if (group->Profiles.empty())
    throw std::invalid_argument("the group \"" + named.Name + "\" has no profiles" +
                                Known(profiles.List()));
  return group->Profiles;
}

// `known` ends the sentence.
void CheckPlaces(const std::vector<TProfile>& chosen, const std::string& known) {
  std::unordered_map<std::string, std::string> places;
  for (const TProfile& profile : chosen) {
    const auto [place, isNew] = places.emplace(PlaceKey(profile), profile.Name);
    if (!isNew)
      throw std::invalid_argument("the profiles \"" + place->second + "\" and \"" + profile.Name +
                                  "\" lead to the same place" + known);
  }
}

[[noreturn]] void RaiseUnknown(const std::string& name, const std::string& within,
                               const std::string& known) {
  throw std::invalid_argument("there is no profile \"" + name + "\"" + within + known);
}

// `within` says of which group it is, as a clause behind a comma.
[[noreturn]] void RaiseOther(const TProfile& profile, const std::string& within,
                             const std::string& platform, const std::string& known) {
  throw std::invalid_argument("the profile \"" + profile.Name + "\"" + within +
                              (within.empty() ? " is" : ", is") + " one of the platform \"" +
                              profile.Platform + "\", not of \"" + platform + "\"" + known);
}

} // namespace

std::vector<TProfile> ChooseProfiles(const TProfileStore& profiles,
                                     const std::vector<TNamedTarget>& named,
                                     const std::string& platform) {
  std::unordered_map<std::string_view, const TProfile*> byName;
  for (const TProfile& profile : profiles.List())
    byName.emplace(profile.Name, &profile);
  std::vector<TProfile> chosen;
  std::unordered_set<std::string> taken;
  for (const TNamedTarget& target : named) {
    const std::string within =
        target.IsGroup ? ", which the group \"" + target.Name + "\" names" : std::string();
    for (const std::string& name : NamesOf(profiles, target)) {
      const auto found = byName.find(name);
      if (found == byName.end())
        RaiseUnknown(name, within, Known(profiles.List()));
      if (found->second->Platform != platform)
        RaiseOther(*found->second, within, platform, KnownOf(profiles, platform));
      if (taken.insert(name).second)
        chosen.push_back(*found->second);
    }
  }
  CheckPlaces(chosen, KnownOf(profiles, platform));
  return chosen;
}

std::string PlaceKey(const TProfile& profile) {
  std::string path = std::filesystem::path(profile.Path).lexically_normal().string();
  while (path.size() > 1 && path.ends_with('/'))
    path.pop_back();
  std::string key(ProfileKindName(profile.Kind));
  if (profile.Kind == TProfileKind::Ssh)
    key.append("\n")
        .append(deployment::LowerCaseAscii(profile.Host))
        .append("\n")
        .append(std::to_string(profile.Port))
        .append("\n")
        .append(profile.User);
  return key.append("\n").append(path);
}

} // namespace workbench
