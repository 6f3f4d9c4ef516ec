#include "workbench/deploy/record/target_lock.h"

#include "workbench/deploy/record/record_place.h"
#include "workbench/files/user_name.h"
#include "workbench/remote/target/unfinished_names.h"
#include "workbench/text/visible_text.h"

#include <nlohmann/json.hpp>

#include <cerrno>
#include <csignal>
#include <stdexcept>
#include <unistd.h>

namespace workbench {
namespace {

using TJsonValue = nlohmann::ordered_json;

constexpr std::uint64_t LargestLock = 4096;
constexpr int Attempts = 3;

std::string LockText(const TLockHolder& holder) {
  return TJsonValue{{"by", holder.By},
                    {"machine", holder.Machine},
                    {"machineMark", holder.MachineMark},
                    {"process", holder.Process},
                    {"since", holder.Since}}
             .dump(-1, ' ', false, TJsonValue::error_handler_t::replace) +
         "\n";
}

TLockHolder HolderOf(const std::string& text) {
  try {
    const TJsonValue value = TJsonValue::parse(text);
    return {.By = value.at("by").get<std::string>(),
            .Machine = value.at("machine").get<std::string>(),
            .MachineMark = value.value("machineMark", std::string()),
            .Process = value.at("process").get<long>(),
            .Since = value.at("since").get<std::string>()};
  } catch (const TJsonValue::exception&) {
    return {.By = "somebody", .Machine = "a machine that it does not name"};
  }
}

bool IsGone(const TLockHolder& holder) {
  return !holder.MachineMark.empty() && holder.MachineMark == ThisMachineMark() &&
         holder.Process > 0 && ::kill(static_cast<pid_t>(holder.Process), 0) != 0 && errno == ESRCH;
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
  TLockHolder holder = HolderOf(connection.ReadFile(name, LargestLock).Text);
  const auto age = std::chrono::system_clock::now() - status.Modified;
  if (status.Kind == TRemoteKind::File && (age > StaleLockAge || IsGone(holder)))
    return std::nullopt;
  return holder;
}

std::optional<TLockHolder> TTargetLock::Take(IRemoteConnection& connection, const TLockHolder& self,
                                             bool breakIt) {
  std::string problem;
  for (int attempt = 0; attempt < Attempts; ++attempt) {
    const TRemoteCreation made = connection.CreateFile(Name(), LockText(self));
    if (made.Result == TRemoteCreation::TResult::Made) {
      FIsTaken = true;
      Refresh(connection); // the clocks of two machines may differ
      return std::nullopt;
    }
    problem = made.Problem;
    if (made.Result == TRemoteCreation::TResult::Failed)
      break;
    if (const auto holder = Holder(connection); holder && !breakIt)
      return holder;
    connection.Remove(Name());
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
