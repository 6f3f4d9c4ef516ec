// The files in which the user's SSH client keeps the keys of machines. They are read and searched
// by the client's own tools, which know every form that a line can have.
#pragma once

#include "workbench/remote/target/profile.h"

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// A key as a line of such a file, or of a list of what a machine offers, has it.
struct TKeyText {
  std::string Marker = {}; ///< such as "@revoked"; mostly empty
  std::string Host;        ///< names, or a hash of them
  std::string Type;        ///< such as "ssh-ed25519"
  std::string Base64;
};

/// A key that is known.
struct TKnownKey {
  TKeyText Key;
  std::filesystem::path File;
  unsigned Line = 0;
};

/// What people compare.
struct TKeyPrint {
  std::string Type;        ///< such as "ED25519"
  std::string Fingerprint; ///< "SHA256:..."
};

/// Where the client looks for keys, and how it would keep a new one.
struct TKnownHostsPlaces {
  std::vector<std::filesystem::path> UserFiles = {};
  std::vector<std::filesystem::path> GlobalFiles = {};
  bool Hashes = false; ///< names of hosts are kept in a form that nobody can read
};

/// Words of the command line by which the client hears what a profile says of its machine.
std::vector<std::string> SshProfileOptions(const TProfile& profile);

/// Runs one of the client's tools, asking nobody; what it printed, or nothing when it failed.
/// Throws TConnectionError when it cannot be run.
std::optional<std::string> RunSshTool(std::vector<std::string> command);

/// Asks the client, since its configuration may say. Throws TConnectionError.
TKnownHostsPlaces FindKnownHosts(const TProfile& profile);

/// Reads what `ssh -G` prints.
TKnownHostsPlaces ParseKnownHostsPlaces(std::string_view text);

/// "[MARKER] HOST TYPE KEY [COMMENT]"; nothing for any other line.
std::optional<TKeyText> ParseKeyText(std::string_view line);

/// All keys that are known of the host, hashed lines too; missing files have none. Throws
/// TConnectionError.
std::vector<TKnownKey> LookUpHost(const TKnownHostsPlaces& places, const std::string& host);

/// Appends a key to the first file of the user, made when it is missing, in one piece. Throws
/// TConnectionError.
void KeepKey(const TKnownHostsPlaces& places, const TKeyText& key);

/// Throws TConnectionError when it is no key.
TKeyPrint PrintOf(const TKeyText& key);

} // namespace workbench
