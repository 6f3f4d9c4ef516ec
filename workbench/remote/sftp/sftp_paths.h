// Directories of an SFTP server: what they really are, and making them.
#pragma once

#include "workbench/remote/sftp/sftp_channel.h"
#include "workbench/remote/target/remote_connection.h"

#include <span>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace workbench {

/// One channel's knowledge of directories. Paths are full ones with "/", such as "/srv/app" or
/// "/C:/app".
class TSftpPaths {
public:
  explicit TSftpPaths(TSftpChannel& channel) : FChannel(channel) {}

  /// The full path of a name that begins in the user's home directory; "." is that itself. Throws
  /// TConnectionError when the server does not tell.
  std::string Home(const std::string& name);
  /// What the directories are. IsInside is left alone.
  std::vector<TRemoteDirectory> Resolve(std::span<const std::string> paths);
  /// Makes resolved directories and those above them; the reason for each that failed.
  std::vector<std::string> Make(std::span<const std::string> paths);
  /// Forgets what directories are and which were made: others may have changed or removed them.
  void Forget() {
    FPlaces.clear();
    FMade.clear();
  }
  /// True when Make made it here, so that there is nothing in it that was not put there since.
  bool IsNew(const std::string& path) const { return FMade.contains(path); }

private:
  // What a path is, as far as it was asked.
  struct TPlace {
    std::string Real = {}; // links resolved; empty when the server does not tell
    bool Exists = false;   // links followed
    bool IsDirectory = false;
    bool IsLink = false;
    TSftpStatus Problem = TSftpStatus::Ok; // why nothing is known but that it may be there
  };
  class TExamination;
  class TMaking;

  TRemoteDirectory Answer(const std::string& path) const;

  TSftpChannel& FChannel;
  std::unordered_map<std::string, TPlace> FPlaces;
  std::unordered_set<std::string> FMade;
};

/// The path and those above it, the shortest first: "/a", "/a/b".
std::vector<std::string> PathsTo(std::string_view path);

} // namespace workbench
