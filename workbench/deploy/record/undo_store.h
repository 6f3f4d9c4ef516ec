// Keeps on a target what deploys are taken back by.
#pragma once

#include "workbench/deploy/record/undo_manifest.h"
#include "workbench/remote/target/remote_connection.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace workbench {

/// What is to be kept of a run.
struct TKeptRun {
  std::string Run = {};                                          ///< its id
  std::uint64_t Bytes = 0;                                       ///< of the files
  std::function<void(const TTakeText& take)> WriteManifest = {}; ///< hands its text over
  std::vector<std::pair<TRemoteName, std::string>> Files = {};   ///< resolved, and how each is kept
};

/// The directory "undo" beside a record. What changes it is called while the target is locked; then
/// nobody else does, so that the index is read once. Every call may throw TConnectionError.
class TUndoStore {
public:
  /// `directory` is the resolved one of the record.
  explicit TUndoStore(const std::string& directory) : FDirectory(directory + "/undo") {}

  const std::string& Directory() const { return FDirectory; }
  /// The runs that can be taken back; none where nothing of the kind can be read.
  TUndoIndex ReadIndex(IRemoteConnection& connection) const;
  /// Throws TInputError for a damaged one, or none.
  TUndoManifest ReadManifest(IRemoteConnection& connection, const std::string& run) const;
  /// Where the kept file of a run is.
  TRemoteName KeptName(const std::string& run, const std::string& kept) const;

  /// Keeps what a run is about to change. Returns why that failed; nothing is kept then.
  std::string Keep(IRemoteConnection& connection, const TKeptRun& request);
  /// Removes the oldest runs until no more than so many are left, and no more than so many bytes.
  void Trim(IRemoteConnection& connection, std::uint64_t runs, std::uint64_t bytes);
  /// Removes what was kept of a run.
  void Drop(IRemoteConnection& connection, const std::string& run);
  /// Removes what bad ends left of runs that were being kept or removed.
  void RemoveUnfinished(IRemoteConnection& connection);

private:
  std::string DirectoryOf(const std::string& run) const { return FDirectory + "/" + run; }
  std::string Fill(IRemoteConnection& connection, const TKeptRun& request) const;
  void RemoveFiles(IRemoteConnection& connection, const std::string& run) const;
  void RemoveRuns(IRemoteConnection& connection, const std::vector<std::string>& runs);
  void GiveUp(IRemoteConnection& connection, const std::string& run);
  const TUndoIndex& Index(IRemoteConnection& connection);
  std::string WriteIndex(IRemoteConnection& connection, TUndoIndex index);

  std::string FDirectory;
  std::optional<TUndoIndex> FIndex; // as it is there
};

} // namespace workbench
