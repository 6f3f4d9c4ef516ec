#include "workbench/remote/deploy_executor.h"

#include "workbench/remote/command_runner.h"

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
constexpr unsigned UsualJobs = 4;
constexpr std::string_view Interrupted = "the run was interrupted";

// The text in quotes of the shell.
std::string Quoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text)
    quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
  return quoted + "'";
}

std::string UnpackCommand(const std::string& file) {
  return (file.ends_with(".zip") ? "unzip -o -q " : "tar -xf ") + Quoted(file);
}

class TExecutor {
public:
  TExecutor(const TDeployPlan& plan, IRemoteConnection& connection, const TConnect& connect,
            const std::filesystem::path& directory, TDeployRun& run)
      : FPlan(plan), FConnection(connection), FConnect(connect), FDirectory(directory), FRun(run),
        FDone(plan.Files.size(), false) {}

  void Run() {
    FinishWhatNeedsNoCopy();
    RunLocalCommands();
    PrepareDirectories();
    CopyFiles();
    FinishOnTarget();
    for (std::size_t i = 0; i < FPlan.Files.size(); ++i)
      Finish(i, std::string(Interrupted)); // what is not done yet was never begun
  }

private:
  class TLaneObserver;

  TDeployRow& Row(std::size_t index) { return FRun.Report.Rows[index]; }
  bool IsCancelled() const { return FRun.Cancelled != 0; }

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
    if (FRun.Progress)
      FRun.Progress->RowDone(index, Row(index));
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
  void RunLane(IRemoteConnection& connection);
  void RunFurtherLane();
  std::vector<std::size_t> TakeBatch();
  void FileSent(std::size_t index, const TSendOutcome& outcome);
  void FinishOnTarget();
  std::string FinishOnTarget(const TPlannedFile& file);

  const TDeployPlan& FPlan;
  IRemoteConnection& FConnection;
  const TConnect& FConnect;
  const std::filesystem::path& FDirectory;
  TDeployRun& FRun;
  std::vector<std::size_t> FWork; // files to be copied
  std::mutex FMutex;              // of what stands below, of the rows and of the progress
  std::size_t FNext = 0;          // of the work
  std::vector<bool> FDone;
  std::vector<std::size_t> FToFinish;
};

class TExecutor::TLaneObserver final : public ISendObserver {
public:
  TLaneObserver(TExecutor& executor, std::span<const std::size_t> batch)
      : FExecutor(executor), FBatch(batch) {}

  bool IsCancelled() const override { return FExecutor.IsCancelled(); }
  void BytesSent(std::uint64_t count) override {
    if (!FExecutor.FRun.Progress)
      return;
    const std::lock_guard lock(FExecutor.FMutex);
    FExecutor.FRun.Progress->BytesSent(count);
  }
  void FileDone(std::size_t index, const TSendOutcome& outcome) override {
    FExecutor.FileSent(FBatch[index], outcome);
  }

private:
  TExecutor& FExecutor;
  std::span<const std::size_t> FBatch;
};

