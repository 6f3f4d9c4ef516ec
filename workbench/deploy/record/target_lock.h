// Keeps two deploys of one project from one target at a time.
#pragma once

#include "workbench/remote/target/remote_connection.h"

#include <chrono>
#include <optional>
#include <string>

namespace workbench {

/// The deploy that has a lock, as the lock says it.
struct TLockHolder {
  std::string By = {};
  std::string Machine = {};
  std::string MachineMark = {}; ///< stands for the machine since it was started
  long Process = 0;
  std::string Since = {}; ///< UTC, as in the record

  /// "eva on bench (process 4711), since 2026-11-22T00:31:21Z", made visible.
  std::string Text() const;
};

/// This process.
TLockHolder ThisHolder(const std::string& since);

/// A lock whose holder has not refreshed it for that long is taken over.
inline constexpr std::chrono::seconds StaleLockAge(60);
/// How often its holder refreshes it.
inline constexpr std::chrono::seconds LockInterval(10);

/// The lock in a record's directory, which must be there. Not taken back by the destructor: that
/// needs a connection.
class TTargetLock {
public:
  explicit TTargetLock(std::string directory) : FDirectory(std::move(directory)) {}

  /// Takes the lock; the holder when somebody else has it, unless `breakIt` is set. Throws
  /// TConnectionError, and std::runtime_error with the reason where no lock can be made.
  std::optional<TLockHolder> Take(IRemoteConnection& connection, const TLockHolder& self,
                                  bool breakIt);
  /// The living holder of the lock, when that is somebody else; nothing when it can be taken.
  std::optional<TLockHolder> Holder(IRemoteConnection& connection) const;
  /// Says that the holder lives.
  void Refresh(IRemoteConnection& connection) const;
  /// Takes the lock back; nothing happens when it is not taken.
  void Release(IRemoteConnection& connection);
  bool IsTaken() const { return FIsTaken; }

private:
  TRemoteName Name() const;

  std::string FDirectory;
  bool FIsTaken = false;
};

} // namespace workbench
