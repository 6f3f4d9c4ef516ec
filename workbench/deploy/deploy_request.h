// What a deploy is asked to do.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deployment_target.h"
#include "workbench/deploy/plan/deploy_files.h"
#include "workbench/deploy/plan/row_choices.h"

#include <atomic>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace workbench {

class TSeenFiles;
class TSharedWork;
struct TDeployReport;

/// The largest number of connections that a deploy takes.
inline constexpr unsigned MostJobs = 64;

/// How much is kept on a target to take deploys back by.
struct TUndoLimits {
  std::uint64_t Runs = 3;
  std::uint64_t Bytes = std::uint64_t(1024) * 1024 * 1024;
};

struct TDeployOptions {
  bool DryRun = false; ///< make the plan only
  bool Force = false;
  bool Checksum = false;
  bool SkipMissing = false;
  bool OverwriteChanged = false; ///< copy also over what others changed on the target
  bool Prune = false;            ///< remove what was deployed and is not in the list any more
  bool HashAll = false;          ///< tell the hash of every local file, as a plan is to have it
  bool NoUndo = false;           ///< keep nothing to take the deploy back by
  bool Compress = false;         ///< compress what travels to another machine
  bool BreakLock = false;        ///< go on though somebody else deploys there
  TUndoLimits Undo = {};
  TRowChoices Choices = {}; ///< about single files
  unsigned Jobs = 0;        ///< connections; 0: as many as suit the machine
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

/// May these files of this machine, full paths from beyond the project's tree, be sent?
using TMaySend = std::function<bool(const std::vector<std::string>& files)>;

/// Is this plan, which nothing hinders, to be carried out? The rows say what would be done.
using TMayBegin = std::function<bool(const TDeployReport& planned)>;

/// How a run goes on, whatever it carries out. Everything that it names must live as long.
struct TRunTerms {
  TDeployOptions Options = {};
  TMayBegin MayBegin = nullptr; ///< asked before all else; empty: yes
  TMayRun MayRun = nullptr;     ///< empty: commands may not run
  TMaySend MaySend = nullptr;   ///< empty: nothing from beyond the project's tree is sent
  TBackground Background = RunInForeground;
  /// Something else than 0, such as the number of a signal, interrupts the run; null: nothing does.
  const std::atomic<int>* Cancelled = nullptr;
  TSharedWork* Shared = nullptr; ///< with runs for other targets at the same time; null: with none
  /// What the target answered a moment ago, for a plan that is not carried out; null: it is asked.
  TSeenFiles* Seen = nullptr;
};

/// Everything that it names must live as long as the deploy runs.
struct TDeployRequest {
  deployment::ICustomProject& Project;
  deployment::TDeploymentTarget Target;
  TDeployOptions Options = {};
  TMayBegin MayBegin = nullptr; ///< asked before all else; empty: yes
  TMayRun MayRun = nullptr;     ///< empty: commands may not run
  TMaySend MaySend = nullptr;   ///< empty: nothing from beyond the project's tree is sent
  TBackground Background = RunInForeground;
  /// Something else than 0, such as the number of a signal, interrupts the deploy; null: nothing
  /// does.
  const std::atomic<int>* Cancelled = nullptr;
  TPause Pause = nullptr; ///< called while the list is read; empty: nothing waits
  /// What the target answered a moment ago, for a plan that is not carried out; null: it is asked.
  TSeenFiles* Seen = nullptr;

  TRunTerms Terms() const {
    return {.Options = Options,
            .MayBegin = MayBegin,
            .MayRun = MayRun,
            .MaySend = MaySend,
            .Background = Background,
            .Cancelled = Cancelled,
            .Seen = Seen};
  }
};

} // namespace workbench
