// The connection to a directory of this machine, or to a mounted share.
#pragma once

#include "workbench/files/directory_handles.h"
#include "workbench/remote/folder/file_transfer.h"
#include "workbench/remote/folder/folder_copies.h"
#include "workbench/remote/target/remote_connection.h"

#include <atomic>

namespace workbench {

/// What becomes of a folder that is not there.
enum class TMissingFolder {
  Refuse, ///< an unplugged share must not be made anew
  Make,   ///< it is made when the first file goes there
};

/// Paths of the target are paths of this machine.
class TFolderConnection final : public IRemoteConnection {
public:
  /// Throws TConnectionError when the folder is not there, is no directory or cannot be entered.
  /// `cancelled`, when it is there and turns to something else than 0, ends what takes long.
  explicit TFolderConnection(const std::filesystem::path& folder,
                             TMissingFolder missing = TMissingFolder::Refuse,
                             const std::atomic<int>* cancelled = nullptr);

  std::chrono::nanoseconds TimeResolution() const override { return FResolution; }
  std::string Root() const override { return FFolder.string(); }
  bool KeepsModes() const override { return FKeepsModes; }
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
  std::vector<std::string> Stamp(std::span<const TRemoteStamp> stamps) override;
  std::string Remove(const TRemoteName& name) override;
  std::vector<std::string> RemoveAll(std::span<const TRemoteName> names) override;
  std::vector<std::string> Keep(std::span<const TRemoteCopy> copies) override {
    return KeepFiles(FDirectories, copies);
  }
  std::vector<std::string> Move(std::span<const TRemoteCopy> moves) override {
    return MoveFiles(FDirectories, moves);
  }
  void RemoveEmptyDirectories(std::span<const std::string> directories) override {
    RemoveEmptyFolders(FDirectories, directories);
  }
  bool KnowsLinks() const override { return FKnowsLinks; }
  std::vector<TRemoteLink> ReadLinks(std::span<const TRemoteName> names) override;
  std::string MakeLink(const TRemoteName& name, const std::string& text) override;
  TShell Shell() override { return TShell::Posix; }
  std::string RunCommand(const std::string& command, const std::string& directory,
                         const THearLine& hear, const std::atomic<int>& cancelled) override;

private:
  void StampOne(const TRemoteStamp& stamp);
  TRemoteDirectory ResolveOne(const std::string& directory) const;
  TRemoteStatus ExamineOne(const TRemoteName& name);
  TFileDescriptor OpenFile(const TRemoteName& name);
  bool IsCancelled() const { return FCancelled && *FCancelled != 0; }

  std::filesystem::path FFolder; // links resolved
  std::chrono::nanoseconds FResolution;
  bool FKeepsModes;
  bool FKnowsLinks;
  const std::atomic<int>* FCancelled;
  TDirectoryHandles FDirectories;
  TFileTransfer FTransfer;
};

} // namespace workbench
