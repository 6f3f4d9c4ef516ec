#include "workbench/remote/profile/profile_store.h"

#include "package/common/errors.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/file_saver.h"
#include "workbench/remote/profile/profile_check.h"
#include "workbench/remote/profile/profile_json.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <set>
#include <stdexcept>
#include <string>
#include <sys/stat.h>
#include <utility>

namespace workbench {
namespace {

using TJsonValue = nlohmann::ordered_json;

constexpr std::string_view FileKind = "profiles file";
constexpr std::uint64_t LargestFile = std::uint64_t(16) * 1024 * 1024;

[[noreturn]] void Reject(const std::filesystem::path& file, const std::string& text) {
  throw deployment::TInputError("the profiles file is damaged: " + text + "; mend it or remove it",
                                {file.string(), 0});
}

std::vector<TProfile> FromText(const std::filesystem::path& file, std::string_view text) {
  std::vector<TProfile> profiles;
  std::set<std::string> names;
  try {
    const TJsonValue document = TJsonValue::parse(text);
    for (const TJsonValue& value : document.at("profiles")) {
      profiles.push_back(ProfileFromJson(value));
      if (!names.insert(profiles.back().Name).second)
        Reject(file, "it has two profiles \"" + profiles.back().Name + "\"");
    }
  } catch (const nlohmann::json::exception& error) {
    Reject(file, error.what());
  } catch (const std::invalid_argument& error) {
    Reject(file, error.what());
  }
  return profiles;
}

std::string ToText(const std::filesystem::path& file, const std::vector<TProfile>& profiles) {
  TJsonValue list = TJsonValue::array();
  for (const TProfile& profile : profiles)
    list.push_back(ProfileToJson(profile));
  try {
    return TJsonValue({{"profiles", list}}).dump(2) + "\n";
  } catch (const nlohmann::json::type_error&) {
    throw deployment::TInputError("a profile holds text that is not UTF-8 and cannot be kept",
                                  {file.string(), 0});
  }
}

// A platform has one default profile.
void YieldDefault(std::vector<TProfile>& profiles, const TProfile& next) {
  for (TProfile& profile : profiles)
    profile.IsDefault = profile.IsDefault && !(next.IsDefault && profile.Platform == next.Platform);
}

bool IsThere(const std::filesystem::path& file) {
  std::error_code ignored;
  return std::filesystem::exists(std::filesystem::symlink_status(file, ignored));
}

// Profiles name machines and directories, so that the directory is the user's alone.
void MakeFile(const std::filesystem::path& file, std::string_view text) {
  std::error_code ignored;
  std::filesystem::create_directories(file.parent_path().parent_path(), ignored);
  if (::mkdir(file.parent_path().c_str(), 0700) != 0 && errno != EEXIST)
    throw TSaveError(file.string() + " was not written: its directory cannot be made: " +
                         SystemReason(errno) + "; no file was made",
                     file);
  try {
    SaveFile({.Target = file,
              .Content = std::array{text},
              .Expected = std::nullopt,
              .WithBackup = false,
              .NewFileMode = 0600});
  } catch (const TSaveError&) {
    if (!IsThere(file)) // else another run has just made it
      throw;
  }
}

} // namespace

std::filesystem::path ProfilesFileBeside(const std::filesystem::path& settingsFile) {
  return settingsFile.empty() ? settingsFile : settingsFile.parent_path() / "profiles.json";
}

const std::vector<TProfile>& TProfileStore::List() const {
  if (!FProfiles) {
    if (FFile.empty() || !IsThere(FFile))
      FProfiles.emplace();
    else
      FProfiles = FromText(FFile, ReadWholeFile(FFile, LargestFile, FileKind).Text());
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
  if (FFile.empty())
    throw TSaveError("the profiles were not written: neither XDG_CONFIG_HOME nor HOME names a "
                     "directory; no file was made",
                     FFile);
  if (!IsThere(FFile))
    MakeFile(FFile, ToText(FFile, {}));
  TFileLock lock(FFile);
  const TFileContent before = ReadWholeFile(FFile, LargestFile, FileKind);
  std::vector<TProfile> profiles = FromText(FFile, before.Text());
  change(profiles);
  const std::string text = ToText(FFile, profiles);
  SaveFile({.Target = FFile,
            .Content = std::array{std::string_view(text)},
            .Expected = before.Text(),
            .WithBackup = false,
            .Lock = &lock});
  FProfiles = std::move(profiles);
}

} // namespace workbench
