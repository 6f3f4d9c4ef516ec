// Keeps the record of a target up to date while a deploy runs.
#pragma once

#include "workbench/deploy/record/record_store.h"
#include "workbench/deploy/record/target_lock.h"
#include "workbench/deploy/record/target_record.h"

#include <condition_variable>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace workbench {

/// What a deploy does is told here as it happens, from any thread. In a deploy that takes long the
/// record is written every two seconds, and the lock refreshed, through a connection of its own.
class TRecordKeeper {
public:
  /// `record` is what to begin with; `isWritten` when the one on the target says the same. `run` is
  /// added to it when something is changed. The store and the lock must outlive the object.
  TRecordKeeper(const TRecordStore& store, TTargetLock& lock, TTargetRecord record, bool isWritten,
                TRecordedRun run, TConnect connect);
  ~TRecordKeeper();
  TRecordKeeper(const TRecordKeeper&) = delete;
  TRecordKeeper& operator=(const TRecordKeeper&) = delete;

  /// Writes what is to be remembered of the future before it begins: what the files that are about
  /// to be copied will owe. Nothing is written when they will owe nothing.
  void Begin(IRemoteConnection& connection);

  /// The file was put in place, or found to be what it should be.
  void Put(const std::string& path, TRecordedFile file, bool wasCopied);
  /// The file is on the target no more; `wasRemoved` by this deploy.
  void Forget(const std::string& path, bool wasRemoved);
  /// These steps are to be done when the file is there; none: it owes nothing any more.
  void Owe(const std::string& path, std::vector<std::string> steps);
  /// This command is to be run when all files are in place; empty: none is any more.
  void OweAfterDeploy(std::string command);
  /// A row of the deploy failed or was refused.
  void Failed();

  std::optional<TRecordedFile> Find(const std::string& path) const;

  /// Writes the record for the last time, when it is another one than before. Returns why it could
  /// not be written; empty when it was, or did not have to be.
  std::string End(IRemoteConnection& connection, bool interrupted);
  /// The record as it ended.
  const TTargetRecord& Record() const { return FRecord; }

private:
  void Work();
  bool HasChanges() const { return FChanges > 0; }
  std::vector<TRecordedRun> RunsWith(TRunResult result) const;
  std::unique_ptr<TSentText> TextSoFar() const;

  const TRecordStore& FStore;
  TTargetLock& FLock;
  TRecordedRun FRun;
  const TConnect FConnect;
  mutable std::mutex FMutex; // of what stands below
  TTargetRecord FRecord;
  std::uint64_t FChanges = 0; // since it was read from the target
  bool FOwes = false;         // something that the target does not know of
  std::condition_variable FWake;
  bool FIsOver = false;
  std::thread FThread;
};

} // namespace workbench
