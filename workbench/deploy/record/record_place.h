// Where on a target deploys keep what they remember.
#pragma once

#include <string>
#include <string_view>

namespace workbench {

/// The directory below the profile's path that deploys keep for themselves.
inline constexpr std::string_view RecordDirectory = ".deployment-manager";

inline constexpr std::string_view RecordName = "record.json";
inline constexpr std::string_view DamagedRecordName = "record.damaged";
inline constexpr std::string_view LockName = "lock";

/// The directory of a project's record, relative to the profile's path; `root` is the project's
/// root name on the platform, as stored. One directory per root: what would part or leave it is
/// replaced.
std::string RecordDirectoryOf(std::string_view root);

/// True for a path below the profile's path, with "/", that leads into RecordDirectory, in any
/// case of its letters.
bool IsRecordPath(std::string_view path);

} // namespace workbench
