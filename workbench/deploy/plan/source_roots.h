// Which files of this machine a project may send without a question: those of its own tree and of
// the directories that its user named. A project that comes from elsewhere could name any other
// file, such as a private key, by a path of its own, a wildcard or a link.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

/// The directory of the project: of the working copy or of the solution that it stands in, where
/// there is one above it, else the one that holds the project file. A home directory and the root
/// of the file system are never one.
std::filesystem::path SourceTreeOf(const std::filesystem::path& projectFile);

/// Looks files up below roots. Links are followed.
class TSourceRoots {
public:
  explicit TSourceRoots(const std::vector<std::filesystem::path>& roots);

  /// True when the file stands below one of the roots.
  bool Holds(const std::filesystem::path& file);
  /// The same of a name that is known to be a link, or not to be one.
  bool Holds(const std::filesystem::path& file, bool isLink);

private:
  bool IsBelow(std::string_view path) const;
  const std::string& RealDirectory(const std::filesystem::path& directory);

  std::vector<std::string> FRoots;                           // real paths, each with a last "/"
  std::unordered_map<std::string, std::string> FDirectories; // real ones, by the name given
};

} // namespace workbench
