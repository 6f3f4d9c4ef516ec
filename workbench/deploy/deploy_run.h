// One deploy from its plan to its report.
#pragma once

#include "workbench/deploy/deploy_observer.h"
#include "workbench/deploy/deploy_request.h"
#include "workbench/deploy/destination.h"
#include "workbench/deploy/record/record_store.h"
#include "workbench/deploy/record/target_lock.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// What a run needs to know besides the request.
struct TRunFacts {
  const TDestinations& Destinations;
  TDestination Destination;
  std::vector<TDeployFile> Files;
  std::string RootName; ///< of the project on the platform, as stored
  std::filesystem::path ProjectFile;
};

/// Used once. Everything must outlive the object.
class TDeployRun {
public:
  TDeployRun(const TDeployRequest& request, TRunFacts facts, IDeployObserver& observer,
             TDeployReport& report);
  ~TDeployRun();
  TDeployRun(const TDeployRun&) = delete;
  TDeployRun& operator=(const TDeployRun&) = delete;

  /// Fills the report. Throws TConnectionError.
  void Run();

private:
  bool IsRecorded() const;
  void MakePlan();
  TTargetRecord ReadRecord();
  void Describe();
  bool MayExecute();
  bool HasWork() const;
  bool Lock();
  void Execute();
  void CollectOwed(const TTargetRecord& record);
  TDeployEnd End() const;

  const TDeployRequest& FRequest;
  TRunFacts FFacts;
  IDeployObserver& FObserver;
  TDeployReport& FReport;
  const std::atomic<int>& FCancelled;
  const TConnect FConnect;
  std::shared_ptr<IRemoteConnection> FConnection;
  std::optional<TRecordStore> FStore; // nothing where no record is kept
  std::optional<TTargetLock> FLock;
  TRecordReading FReading;
  TDeployPlan FPlan;
};

} // namespace workbench
