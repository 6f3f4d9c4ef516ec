#include "workbench/deploy/deploy_executor.h"

#include "workbench/deploy/changes_in_place.h"
#include "workbench/deploy/deploy_request.h"
#include "workbench/deploy/record_keeper.h"
#include "workbench/deploy/remembered_files.h"
#include "workbench/deploy/step_runner.h"

#include <algorithm>
#include <mutex>
#include <optional>
#include <thread>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace workbench {
namespace {

using deployment::TDeployOperation;

constexpr std::size_t SmallestBatch = 32;
constexpr std::size_t LargestBatch = 256;

class TExecutor {
public:
  TExecutor(const TDeployPlan& plan, const TDeployExecution& execution, TDeployReport& report)
      : FPlan(plan), FExecution(execution), FConnection(execution.Connection), FReport(report),
        FDone(plan.Files.size(), false) {}

  void Run() {
    try {
      Announce();
      FinishWhatNeedsNoCopy();
      RunLocalCommands();
      PrepareDirectories();
      CopyFiles();
      MakeLinks();
      FinishOnTarget();
    } catch (const TConnectionError& error) {
      Lost(error.what());
    }
    // What is not done yet was never begun, or begun on a line that broke.
    for (std::size_t i = 0; i < FPlan.Files.size(); ++i)
      Finish(i, FLost.empty() ? std::string(InterruptedReason) : FLost);
    FReport.Message = FLost;
  }

private:
  class TSendJob;

  TDeployRow& Row(std::size_t index) { return FReport.Rows[index]; }
  bool IsCancelled() const { return FExecution.Cancelled != 0; }
  void Lost(const std::string& reason) {
    const std::lock_guard lock(FMutex);
    if (FLost.empty() && !IsCancelled())
      FLost = reason;
  }

  // The row has ended; a reason makes it a failed one. Rows end once.
  void Finish(std::size_t index, const std::string& problem) {
    const std::lock_guard lock(FMutex);
    if (FDone[index])
      return;
    FDone[index] = true;
    if (!problem.empty()) {
      Row(index).Action = TDeployAction::Failed;
      Row(index).Error = problem;
    }
    const TDeployAction action = Row(index).Action;
    if (FExecution.Keeper && (action == TDeployAction::Failed || action == TDeployAction::Refused))
      FExecution.Keeper->Failed();
    FExecution.Observer.RowDone(index, Row(index));
  }

  void Announce();
  void FinishWhatNeedsNoCopy();
  void FinishTogether(std::span<const std::size_t> indexes);
  void RunLocalCommands();
  void RemoveUnfinished();
  void PrepareDirectories();
  void CopyFiles();
  void MakeLinks();
  void SendOn(IRemoteConnection& connection);
  void SendOnFurtherConnection();
  std::span<const TSendRequest> TakeBatch();
  void FileSent(std::size_t index, const TSendOutcome& outcome);
  void FinishOnTarget();
  std::string FinishOnTarget(const TPlannedFile& file);
  std::string RunStep(const TPlannedFile& file, const TAfterStep& step);

  const TDeployPlan& FPlan;
  const TDeployExecution& FExecution;
  IRemoteConnection& FConnection;
  TDeployReport& FReport;
  std::vector<TSendRequest> FWork; // files to be copied
  std::vector<std::size_t> FLinks; // to be made behind them
  std::mutex FMutex;               // of what stands below, of the rows and of the progress
  std::size_t FNext = 0;           // of the work
  std::vector<bool> FDone;
  std::vector<std::size_t> FToFinish;
  // The same as here, and the record does not know it: a run may have broken off there before it
  // could say what it did.
  std::vector<TSendRequest> FDoubtful;
  const THearLine FHear = [this](std::string_view line) {
    const std::lock_guard lock(FMutex);
    FExecution.Observer.CommandSaid(std::string(line));
  };
  std::string FLost; // why the connection broke
};

// What one connection takes from the work.
class TExecutor::TSendJob final : public ISendJob {
public:
  explicit TSendJob(TExecutor& executor) : FExecutor(executor) {}

