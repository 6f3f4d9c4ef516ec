#include "workbench/deploy/record_keeper.h"

#include <chrono>
#include <utility>

namespace workbench {
namespace {

constexpr std::chrono::seconds WriteInterval(2);

} // namespace

TRecordKeeper::TRecordKeeper(const TRecordStore& store, const TTargetLock& lock,
                             TTargetRecord record, bool isWritten, TRecordedRun run,
                             TConnect connect)
    : FStore(store), FLock(lock), FRun(std::move(run)), FConnect(std::move(connect)),
      FRecord(std::move(record)), FChanges(isWritten ? 0 : 1), FThread([this] { Work(); }) {}

TRecordKeeper::~TRecordKeeper() {
  {
    const std::lock_guard lock(FMutex);
    FIsOver = true;
  }
  FWake.notify_all();
  if (FThread.joinable())
    FThread.join();
}

// Most deploys are over before the first interval is, and need no further connection.
void TRecordKeeper::Work() {
  std::shared_ptr<IRemoteConnection> connection;
  std::uint64_t written = 0; // how many changes the target has
  auto refreshed = std::chrono::steady_clock::now();
  std::unique_lock lock(FMutex);
  while (!FWake.wait_for(lock, WriteInterval, [this] { return FIsOver; })) {
    const std::uint64_t changes = FChanges;
    const TTargetRecord current =
        changes != written ? Current(TRunResult::Partly) : TTargetRecord();
    lock.unlock();
    try {
      if (!connection)
        connection = FConnect();
      if (changes != written && FStore.Write(*connection, current).empty())
        written = changes;
      const auto now = std::chrono::steady_clock::now();
      if (now - refreshed >= LockInterval) {
        FLock.Refresh(*connection);
        refreshed = now;
      }
    } catch (const TConnectionError&) {
      connection = nullptr; // the deploy itself will say so
    }
    lock.lock();
  }
}

TTargetRecord TRecordKeeper::Current(TRunResult result) const {
  TTargetRecord record = FRecord;
  AddRun(record, result);
  return record;
}

void TRecordKeeper::AddRun(TTargetRecord& record, TRunResult result) const {
  TRecordedRun run = FRun;
  run.Result = result;
  if (run.Copied + run.Removed + run.Failed > 0)
    record.Runs.insert(record.Runs.begin(), std::move(run));
  if (record.Runs.size() > MostRuns)
    record.Runs.resize(MostRuns);
}

void TRecordKeeper::Begin(IRemoteConnection& connection) {
  std::unique_lock lock(FMutex);
  if (!FOwes)
    return;
  const TTargetRecord current = Current(TRunResult::Partly);
  lock.unlock();
  FStore.Write(connection, current);
}

void TRecordKeeper::Put(const std::string& path, TRecordedFile file, bool wasCopied) {
  const std::lock_guard lock(FMutex);
  if (wasCopied) {
    ++FRun.Copied;
    file.Run = FRun.Id;
  }
  TRecordedFile& known = FRecord.Files[path];
  if (known == file)
    return;
  known = std::move(file);
  ++FChanges;
}

void TRecordKeeper::Forget(const std::string& path, bool wasRemoved) {
  const std::lock_guard lock(FMutex);
  FRun.Removed += wasRemoved ? 1 : 0;
  FChanges += FRecord.Files.erase(path) + FRecord.Owed.erase(path);
}

void TRecordKeeper::Owe(const std::string& path, std::vector<std::string> steps) {
  const std::lock_guard lock(FMutex);
  if (steps.empty()) {
    FChanges += FRecord.Owed.erase(path);
    return;
  }
  std::vector<std::string>& known = FRecord.Owed[path];
  if (known == steps)
    return;
  known = std::move(steps);
  ++FChanges;
  FOwes = true;
}

void TRecordKeeper::OweAfterDeploy(std::string command) {
  const std::lock_guard lock(FMutex);
  if (FRecord.OwedAfterDeploy == command)
    return;
  FRecord.OwedAfterDeploy = std::move(command);
  ++FChanges;
  FOwes = true;
}

void TRecordKeeper::Failed() {
  const std::lock_guard lock(FMutex);
  ++FRun.Failed;
}

std::optional<TRecordedFile> TRecordKeeper::Find(const std::string& path) const {
  const std::lock_guard lock(FMutex);
  const auto found = FRecord.Files.find(path);
  return found == FRecord.Files.end() ? std::nullopt : std::optional(found->second);
}

std::string TRecordKeeper::End(IRemoteConnection& connection, bool interrupted) {
  {
    const std::lock_guard lock(FMutex);
    FIsOver = true;
  }
  FWake.notify_all();
  FThread.join();
  const bool isDone = FRun.Failed == 0 && !interrupted;
  const bool isChanged = FRun.Copied + FRun.Removed > 0 || HasChanges();
  if (isChanged)
    AddRun(FRecord, isDone ? TRunResult::Done : TRunResult::Partly);
  return isChanged ? FStore.Write(connection, FRecord) : std::string();
}

} // namespace workbench