void TExecutor::FinishWhatNeedsNoCopy() {
  for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
    const TPlannedFile& file = FPlan.Files[i];
    if (file.Action == TDeployAction::Copied) {
      FWork.push_back(i);
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
  for (const std::size_t index : FWork) {
    for (const std::string& command : FPlan.Files[index].File.LocalCommands) {
      std::string problem(Interrupted);
      if (!IsCancelled())
        problem = RunCommandLine(command, FDirectory, FRun.Cancelled);
      if (problem.empty())
        continue;
      Finish(index,
             std::string("the local command \"").append(command).append("\" ").append(problem));
      break;
    }
  }
  std::erase_if(FWork, [this](std::size_t index) { return FDone[index]; });
}

void TExecutor::PrepareDirectories() {
  std::unordered_map<std::string, std::size_t> known;
  std::vector<std::string> directories;
  for (const std::size_t index : FWork) {
    const std::string& directory = FPlan.Files[index].Target.Directory;
    if (known.emplace(directory, directories.size()).second)
      directories.push_back(directory);
  }
  if (IsCancelled())
    return;
  const std::vector<std::string> problems = FConnection.MakeDirectories(directories);
  FConnection.RemoveUnfinished(directories);
  for (const std::size_t index : FWork) {
    const std::string& problem = problems[known.at(FPlan.Files[index].Target.Directory)];
    if (!problem.empty())
      Finish(index, problem);
  }
  std::erase_if(FWork, [this](std::size_t index) { return FDone[index]; });
}

void TExecutor::CopyFiles() {
  const unsigned wanted = FRun.Options.Jobs > 0
                              ? FRun.Options.Jobs
                              : std::clamp(std::thread::hardware_concurrency(), 1U, UsualJobs);
  const std::size_t batches = (FWork.size() + SmallestBatch - 1) / SmallestBatch;
  const std::size_t lanes = std::min<std::size_t>({wanted, batches, MostJobs});
  std::vector<std::jthread> threads;
  for (std::size_t i = 1; i < lanes; ++i)
    threads.emplace_back([this] { RunFurtherLane(); });
  RunLane(FConnection);
}

// Without a further lane the others do its share.
void TExecutor::RunFurtherLane() {
  std::unique_ptr<IRemoteConnection> connection;
  try {
    connection = FConnect();
  } catch (const TConnectionError&) {
    return;
  }
  RunLane(*connection);
}

void TExecutor::RunLane(IRemoteConnection& connection) {
  for (auto batch = TakeBatch(); !batch.empty() && !IsCancelled(); batch = TakeBatch()) {
    std::vector<TSendRequest> requests;
    requests.reserve(batch.size());
    for (const std::size_t index : batch) {
      const TPlannedFile& file = FPlan.Files[index];
      requests.push_back({file.File.LocalFile, file.Target, file.File.Executable});
    }
    TLaneObserver observer(*this, batch);
    try {
      connection.Send(requests, observer);
    } catch (const TConnectionError& error) {
      for (const std::size_t index : batch)
        Finish(index, error.what());
    }
  }
}

// Two lanes in one directory wait for each other, so that a batch ends where a directory does.
std::vector<std::size_t> TExecutor::TakeBatch() {
  const std::lock_guard lock(FMutex);
  const std::size_t start = FNext;
  const auto directoryOf = [this](std::size_t position) -> const std::string& {
    return FPlan.Files[FWork[position]].Target.Directory;
  };
  std::size_t end = std::min(start + SmallestBatch, FWork.size());
  while (end < FWork.size() && end < start + LargestBatch &&
         directoryOf(end) == directoryOf(end - 1))
    ++end;
  FNext = end;
  return {FWork.begin() + static_cast<std::ptrdiff_t>(start),
          FWork.begin() + static_cast<std::ptrdiff_t>(end)};
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
        FConnection.RunCommand(command, file.Target.Directory, FRun.Cancelled);
    return problem.empty() ? problem : "was copied, but \"" + command + "\" " + problem;
  };
  const TDeployOperation operation = file.File.Operation;
  const bool runs =
      operation == TDeployOperation::Run || operation == TDeployOperation::RunAndRemove;
  std::string problem;
  if (operation == TDeployOperation::Unpack)
    problem = run(UnpackCommand("./" + file.Target.Name));
  else if (runs)
    problem = run(Quoted("./" + file.Target.Name));
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

void ExecuteDeployPlan(const TDeployPlan& plan, IRemoteConnection& connection,
                       const TConnect& connect, const std::filesystem::path& directory,
                       TDeployRun& run) {
  TExecutor(plan, connection, connect, directory, run).Run();
}

std::vector<TDeployRow> RowsOf(const TDeployPlan& plan) {
  std::vector<TDeployRow> rows;
  rows.reserve(plan.Files.size());
  for (const TPlannedFile& file : plan.Files)
    rows.push_back({file.File.LocalName, file.RemoteFile(), file.Action, file.Bytes, file.Reason});
  return rows;
}

} // namespace workbench
