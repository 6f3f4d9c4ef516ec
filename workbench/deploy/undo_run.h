// Takes back what deploys did to a target.
#pragma once

#include "workbench/deploy/deploy_report.h"
#include "workbench/deploy/destination.h"
#include "workbench/deploy/record/record_store.h"
#include "workbench/deploy/record/target_lock.h"
#include "workbench/deploy/undo_plan.h"

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <vector>

namespace workbench {

/// What happened to one file, or would happen.
struct TUndoRow {
  std::string LocalName; ///< of the entry, where the record knows it
  std::string RemoteFile;
  TUndoAction Action = TUndoAction::Unchanged;
  std::string Reason;
};

struct TUndoReport {
  TDeployEnd End = TDeployEnd::NotStarted;
  int Signal = 0;                    ///< that interrupted the run
  std::string Message;               ///< why there is no connection; else empty
  std::vector<std::string> Problems; ///< why nothing was taken back
  std::vector<std::string> Warnings;
  std::vector<TRecordedRun> Runs; ///< that were taken back, or would be, newest first
  std::vector<TUndoRow> Rows;
};

/// What is to be taken back.
struct TUndoRequest {
  std::string To = {};    ///< the run that is to stand again; empty: the newest one is taken back
  bool DryRun = false;    ///< say what would be done
  bool BreakLock = false; ///< go on though somebody else deploys there
  /// Is asked, with what would be done, before anything is; empty: yes.
  std::function<bool(const TUndoReport& planned)> MayUndo = nullptr;
  /// Hears how many of the files of a run were dealt with, now and then, on the thread that undoes.
  std::function<void(std::size_t done, std::size_t files)> Progress = nullptr;
  /// As for a deploy.
  const std::atomic<int>* Cancelled = nullptr;
};

/// Used once. Everything must outlive the object.
class TUndoRun {
public:
  TUndoRun(const TUndoRequest& request, std::shared_ptr<IRemoteConnection> connection,
           const std::string& rootName, TUndoReport& report);
  ~TUndoRun();
  TUndoRun(const TUndoRun&) = delete;
  TUndoRun& operator=(const TUndoRun&) = delete;

  /// Fills the report. Throws TConnectionError.
  void Run();

private:
  bool Prepare();
  bool ReadRecord();
  bool FindRuns();
  void AddUnrecordedRuns();
  bool FindKept(const std::string& run);
  void Foretell();
  bool Lock();
  void Execute();
  void Execute(const TUndoManifest& manifest);
  void TakeBack(const std::string& run, std::vector<TUndoItem>& items);
  void TakeBackSome(const std::string& run, std::span<TUndoItem> items);
  void StampBack(std::span<TUndoItem> items);
  static void FailFor(TUndoItem& item, const std::string& problem);
  void MakeLinkBack(TUndoItem& item);
  void WriteRecord(const TTargetRecord& record);
  void SetResult(const std::string& run, TRunResult result);
  void AddRows(const std::vector<TUndoItem>& items);
  TDeployEnd EndOf() const;
  bool Refuse(TDeployEnd end, std::string problem);
  bool IsCancelled() const { return FRequest.Cancelled && *FRequest.Cancelled != 0; }

  const TUndoRequest& FRequest;
  std::shared_ptr<IRemoteConnection> FConnection;
  TUndoReport& FReport;
  TRecordStore FStore;
  TTargetLock FLock;
  TUndoStore FUndo;
  TTargetRecord FRecord;
  std::vector<TUndoManifest> FManifests; // of the runs to be taken back, newest first
};

} // namespace workbench
