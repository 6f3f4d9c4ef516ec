// A machine that is reached through the user's own SSH client. The first conversation makes the
// connection; the others and commands go through it, so that only the first pays for keys and
// log-in.
#pragma once

#include "workbench/remote/sftp/sftp_connection.h"
#include "workbench/remote/ssh/prompts.h"
#include "workbench/remote/target/profile.h"

#include <atomic>
#include <filesystem>
#include <future>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

namespace workbench {

/// Commands of the SSH client for one profile.
class TSshCommands {
public:
  /// `controlPath` is the socket of the connection that is shared.
  TSshCommands(TProfile profile, std::filesystem::path controlPath);

  /// Makes the connection and carries the file transfer protocol; the connection ends with it.
  /// `questions` are variables that let the client ask for passwords and the like; without them it
  /// asks nothing.
  TProcessStart FirstConnection(const std::vector<std::string>& questions) const;
  /// Carries the protocol through the connection.
  TProcessStart FurtherConnection() const;
  /// The words before a command line, for programs that bring their own; the host is the last one.
  std::vector<std::string> Words() const;
  /// Runs a command line on the machine, through the connection.
  TProcessStart Command(const std::string& command) const;

private:
  TProcessStart Start(bool isFirst, const std::vector<std::string>& questions) const;

  TProfile FProfile;
  std::filesystem::path FControlPath;
};

/// A path for a socket that nobody else can reach and that has no file yet. Throws
/// std::system_error.
std::filesystem::path NewControlPath();

/// Connections to one machine. May be used by several threads.
class TSshMachine : public std::enable_shared_from_this<TSshMachine> {
public:
  TSshMachine(TProfile profile, TPrompts prompts);
  ~TSshMachine();
  TSshMachine(const TSshMachine&) = delete;
  TSshMachine& operator=(const TSshMachine&) = delete;

  const TProfile& Profile() const { return FProfile; }
  /// Begins to connect, asking nobody, on a thread of its own; Take waits for it.
  void Prepare();
  /// A connection of the caller's own; it comes back to the machine when it is let go. Throws
  /// TConnectionError. `cancelled`, when it is there, ends the attempt and what the connection is
  /// used for; it must outlive the connection.
  std::shared_ptr<IRemoteConnection> Take(const std::atomic<int>* cancelled);

private:
  enum class TConnecting { Silently, Asking, Further };

  std::unique_ptr<TSftpConnection> TakeIdle();
  std::unique_ptr<TSftpConnection> OpenFirst(const std::atomic<int>* cancelled);
  std::unique_ptr<TSftpConnection> OpenAsking(const std::atomic<int>* cancelled) const;
  std::unique_ptr<TSftpConnection> AwaitPrepared(const std::atomic<int>* cancelled);
  bool Mend(const TConnectionError& error, const std::atomic<int>* cancelled) const;
  std::unique_ptr<TSftpConnection> Open(const TProcessStart& sftp, TConnecting how,
                                        const std::atomic<int>* cancelled) const;
  void GiveBack(std::unique_ptr<TSftpConnection> connection);

  const TProfile FProfile;
  const TPrompts FPrompts;
  const TSshCommands FCommands;
  const std::shared_ptr<TMachineFacts> FFacts = std::make_shared<TMachineFacts>();
  std::atomic<int> FNobodyWaits = 0; // for what is prepared
  std::mutex FConnecting;            // held while the first one is opened; guards the next field
  std::future<std::unique_ptr<TSftpConnection>> FPrepared;
  std::mutex FMutex; // of what stands below
  std::vector<std::unique_ptr<TSftpConnection>> FIdle;
  bool FIsConnected = false; // the first connection is there, idle or in use
};

} // namespace workbench
