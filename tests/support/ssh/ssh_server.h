// An OpenSSH server of a test's own, on loopback.
#pragma once

#include "tests/support/ssh/loopback.h"

#include <filesystem>
#include <memory>
#include <string>
#include <vector>

namespace workbench::testing {

/// Serves connections until it goes. It lets in the user that it runs as, with a key.
class TSshServer {
public:
  /// Why there can be none here; empty when there can.
  static std::string WhyNot();

  /// Keeps its files in a directory, which it makes. Throws std::runtime_error.
  explicit TSshServer(const std::filesystem::path& directory);
  ~TSshServer();
  TSshServer(const TSshServer&) = delete;
  TSshServer& operator=(const TSshServer&) = delete;

  unsigned Port() const { return FListener->Port(); }
  /// Its name in files of known hosts.
  std::string HostName() const { return "[127.0.0.1]:" + std::to_string(Port()); }
  /// The private key that gets in.
  std::filesystem::path Identity() const { return FDirectory / "user_key"; }
  /// Lets another key in.
  void Admit(const std::filesystem::path& identity) const;
  /// A file that a client can use; it is not there before somebody writes it.
  std::filesystem::path KnownHosts() const { return FDirectory / "known_hosts"; }
  /// Options by which a client uses these files and none of its user: "KEY=VALUE".
  std::vector<std::string> ClientOptions() const;

  /// Type and key of its host key, as known hosts have them.
  std::string HostKey() const;
  std::string Fingerprint() const;
  /// Makes the host key known to clients.
  void Introduce() const;

  /// From the next connection on: another host key.
  void ChangeHostKey();
  /// From the next connection on: a shell script in place of the file transfer program.
  void SetTransfer(const std::string& script);
  /// From the next connection on: the usual file transfer program.
  void ResetTransfer();
  /// From the next connection on: where commands are looked up.
  void SetSearchPath(const std::string& directories);
  /// Ends the connections at once, as a machine does that loses its power.
  void KillConnections();
  /// Lets the connections stand without an answer, as a line does that is cut.
  void FreezeConnections();

private:
  void WriteConfiguration() const;
  void Serve(int connection);

  std::filesystem::path FDirectory;
  std::string FTransfer;
  std::string FSearchPath;
  std::mutex FMutex;
  std::vector<pid_t> FServers;
  std::unique_ptr<TLoopbackListener> FListener;
};

/// Makes a key pair of type ed25519. Throws std::runtime_error.
void MakeKey(const std::filesystem::path& file, const std::string& passphrase = {});

} // namespace workbench::testing
