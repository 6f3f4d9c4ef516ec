#include "workbench/deploy/record/target_lock.h"

#include "package/common/errors.h"
#include "workbench/deploy/record/record_place.h"
#include "workbench/files/ended_process.h"
#include "workbench/files/user_name.h"
#include "workbench/json/json.h"
#include "workbench/remote/target/unfinished_names.h"
#include "workbench/text/visible_text.h"

#include <array>
#include <limits>
#include <stdexcept>
#include <unistd.h>

namespace workbench {
namespace {

constexpr std::uint64_t LargestLock = 4096;
constexpr int Attempts = 10; // others may take it and give it back meanwhile
// Where a file cannot appear whole, a lock says whose it is right after it is made; one that does
// not was given up at once.
constexpr std::chrono::seconds EmptyLockAge(5);
// Of the lock that allows to remove another one. So many ends in a row, each while a stale lock is
// taken over, leave names of this length, and no further ones are made.
constexpr std::string_view TakeoverSuffix = "-takeover";
constexpr std::size_t LongestLockName = LockName.size() + 3 * TakeoverSuffix.size();

std::string LockText(const TLockHolder& holder) {
  return JsonText({{"by", holder.By},
                   {"machine", holder.Machine},
                   {"machineMark", holder.MachineMark},
                   {"process", holder.Process},
                   {"since", holder.Since}},
                  -1) +
         "\n";
}

TLockHolder HolderOf(const std::string& text) {
  constexpr unsigned MostProcesses = std::numeric_limits<pid_t>::max();
  try {
    const TJson value = ParseJson(text);
    return {.By = value.Text("by"),
            .Machine = value.Text("machine"),
            .MachineMark = value.TextOr("machineMark", {}),
            .Process = value.Number<unsigned>("process", 0, MostProcesses),
            .Since = value.Text("since")};
  } catch (const deployment::TInputError&) {
    return {.By = "somebody", .Machine = "a machine that it does not name"};
  }
}

bool IsGone(const TLockHolder& holder) {
  return !holder.MachineMark.empty() && holder.MachineMark == ThisMachineMark() &&
         HasProcessEnded(holder.Process);
}

} // namespace

std::string TLockHolder::Text() const {
  std::string text = By + " on " + Machine;
  if (Process > 0)
    text += " (process " + std::to_string(Process) + ")";
  return Visible(Since.empty() ? text : text + ", since " + Since);
}

TLockHolder ThisHolder(const std::string& since) {
  return {.By = UserName(),
          .Machine = MachineName(),
          .MachineMark = ThisMachineMark(),
          .Process = ::getpid(),
          .Since = since};
}

TRemoteName TTargetLock::Name() const {
  return {FDirectory, std::string(LockName)};
}

TTargetLock::TFound TTargetLock::Find(IRemoteConnection& connection,
                                      const TRemoteName& name) const {
  const TRemoteStatus status = connection.Examine({&name, 1}).front();
  if (status.Kind == TRemoteKind::None && status.Problem.empty())
    return {};
  TFound found{.IsThere = true};
  const std::string text = connection.ReadFile(name, LargestLock).Text;
  TLockHolder holder = HolderOf(text);
  const auto age = FNow() - status.Modified;
  const bool isStale = age > (text.empty() ? EmptyLockAge : StaleLockAge) || IsGone(holder);
  if (status.Kind != TRemoteKind::File || !isStale)
    found.Living = std::move(holder);
  return found;
}

std::optional<TLockHolder> TTargetLock::Holder(IRemoteConnection& connection) const {
  return Find(connection, Name()).Living;
}

std::optional<TLockHolder> TTargetLock::Take(IRemoteConnection& connection, const TLockHolder& self,
                                             bool breakIt) {
  FText = LockText(self);
  if (auto holder = TakeName(connection, Name(), breakIt))
    return holder;
  FRefreshed = FNow();
  FIsTaken = true;
  return std::nullopt;
}

std::optional<TLockHolder> TTargetLock::TakeName(IRemoteConnection& connection,
                                                 const TRemoteName& name, bool breakIt) const {
  std::string problem;
  for (int attempt = 0; attempt < Attempts; ++attempt) {
    // The clocks of two machines may differ.
    const TRemoteCreation made = connection.CreateFile(name, FText, FNow());
    if (made.Result == TRemoteCreation::TResult::Made)
      return std::nullopt;
    problem = made.Problem;
    if (made.Result == TRemoteCreation::TResult::Failed)
      break;
    TFound found = Find(connection, name);
    if (!found.IsThere)
      continue; // it was taken back
    if (found.Living && !breakIt)
      return std::move(found.Living);
    if (auto holder = RemoveStale(connection, name, breakIt))
      return holder;
  }
  throw std::runtime_error("the target cannot be locked: " + problem);
}

// Two who find the same stale lock must not both remove it: the second would remove the lock that
// the first has made since. Whoever removes one has a lock on that, which may go stale as well.
std::optional<TLockHolder> TTargetLock::RemoveStale(IRemoteConnection& connection,
                                                    const TRemoteName& name, bool breakIt) const {
  const TRemoteName right{name.Directory, name.Name + std::string(TakeoverSuffix)};
  const bool isGuarded = right.Name.size() <= LongestLockName;
  if (isGuarded) {
    if (auto holder = TakeName(connection, right, /*breakIt=*/false))
      return holder;
  }
  const TFound found = Find(connection, name);
  if (found.IsThere && (breakIt || !found.Living)) {
    connection.Remove(name);
    // A holder that died may have been writing beside its lock.
    connection.RemoveUnfinished(std::array{TSendRequest{.LocalFile = {}, .Target = name}});
  }
  if (isGuarded)
    connection.Remove(right);
  return std::nullopt;
}

// One that was not refreshed for long, as on a machine that slept, may be somebody else's by now.
bool TTargetLock::IsOurs(IRemoteConnection& connection) const {
  return FNow() - FRefreshed <= StaleLockAge ||
         connection.ReadFile(Name(), LargestLock).Text == FText;
}

void TTargetLock::Refresh(IRemoteConnection& connection) {
  if (!FIsTaken || !IsOurs(connection))
    return;
  FRefreshed = FNow();
  connection.SetTime(Name(), FRefreshed);
}

void TTargetLock::Release(IRemoteConnection& connection) {
  if (!FIsTaken)
    return;
  FIsTaken = false;
  if (IsOurs(connection))
    connection.Remove(Name());
}

} // namespace workbench