  bool IsCancelled() const override { return FExecutor.IsCancelled(); }
  const TSendRequest* Next() override {
    if (FBatch.empty() && !IsCancelled())
      FBatch = FExecutor.TakeBatch();
    if (FBatch.empty())
      return nullptr;
    const TSendRequest* next = &FBatch.front();
    FBatch = FBatch.subspan(1);
    FOut.insert(next->Index);
    return next;
  }
  void BytesSent(std::uint64_t count) override {
    const std::lock_guard lock(FExecutor.FMutex);
    FExecutor.FExecution.Observer.BytesSent(count);
  }
  void FileDone(const TSendRequest& request, const TSendOutcome& outcome) override {
    FOut.erase(request.Index);
    FExecutor.FileSent(request.Index, outcome);
  }
  // The connection broke: files that it had taken are done with, one way or the other.
  void Break(const std::string& reason) {
    for (const TSendRequest& request : FBatch)
      FOut.insert(request.Index);
    for (const std::size_t index : FOut)
      FExecutor.Finish(index, FExecutor.IsCancelled() ? std::string(InterruptedReason) : reason);
  }

private:
  TExecutor& FExecutor;
  std::span<const TSendRequest> FBatch;
  std::unordered_set<std::size_t> FOut; // handed out and not done
};

// What files will owe when they are there is written down first, so that a run that breaks off
// between a copy and a command does not forget the command.
void TExecutor::Announce() {
  if (!FExecution.Keeper)
    return;
  for (const std::string& path : FPlan.Forgotten)
    FExecution.Keeper->Forget(path, /*wasRemoved=*/false);
  for (const TPlannedFile& file : FPlan.Files) {
    const bool stays = file.Action == TDeployAction::Copied ||
                       file.Action == TDeployAction::Unchanged ||
                       file.Action == TDeployAction::Mode;
    if (stays && !file.RecordPath.empty())
      FExecution.Keeper->Owe(file.RecordPath, KeysOf(file.Steps));
  }
  FExecution.Keeper->Begin(FConnection);
}

void TExecutor::FinishWhatNeedsNoCopy() {
  std::vector<std::size_t> others;
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    const TPlannedFile& file = FPlan.Files[i];
    if (file.Action == TDeployAction::Copied)
      FWork.push_back({file.File.LocalFile, file.Target, file.File.Executable, i,
                       file.There.Kind == TRemoteKind::File ? file.There.Size : 0});
    else
      others.push_back(i);
  }
  for (std::span<const std::size_t> rest(others); !rest.empty();) {
    FinishTogether(rest.first(std::min(LargestBatch, rest.size())));
    rest = rest.subspan(std::min(LargestBatch, rest.size()));
  }
}

// A target far away is asked once for all of them.
void TExecutor::FinishTogether(std::span<const std::size_t> indexes) {
  const std::vector<std::string> problems =
      IsCancelled() ? std::vector(indexes.size(), std::string(InterruptedReason))
                    : ChangeInPlace(FConnection, FPlan, indexes);
  for (std::size_t i = 0; i < indexes.size(); ++i) {
    const TPlannedFile& file = FPlan.Files[indexes[i]];
    const std::string& problem = file.Action == TDeployAction::Failed ? file.Reason : problems[i];
    if (problem.empty() && file.Action == TDeployAction::Removed && FExecution.Keeper)
      FExecution.Keeper->Forget(file.RecordPath, /*wasRemoved=*/true);
    const bool isKnown =
        file.Action == TDeployAction::Unchanged || file.Action == TDeployAction::Mode;
    if (problem.empty() && file.State == TFileState::Same && isKnown &&
        RememberFound(FExecution, file))
      FDoubtful.push_back({.LocalFile = file.File.LocalFile, .Target = file.Target});
    if (problem.empty() && file.Action != TDeployAction::Removed && !file.Steps.empty())
      FToFinish.push_back(indexes[i]);
    else
      Finish(indexes[i], problem);
  }
}

void TExecutor::RunLocalCommands() {
  for (const TSendRequest& request : FWork) {
    const std::string problem = RunLocalSteps(FPlan.Files[request.Index].File, FExecution.Directory,
                                              FExecution.Shared, FHear, FExecution.Cancelled);
    if (!problem.empty())
      Finish(request.Index, problem);
  }
  std::erase_if(FWork, [this](const TSendRequest& request) { return FDone[request.Index]; });
}

void TExecutor::RemoveUnfinished() {
  std::vector<TSendRequest> places = FWork;
  places.insert(places.end(), FDoubtful.begin(), FDoubtful.end());
  if (!places.empty())
    FConnection.RemoveUnfinished(places);
}

void TExecutor::PrepareDirectories() {
  if (IsCancelled())
    return;
  if (FWork.empty())
    return RemoveUnfinished();
  const std::vector<std::string> directories = DirectoriesOf(FWork);
  const std::vector<std::string> problems = FConnection.MakeDirectories(directories);
  RemoveUnfinished();
  std::unordered_map<std::string_view, const std::string*> problemOf;
  for (std::size_t i = 0; i < directories.size(); ++i)
    problemOf.emplace(directories[i], &problems[i]);
  for (const TSendRequest& request : FWork)
    if (const std::string& problem = *problemOf.at(request.Target.Directory); !problem.empty())
      Finish(request.Index, problem);
  // Links come when what they lead to is there.
  std::erase_if(FWork, [this](const TSendRequest& request) {
    const bool isLink = !FPlan.Files[request.Index].Link.empty();
    if (isLink && !FDone[request.Index])
      FLinks.push_back(request.Index);
    return isLink || FDone[request.Index];
  });
}

