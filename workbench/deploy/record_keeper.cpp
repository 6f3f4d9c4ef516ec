#include "workbench/deploy/record_keeper.h"

#include <algorithm>
#include <chrono>
#include <system_error>
#include <utility>

namespace workbench {
namespace {

using TClock = std::chrono::steady_clock;

constexpr std::chrono::seconds WriteInterval(2);
constexpr int WorkShare = 10; // the text is made in at most a tenth of the time

} // namespace

TRecordKeeper::TRecordKeeper(const TRecordStore& store, TTargetLock& lock, TTargetRecord record,
                             bool isWritten, TRecordedRun run, TConnect connect)
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
  auto refreshed = TClock::now();
  std::chrono::nanoseconds pause = WriteInterval;
  std::unique_lock lock(FMutex);
  while (!FWake.wait_for(lock, pause, [this] { return FIsOver; })) {
    const auto begun = TClock::now();
    const std::uint64_t changes = FChanges;
    const std::unique_ptr<TSentText> text = changes != written ? TextSoFar() : nullptr;
    lock.unlock();
    // The deploy waits while the text is made, and is not to spend its time with that.
    pause = std::max<std::chrono::nanoseconds>(WriteInterval, (TClock::now() - begun) * WorkShare);
    try {
      if (!connection)
        connection = FConnect();
      if (text && FStore.Write(*connection, *text).empty())
        written = changes;
      const auto now = TClock::now();
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

// The record as it is now, without a copy of it: there may be a hundred thousand files in it.
// Nothing where this machine has no room for it, since the last writing will say so.
std::unique_ptr<TSentText> TRecordKeeper::TextSoFar() const {
  try {
    return std::make_unique<TSentText>([this](const TTakeText& take) {
      WriteRecord(FRecord, RunsWith(TRunResult::Partly), take);
    });
  } catch (const std::system_error&) {
    return nullptr;
  }
}

std::vector<TRecordedRun> TRecordKeeper::RunsWith(TRunResult result) const {
  std::vector<TRecordedRun> runs;
  runs.reserve(FRecord.Runs.size() + 1);
  if (FRun.Copied + FRun.Removed + FRun.Failed > 0) {
    runs.push_back(FRun);
    runs.back().Result = result;
  }
  runs.insert(runs.end(), FRecord.Runs.begin(), FRecord.Runs.end());
  runs.resize(std::min(runs.size(), MostRuns));
  return runs;
}

void TRecordKeeper::Begin(IRemoteConnection& connection) {
  std::unique_lock lock(FMutex);
  if (!FOwes)
    return;
  const std::unique_ptr<TSentText> text = TextSoFar();
  lock.unlock();
  if (text)
    FStore.Write(connection, *text);
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
    FRecord.Runs = RunsWith(isDone ? TRunResult::Done : TRunResult::Partly);
  return isChanged ? FStore.Write(connection, FRecord, FRecord.Runs) : std::string();
}

} // namespace workbench
