// Names of files on a target: from stored text to the path that a connection understands, and what
// a target can hold.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// How a target treats names.
struct TNameRules {
  bool IgnoresCase = false;  ///< "A" and "a" are one name
  bool WindowsNames = false; ///< the reserved names and characters of Windows
};

/// The rules of a platform. Platforms whose name begins with "Win" have the names of Windows.
TNameRules NameRulesOf(std::string_view platform, bool ignoresCase);

/// A stored remote name in parts.
struct TRemotePath {
  /// Where the parts begin.
  enum class TStart { ProfilePath, HomeDirectory, FileSystemRoot, Drive };
  TStart Start = TStart::ProfilePath;
  /// Into the text; no empty ones, no ".", no "..". The first one of a home directory is its "~".
  std::vector<std::string_view> Parts;
  bool Climbs = false; ///< more ".." than there are directories to leave

  /// The parts joined by "/".
  std::string Joined() const;
};

/// Takes "\" and "/" for delimiters. The result points into `name`.
TRemotePath ParseRemotePath(std::string_view name);

/// One sentence without subject, such as "ends in a dot", when the target cannot hold a file or
/// directory of that name; empty when it can.
std::string NameProblem(std::string_view part, const TNameRules& rules);

/// What the unfinished files of a deploy begin and end with.
inline constexpr std::string_view UnfinishedPrefix = ".deploymgr-";
inline constexpr std::string_view UnfinishedSuffix = ".part";

/// True for the name of an unfinished file.
bool IsUnfinishedName(std::string_view name);

} // namespace workbench
