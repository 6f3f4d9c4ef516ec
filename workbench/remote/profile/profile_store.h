// The user's remote profiles on disk.
#pragma once

#include "workbench/remote/profile/profile_group.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Where the profiles live beside the settings file; empty when that is.
std::filesystem::path ProfilesFileBeside(const std::filesystem::path& settingsFile);

/// The profiles and groups of one file, read when they are first asked for. Every change reads the
/// file anew under a lock and writes it at once, so that runs side by side do not lose each other's
/// changes.
class TProfileStore {
public:
  explicit TProfileStore(std::filesystem::path file) : FFile(std::move(file)) {}

  const std::filesystem::path& File() const { return FFile; }

  /// All profiles in the order in which they were added. Throws TInputError when the file is
  /// damaged.
  const std::vector<TProfile>& List() const;
  /// Reads the file anew at the next question.
  void Forget() { FStored.reset(); }
  /// Compared exactly; null when there is none. Good until the next change.
  const TProfile* Find(std::string_view name) const;
  /// The platform's default profile; null when it has none.
  const TProfile* FindDefault(std::string_view platform) const;

  /// Adds a profile; one that becomes the default takes this from the one before. Throws
  /// std::invalid_argument when the name is taken or a field cannot be, TInputError and TSaveError.
  void Add(const TProfile& profile);
  /// Puts a profile, perhaps of a new name, in the place of the one of that name; about the default
  /// as Add; its groups know it by the new name. Throws std::invalid_argument when there is none of
  /// that name, the new name is taken or a field cannot be, TInputError and TSaveError.
  void Replace(std::string_view name, const TProfile& profile);
  /// Takes it out of its groups, too. False when there is no profile of that name. Throws
  /// TInputError and TSaveError.
  bool Remove(std::string_view name);

  /// All groups in the order in which they were made. Throws as List.
  const std::vector<TProfileGroup>& Groups() const;
  /// Compared exactly; null when there is none. Good until the next change.
  const TProfileGroup* FindGroup(std::string_view name) const;
  /// Puts profiles into a group, which is made when it is not there; those that are in it stay
  /// where they are. False when that changes nothing. Throws std::invalid_argument when a profile
  /// is not there or the group cannot have that name, TInputError and TSaveError.
  bool AddToGroup(const std::string& name, const std::vector<std::string>& profiles);
  /// Takes profiles out of a group, which stays when it is empty then. Throws
  /// std::invalid_argument when there is no such group or one of them is not in it, TInputError
  /// and TSaveError.
  void RemoveFromGroup(const std::string& name, const std::vector<std::string>& profiles);
  /// False when there is no group of that name. Throws TInputError and TSaveError.
  bool RemoveGroup(std::string_view name);

private:
  const TStoredProfiles& Stored() const;
  void Change(const std::function<void(TStoredProfiles&)>& change);

  std::filesystem::path FFile;
  mutable std::optional<TStoredProfiles> FStored;
};

} // namespace workbench