void TExecutor::MakeLinks() {
  for (const std::size_t index : FLinks) {
    const TPlannedFile& file = FPlan.Files[index];
    FileSent(index, {.Problem = IsCancelled() ? std::string(InterruptedReason)
                                              : FConnection.MakeLink(file.Target, file.Link),
                     .Size = file.Local.Size,
                     .Mode = file.Mode,
                     .Hash = file.Local.Hash});
  }
}

void TExecutor::CopyFiles() {
  const unsigned wanted = FExecution.Jobs > 0 ? FExecution.Jobs : FConnection.UsualConnections();
  const std::size_t batches = (FWork.size() + SmallestBatch - 1) / SmallestBatch;
  const std::size_t connections = std::min<std::size_t>({wanted, batches, MostJobs});
  std::vector<std::jthread> threads;
  for (std::size_t i = 1; i < connections; ++i)
    threads.emplace_back([this] { SendOnFurtherConnection(); });
  SendOn(FConnection);
}

// Without a further connection the others do its share.
void TExecutor::SendOnFurtherConnection() {
  std::shared_ptr<IRemoteConnection> connection;
  try {
    connection = FExecution.Connect();
  } catch (const TConnectionError&) {
    return;
  }
  SendOn(*connection);
}

void TExecutor::SendOn(IRemoteConnection& connection) {
  TSendJob job(*this);
  try {
    connection.Send(job);
  } catch (const TConnectionError& error) {
    Lost(error.what());
    job.Break(error.what());
  }
}

// Two connections in one directory wait for each other, so that a batch ends where a directory
// does.
std::span<const TSendRequest> TExecutor::TakeBatch() {
  const std::lock_guard lock(FMutex);
  const std::size_t start = FNext;
  std::size_t end = std::min(start + SmallestBatch, FWork.size());
  while (end > start && end < FWork.size() && end < start + LargestBatch &&
         FWork[end].Target.Directory == FWork[end - 1].Target.Directory)
    ++end;
  FNext = end;
  return std::span(FWork).subspan(start, end - start);
}

void TExecutor::FileSent(std::size_t index, const TSendOutcome& outcome) {
  const TPlannedFile& file = FPlan.Files[index];
  if (outcome.Problem.empty())
    RememberSent(FExecution, file, outcome);
  {
    const std::lock_guard lock(FMutex);
    Row(index).Bytes = outcome.Bytes;
    if (outcome.Problem.empty() && !file.Steps.empty()) {
      FToFinish.push_back(index);
      return;
    }
  }
  Finish(index, outcome.Problem);
}

void TExecutor::FinishOnTarget() {
  std::ranges::sort(FToFinish);
  for (const std::size_t index : FToFinish)
    Finish(index, FinishOnTarget(FPlan.Files[index]));
}

// A step that fails is owed, and those behind it are, too.
std::string TExecutor::FinishOnTarget(const TPlannedFile& file) {
  std::string problem;
  for (std::size_t done = 0; done < file.Steps.size() && problem.empty(); ++done) {
    problem = RunStep(file, file.Steps[done]);
    if (problem.empty() && FExecution.Keeper && !file.RecordPath.empty())
      FExecution.Keeper->Owe(file.RecordPath, KeysOf(std::span(file.Steps).subspan(done + 1)));
  }
  if (file.File.Operation == TDeployOperation::RunAndRemove) {
    // It comes back with the next deploy, and is run then.
    if (FExecution.Keeper && !file.RecordPath.empty())
      FExecution.Keeper->Owe(file.RecordPath, {});
    if (const std::string removal = FConnection.Remove(file.Target);
        problem.empty() && !removal.empty())
      problem = "ran, but cannot be removed: " + removal;
  }
  return problem;
}

std::string TExecutor::RunStep(const TPlannedFile& file, const TAfterStep& step) {
  const std::string start =
      file.Action == TDeployAction::Copied ? "was copied, but " : "is there, but ";
  if (IsCancelled())
    return start + std::string(InterruptedReason);
  const std::string problem =
      RunAfterStep(file, step, FExecution.Places, FConnection, FHear, FExecution.Cancelled);
  return problem.empty() ? problem : start + problem;
}

} // namespace

void ExecuteDeployPlan(const TDeployPlan& plan, const TDeployExecution& execution,
                       TDeployReport& report) {
  TExecutor(plan, execution, report).Run();
}

} // namespace workbench
