// A remote profile as the user keeps it: a name, a platform and the way to one machine.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

/// How the machine of a profile is reached.
enum class TProfileKind {
  Folder, ///< a directory of this machine or a mounted share
};

/// What a profile says.
struct TProfile {
  std::string Name = {};
  std::string Platform = {};
  TProfileKind Kind = TProfileKind::Folder;
  std::string Path = {};     ///< full path on the machine, below which everything is put
  bool IsDefault = false;    ///< serves projects that assign none to the platform
  bool AllowOutside = false; ///< directories beyond the path are allowed

  bool operator==(const TProfile&) const = default;
};

/// "folder".
std::string_view ProfileKindName(TProfileKind kind);

/// Throws std::invalid_argument, with the known kinds in the sentence, for any other name.
TProfileKind ProfileKindFromName(std::string_view name);

/// Throws std::invalid_argument with a sentence when a field cannot be: a name that is empty, has
/// control characters or begins with "-", an empty platform, a path that is relative or the root
/// of the file system.
void CheckProfile(const TProfile& profile);

} // namespace workbench
