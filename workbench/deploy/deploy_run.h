// One deploy from its plan to its report.
#pragma once

#include "workbench/deploy/deploy_observer.h"
#include "workbench/deploy/deploy_request.h"
#include "workbench/deploy/destination.h"
#include "workbench/deploy/plan_file.h"
#include "workbench/deploy/record/record_store.h"
#include "workbench/deploy/record/target_lock.h"
#include "workbench/deploy/record/undo_store.h"

#include <filesystem>
#include <future>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// What a run needs to know besides the request.
struct TRunFacts {
  const TDestinations& Destinations;
  TDestination Destination;
  deployment::TDeploymentTarget Target;
  std::vector<TDeployFile> Files = {};
  std::string RootName; ///< of the project on the platform, as stored
  std::filesystem::path ProjectFile;
  /// Directories of this machine whose files need no consent.
  std::vector<std::filesystem::path> SourceRoots = {};
  /// A plan that was made earlier, to be carried out in the place of one for the files.
  std::optional<TPlanFile> Given = {};
};

/// Used once. Everything must outlive the object.
class TDeployRun {
public:
  TDeployRun(TRunTerms terms, TRunFacts facts, IDeployObserver& observer, TDeployReport& report);
  ~TDeployRun();
  TDeployRun(const TDeployRun&) = delete;
  TDeployRun& operator=(const TDeployRun&) = delete;

  /// Fills the report. Throws TConnectionError.
  void Run();
  /// The plan as it was made, bound to what it is for. Throws TConnectionError.
  TPlanFile PlanFile() const;

private:
  bool IsRecorded() const;
  void MakePlan();
  void TakePlan();
  TPlanOptions PlanOptions() const;
  void BeginRecord();
  const TTargetRecord& TakeRecord();
  void Describe();
  bool MayExecute();
  bool HasWork() const;
  bool Lock();
  void Execute();
  void KeepBefore(const TRecordedRun& run);
  bool RunAfterDeploy();
  void CollectOwed(const TTargetRecord& record);
  TDeployEnd End() const;

  const TRunTerms FTerms;
  TRunFacts FFacts;
  IDeployObserver& FObserver;
  TDeployReport& FReport;
  const std::atomic<int>& FCancelled;
  const TConnect FConnect;
  std::shared_ptr<IRemoteConnection> FConnection;
  std::optional<TRecordStore> FStore; // nothing where no record is kept
  std::optional<TTargetLock> FLock;
  std::optional<std::string> FRecordMark;  // of the record when it was read first
  std::optional<TUndoStore> FUndo;         // while the target is locked
  std::future<TRecordReading> FRecordRead; // while the record is taken apart
  TRecordReading FReading;
  TDeployPlan FPlan;
};

} // namespace workbench
