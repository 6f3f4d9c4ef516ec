// The user's remote profiles on disk.
#pragma once

#include "workbench/remote/target/profile.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>
#include <vector>

namespace workbench {

/// Where the profiles live beside the settings file; empty when that is.
std::filesystem::path ProfilesFileBeside(const std::filesystem::path& settingsFile);

/// The profiles of one file, read when they are first asked for. Every change reads the file anew
/// under a lock and writes it at once, so that runs side by side do not lose each other's changes.
class TProfileStore {
public:
  explicit TProfileStore(std::filesystem::path file) : FFile(std::move(file)) {}

  const std::filesystem::path& File() const { return FFile; }

  /// All profiles in the order in which they were added. Throws TInputError when the file is
  /// damaged.
  const std::vector<TProfile>& List() const;
  /// Reads the file anew at the next question.
  void Forget() { FProfiles.reset(); }
  /// Compared exactly; null when there is none. Good until the next change.
  const TProfile* Find(std::string_view name) const;
  /// The platform's default profile; null when it has none.
  const TProfile* FindDefault(std::string_view platform) const;

  /// Adds a profile; one that becomes the default takes this from the one before. Throws
  /// std::invalid_argument when the name is taken or a field cannot be, TInputError and TSaveError.
  void Add(const TProfile& profile);
  /// Puts a profile, perhaps of a new name, in the place of the one of that name; about the default
  /// as Add. Throws std::invalid_argument when there is none of that name, the new name is taken or
  /// a field cannot be, TInputError and TSaveError.
  void Replace(std::string_view name, const TProfile& profile);
  /// False when there is no profile of that name. Throws TInputError and TSaveError.
  bool Remove(std::string_view name);

private:
  void Change(const std::function<void(std::vector<TProfile>&)>& change);

  std::filesystem::path FFile;
  mutable std::optional<std::vector<TProfile>> FProfiles;
};

} // namespace workbench
