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
constexpr int Attempts = 3;
// Where a file cannot appear whole, a lock says whose it is right after it is made; one that does
// not was given up at once.
constexpr std::chrono::seconds EmptyLockAge(5);

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

std::optional<TLockHolder> TTargetLock::Holder(IRemoteConnection& connection) const {
  const TRemoteName name = Name();
  const TRemoteStatus status = connection.Examine({&name, 1}).front();
  if (status.Kind == TRemoteKind::None && status.Problem.empty())
    return std::nullopt;
  const std::string text = connection.ReadFile(name, LargestLock).Text;
  TLockHolder holder = HolderOf(text);
  const auto age = std::chrono::system_clock::now() - status.Modified;
  const bool isStale = age > (text.empty() ? EmptyLockAge : StaleLockAge) || IsGone(holder);
  if (status.Kind == TRemoteKind::File && isStale)
    return std::nullopt;
  return holder;
}

std::optional<TLockHolder> TTargetLock::Take(IRemoteConnection& connection, const TLockHolder& self,
                                             bool breakIt) {
  std::string problem;
  for (int attempt = 0; attempt < Attempts; ++attempt) {
    // The clocks of two machines may differ.
    const TRemoteCreation made =
        connection.CreateFile(Name(), LockText(self), std::chrono::system_clock::now());
    if (made.Result == TRemoteCreation::TResult::Made) {
      FIsTaken = true;
      return std::nullopt;
    }
    problem = made.Problem;
    if (made.Result == TRemoteCreation::TResult::Failed)
      break;
    if (auto holder = Holder(connection); holder && !breakIt)
      return holder;
    connection.Remove(Name());
    // A holder that died may have been writing beside its lock.
    connection.RemoveUnfinished(std::array{TSendRequest{.LocalFile = {}, .Target = Name()}});
  }
  throw std::runtime_error("the target cannot be locked: " + problem);
}

void TTargetLock::Refresh(IRemoteConnection& connection) const {
  if (FIsTaken)
    connection.SetTime(Name(), std::chrono::system_clock::now());
}

void TTargetLock::Release(IRemoteConnection& connection) {
  if (!FIsTaken)
    return;
  FIsTaken = false;
  connection.Remove(Name());
}

} // namespace workbench
