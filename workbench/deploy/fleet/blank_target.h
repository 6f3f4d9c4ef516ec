// A machine that was never deployed to, so that a plan for it says what every machine may need.
#pragma once

#include "workbench/remote/target/remote_connection.h"

#include <string>
#include <vector>

namespace workbench {

/// Nothing is there, everything is inside, and nothing can be put there.
class TBlankTarget : public IRemoteConnection {
public:
  /// `root` is the path of the profile.
  explicit TBlankTarget(std::string root);

  std::chrono::nanoseconds TimeResolution() const override { return std::chrono::nanoseconds(1); }
  std::string Root() const override { return FRoot; }
  bool KeepsModes() const override { return true; }
  unsigned UsualConnections() const override { return 1; }
  std::vector<TRemoteDirectory> Resolve(std::span<const std::string> directories) override;
  std::vector<TRemoteStatus> Examine(std::span<const TRemoteName> names) override;
  std::vector<std::string> MakeDirectories(std::span<const std::string> directories) override;
  void RemoveUnfinished(std::span<const TSendRequest> /*files*/) override {}
  void Send(ISendJob& job) override;
  std::vector<std::string> Hashes(std::span<const TRemoteName> names) override;
  TRemoteContent ReadFile(const TRemoteName& name, std::uint64_t limit) override;
  TRemoteCreation CreateFile(const TRemoteName& name, std::string_view text,
                             deployment::TFileTime time) override;
  std::string Rename(const TRemoteName& name, const std::string& newName) override;
  std::vector<std::string> Stamp(std::span<const TRemoteStamp> stamps) override;
  std::string Remove(const TRemoteName& name) override;
  std::vector<std::string> RemoveAll(std::span<const TRemoteName> names) override;
  std::vector<std::string> Keep(std::span<const TRemoteCopy> copies) override;
  std::vector<std::string> Move(std::span<const TRemoteCopy> moves) override;
  void RemoveEmptyDirectories(std::span<const std::string> /*directories*/) override {}
  bool KnowsLinks() const override { return true; }
  std::vector<TRemoteLink> ReadLinks(std::span<const TRemoteName> names) override;
  std::string MakeLink(const TRemoteName& name, const std::string& text) override;
  TShell Shell() override { return TShell::Posix; }
  std::string RunCommand(const std::string& command, const std::string& directory,
                         const THearLine& hear, const std::atomic<int>& cancelled) override;

private:
  std::string FRoot;
};

} // namespace workbench
