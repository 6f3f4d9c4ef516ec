#include "workbench/deploy/deploy_executor.h"

#include "workbench/process/command_runner.h"
#include "workbench/process/shell_text.h"

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
constexpr unsigned MostJobs = 64;
constexpr std::string_view Interrupted = "the run was interrupted";

std::string UnpackCommand(const std::string& file) {
  return (file.ends_with(".zip") ? "unzip -o -q " : "tar -xf ") + ShellQuoted(file);
}

class TExecutor {
public:
  TExecutor(const TDeployPlan& plan, const TDeployExecution& execution, TDeployReport& report)
      : FPlan(plan), FExecution(execution), FConnection(execution.Connection), FReport(report),
        FDone(plan.Files.size(), false) {}

  void Run() {
    try {
      FinishWhatNeedsNoCopy();
      RunLocalCommands();
      PrepareDirectories();
      CopyFiles();
      FinishOnTarget();
    } catch (const TConnectionError& error) {
      Lost(error.what());
    }
    // What is not done yet was never begun, or begun on a line that broke.
    const std::string reason = FLost.empty() ? std::string(Interrupted) : FLost;
    for (std::size_t i = 0; i < FPlan.Files.size(); ++i)
      Finish(i, reason);
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
    FExecution.Observer.RowDone(index, Row(index));
  }

  bool NeedsFinishing(const TPlannedFile& file) const {
    return !file.File.RemoteCommands.empty() || file.File.Operation == TDeployOperation::Unpack ||
           file.File.Operation == TDeployOperation::Run ||
           file.File.Operation == TDeployOperation::RunAndRemove;
  }

  void FinishWhatNeedsNoCopy();
  void RunLocalCommands();
  void PrepareDirectories();
  void CopyFiles();
  void SendOn(IRemoteConnection& connection);
  void SendOnFurtherConnection();
  std::span<const TSendRequest> TakeBatch();
  void FileSent(std::size_t index, const TSendOutcome& outcome);
  void FinishOnTarget();
  std::string FinishOnTarget(const TPlannedFile& file);

  const TDeployPlan& FPlan;
  const TDeployExecution& FExecution;
  IRemoteConnection& FConnection;
  TDeployReport& FReport;
  std::vector<TSendRequest> FWork; // files to be copied
  std::mutex FMutex;               // of what stands below, of the rows and of the progress
  std::size_t FNext = 0;           // of the work
  std::vector<bool> FDone;
  std::vector<std::size_t> FToFinish;
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
      FExecutor.Finish(index, FExecutor.IsCancelled() ? std::string(Interrupted) : reason);
  }

private:
  TExecutor& FExecutor;
  std::span<const TSendRequest> FBatch;
  std::unordered_set<std::size_t> FOut; // handed out and not done
};

void TExecutor::FinishWhatNeedsNoCopy() {
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    const TPlannedFile& file = FPlan.Files[i];
    if (file.Action == TDeployAction::Copied) {
      FWork.push_back({file.File.LocalFile, file.Target, file.File.Executable, i});
      continue;
    }
    std::string problem = file.Action == TDeployAction::Failed ? file.Reason : std::string();
    if (IsCancelled())
      problem = Interrupted;
    else if (file.Action == TDeployAction::Removed)
      problem = FConnection.Remove(file.Target);
    else if (file.Action == TDeployAction::Unchanged && file.TimeDiffers)
      problem = FConnection.SetTime(file.Target, file.LocalTime);
    Finish(i, problem);
  }
}

void TExecutor::RunLocalCommands() {
  for (const TSendRequest& request : FWork) {
    for (const std::string& command : FPlan.Files[request.Index].File.LocalCommands) {
      std::string problem(Interrupted);
      if (!IsCancelled())
        problem = RunCommandLine(command, FExecution.Directory, FHear, FExecution.Cancelled);
      if (problem.empty())
        continue;
      Finish(request.Index,
             std::string("the local command \"").append(command).append("\" ").append(problem));
      break;
    }
  }
  std::erase_if(FWork, [this](const TSendRequest& request) { return FDone[request.Index]; });
}

void TExecutor::PrepareDirectories() {
  if (IsCancelled() || FWork.empty())
    return;
  const std::vector<std::string> directories = DirectoriesOf(FWork);
  const std::vector<std::string> problems = FConnection.MakeDirectories(directories);
  FConnection.RemoveUnfinished(FWork);
  std::unordered_map<std::string_view, const std::string*> problemOf;
  for (std::size_t i = 0; i < directories.size(); ++i)
    problemOf.emplace(directories[i], &problems[i]);
  for (const TSendRequest& request : FWork) {
    const std::string& problem = *problemOf.at(request.Target.Directory);
    if (!problem.empty())
      Finish(request.Index, problem);
  }
  std::erase_if(FWork, [this](const TSendRequest& request) { return FDone[request.Index]; });
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
  {
    const std::lock_guard lock(FMutex);
    Row(index).Bytes = outcome.Bytes;
    if (outcome.Problem.empty() && NeedsFinishing(FPlan.Files[index])) {
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

std::string TExecutor::FinishOnTarget(const TPlannedFile& file) {
  const auto run = [&](const std::string& command) -> std::string {
    if (IsCancelled())
      return "was copied, but " + std::string(Interrupted);
    const std::string problem =
        FConnection.RunCommand(command, file.Target.Directory, FHear, FExecution.Cancelled);
    return problem.empty() ? problem : "was copied, but \"" + command + "\" " + problem;
  };
  const TDeployOperation operation = file.File.Operation;
  const bool runs =
      operation == TDeployOperation::Run || operation == TDeployOperation::RunAndRemove;
  std::string problem;
  if (operation == TDeployOperation::Unpack)
    problem = run(UnpackCommand("./" + file.Target.Name));
  else if (runs)
    problem = run(ShellQuoted("./" + file.Target.Name));
  for (const std::string& command : file.File.RemoteCommands) {
    if (problem.empty())
      problem = run(command);
  }
  if (operation == TDeployOperation::RunAndRemove) {
    const std::string removal = FConnection.Remove(file.Target);
    if (problem.empty() && !removal.empty())
      problem = "ran, but cannot be removed: " + removal;
  }
  return problem;
}

} // namespace

void ExecuteDeployPlan(const TDeployPlan& plan, const TDeployExecution& execution,
                       TDeployReport& report) {
  TExecutor(plan, execution, report).Run();
}

std::vector<TDeployRow> RowsOf(const TDeployPlan& plan) {
  std::vector<TDeployRow> rows;
  rows.reserve(plan.Files.size());
  for (const TPlannedFile& file : plan.Files)
    rows.push_back({file.File.LocalName, file.RemoteFile(), file.Action, file.Bytes, file.Reason});
  return rows;
}

} // namespace workbench
