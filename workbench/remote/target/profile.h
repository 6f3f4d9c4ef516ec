// A remote profile as the user keeps it: a name, a platform and the way to one machine.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// How the machine of a profile is reached.
enum class TProfileKind {
  Folder, ///< a directory of this machine or a mounted share
  Ssh,    ///< another machine, through the user's own SSH client
};

/// What a profile says. The fields from Host on are for machines that are reached through SSH;
/// what they leave open is up to the user's configuration of the client.
struct TProfile {
  std::string Name = {};
  std::string Platform = {};
  TProfileKind Kind = TProfileKind::Folder;
  /// Full path on the machine, below which everything is put. Of another machine also one that
  /// begins with "~/", the home directory there, or with a drive, such as "C:/".
  std::string Path = {};
  bool IsDefault = false;    ///< serves projects that assign none to the platform
  bool AllowOutside = false; ///< directories beyond the path are allowed
  bool Stateless = false;    ///< deploys leave no record there
  bool Compress = false;     ///< what travels is compressed on the way, for thin lines
  /// Command line for the machine, run after a deploy that changed something; empty: none.
  std::string AfterDeploy = {};

  std::string Host = {};
  unsigned Port = 0; ///< 0: left open
  std::string User = {};
  std::string Identity = {};                ///< file of the key; empty: left open
  std::vector<std::string> SshOptions = {}; ///< "KEY=VALUE" as in the client's configuration
  unsigned ConnectTimeout = 10;             ///< seconds
  unsigned KeepAlive = 2;                   ///< seconds between two questions whether it lives

  bool operator==(const TProfile&) const = default;
};

/// "folder" or "ssh".
std::string_view ProfileKindName(TProfileKind kind);

/// Throws std::invalid_argument, with the known kinds in the sentence, for any other name.
TProfileKind ProfileKindFromName(std::string_view name);

/// All kinds.
std::span<const TProfileKind> ProfileKinds();

} // namespace workbench
