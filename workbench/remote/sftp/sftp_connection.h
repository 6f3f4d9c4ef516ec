// The connection to a machine that speaks the SSH file transfer protocol.
#pragma once

#include "workbench/remote/sftp/sftp_channel.h"
#include "workbench/remote/sftp/sftp_copies.h"
#include "workbench/remote/sftp/sftp_paths.h"
#include "workbench/remote/target/remote_connection.h"
#include "workbench/remote/target/unfinished_names.h"
#include "workbench/remote/target/unfinished_parts.h"

#include <atomic>
#include <chrono>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// How a machine is talked to.
struct TSftpMachine {
  TProcessStart Sftp; ///< the program that carries the file transfer protocol
  /// The program that runs a command line on the machine; empty when it runs none.
  TRemoteExec Exec;
  /// Words by which other programs run a command there, the machine's name being the last one;
  /// empty when none can.
  std::vector<std::string> RemoteShell = {};
  /// Below which everything is put: a full path, or one from the user's home directory with "~/".
  /// "C:/x" is on a drive.
  std::string Root;
  bool IsFirst = false; ///< this connection carries the others
  std::chrono::milliseconds Greeting = std::chrono::seconds(15); ///< the longest wait for a start
  std::chrono::milliseconds Silence = std::chrono::seconds(15);  ///< the longest one for an answer
};

/// What is found out about a machine once. May be used by several threads.
struct TMachineFacts {
  TUnfinishedParts Parts;
  std::mutex Mutex; ///< of what stands below
  std::optional<TShell> Shell = std::nullopt;
  std::optional<bool> HasRsync = std::nullopt; ///< as this machine has
};

/// Connections to one machine share `facts`.
class TSftpConnection final : public IRemoteConnection {
public:
  /// Opens the connection and resolves the root. Throws TConnectionError. `cancelled` ends the
  /// attempt when it is there and turns to something else than 0.
  TSftpConnection(TSftpMachine machine, std::shared_ptr<TMachineFacts> facts,
                  const std::atomic<int>* cancelled = nullptr);

  /// What interrupts the work from now on, as for the constructor.
  void SetCancelled(const std::atomic<int>* cancelled) { FChannel.SetCancelled(cancelled); }
  /// False when the connection is of no use any more.
  bool IsAlive() const { return FChannel.IsAlive(); }
  /// True when it carries the others.
  bool IsFirst() const { return FMachine.IsFirst; }

  /// The protocol tells whole seconds.
  std::chrono::nanoseconds TimeResolution() const override { return std::chrono::seconds(1); }
  std::string Root() const override { return FRoot; }
  bool KeepsModes() const override { return !FIsWindows; }
  unsigned UsualConnections() const override;
  std::vector<TRemoteDirectory> Resolve(std::span<const std::string> directories) override;
  std::vector<TRemoteStatus> Examine(std::span<const TRemoteName> names) override;
  std::vector<std::string> MakeDirectories(std::span<const std::string> directories) override;
  void RemoveUnfinished(std::span<const TSendRequest> files) override;
  void Send(ISendJob& job) override;
  std::vector<std::string> Hashes(std::span<const TRemoteName> names) override;
  TRemoteContent ReadFile(const TRemoteName& name, std::uint64_t limit) override;
  TRemoteCreation CreateFile(const TRemoteName& name, std::string_view text,
                             deployment::TFileTime time) override;
  std::string Rename(const TRemoteName& name, const std::string& newName) override;
  std::vector<std::string> Stamp(std::span<const TRemoteStamp> stamps) override {
    return StampRemoteFiles(FChannel, stamps);
  }
  std::string Remove(const TRemoteName& name) override;
  std::vector<std::string> RemoveAll(std::span<const TRemoteName> names) override {
    return RemoveRemoteFiles(FChannel, names);
  }
  std::vector<std::string> Keep(std::span<const TRemoteCopy> copies) override {
    return KeepRemoteFiles(FChannel, FMachine.Exec, copies);
  }
  std::vector<std::string> Move(std::span<const TRemoteCopy> moves) override {
    return MoveRemoteFiles(FChannel, moves);
  }
  void RemoveEmptyDirectories(std::span<const std::string> directories) override {
    RemoveEmptyRemoteDirectories(FChannel, directories);
    FPaths.Forget();
  }
  bool KnowsLinks() const override;
  std::vector<TRemoteLink> ReadLinks(std::span<const TRemoteName> names) override;
  std::string MakeLink(const TRemoteName& name, const std::string& text) override;
  TShell Shell() override;
  std::string RunCommand(const std::string& command, const std::string& directory,
                         const THearLine& hear, const std::atomic<int>& cancelled) override;

private:
  std::string FullPath(const std::string& directory);
  bool IsBelowRoot(const std::string& path) const;
  TSftpStatus Answer();
  std::string Problem(std::string_view action);
  std::optional<TUnfinishedPart> FindPart(const TSendRequest& request, const struct stat& status);
  std::optional<TUnfinishedPart> MakePart(const TSendRequest& request, const struct stat& status,
                                          const ISendJob& job);

  TSftpMachine FMachine;
  std::shared_ptr<TMachineFacts> FFacts;
  TSftpChannel FChannel;
  TSftpPaths FPaths;
  TUnfinishedNames FNames;
  std::string FHome;       // asked for when it is needed
  std::string FRoot;       // links resolved
  bool FIsWindows = false; // the root is on a drive: names ignore case
};

} // namespace workbench
