// What a deploy is asked to do.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deployment_target.h"

#include <atomic>
#include <functional>
#include <string>
#include <vector>

namespace workbench {

struct TDeployOptions {
  bool DryRun = false; ///< make the plan only
  bool Force = false;
  bool Checksum = false;
  bool SkipMissing = false;
  bool OverwriteChanged = false; ///< copy also over what others changed on the target
  bool Prune = false;            ///< remove what was deployed and is not in the list any more
  bool BreakLock = false;        ///< go on though somebody else deploys there
  unsigned Jobs = 0;             ///< connections; 0: as many as suit the machine
};

/// Does work that takes long while the caller waits: runs it once, returns when it is done and
/// passes on what it throws. A window runs it on a thread and goes on painting.
using TBackground = std::function<void(const std::function<void()>& work)>;

/// Runs the work on the calling thread.
inline void RunInForeground(const std::function<void()>& work) {
  work();
}

/// May these commands of the project run, on this machine and at the place named?
using TMayRun =
    std::function<bool(const std::vector<std::string>& commands, const std::string& place)>;

/// Everything that it names must live as long as the deploy runs.
struct TDeployRequest {
  deployment::ICustomProject& Project;
  deployment::TDeploymentTarget Target;
  TDeployOptions Options = {};
  TMayRun MayRun = nullptr; ///< empty: they may not
  TBackground Background = RunInForeground;
  /// Something else than 0, such as the number of a signal, interrupts the deploy; null: nothing
  /// does.
  const std::atomic<int>* Cancelled = nullptr;
};

} // namespace workbench
