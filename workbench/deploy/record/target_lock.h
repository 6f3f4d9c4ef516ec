// Keeps two deploys of one project from one target at a time.
#pragma once

#include "workbench/remote/target/remote_connection.h"

#include <chrono>
#include <functional>
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
  using TNow = std::function<std::chrono::system_clock::time_point()>;

  explicit TTargetLock(std::string directory, TNow now = &std::chrono::system_clock::now)
      : FDirectory(std::move(directory)), FNow(std::move(now)) {}

  /// Takes the lock; the holder when somebody else has it, unless `breakIt` is set. Of all who find
  /// one that is stale, one alone takes it over. Throws TConnectionError, and std::runtime_error
  /// with the reason where no lock can be made.
  std::optional<TLockHolder> Take(IRemoteConnection& connection, const TLockHolder& self,
                                  bool breakIt);
  /// The living holder of the lock, when that is somebody else; nothing when it can be taken.
  std::optional<TLockHolder> Holder(IRemoteConnection& connection) const;
  /// Says that the holder lives.
  void Refresh(IRemoteConnection& connection);
  /// Takes the lock back; nothing happens when it is not taken, or is somebody else's by now.
  void Release(IRemoteConnection& connection);
  bool IsTaken() const { return FIsTaken; }

private:
  // What stands under the name of a lock.
  struct TFound {
    bool IsThere = false;
    std::optional<TLockHolder> Living = {};
  };

  TRemoteName Name() const;
  TFound Find(IRemoteConnection& connection, const TRemoteName& name) const;
  std::optional<TLockHolder> TakeName(IRemoteConnection& connection, const TRemoteName& name,
                                      bool breakIt) const;
  std::optional<TLockHolder> RemoveStale(IRemoteConnection& connection, const TRemoteName& name,
                                         bool breakIt) const;
  bool IsOurs(IRemoteConnection& connection) const;

  std::string FDirectory;
  TNow FNow;
  std::string FText; // of our lock
  std::chrono::system_clock::time_point FRefreshed = {};
  bool FIsTaken = false;
};

} // namespace workbench
