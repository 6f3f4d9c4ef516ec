// A run of an exported folder on the machines of an inventory.
#pragma once

#include "workbench/json/json.h"

#include <atomic>
#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace workbench {

/// What one machine of the inventory came to.
struct TFleetMachine {
  enum class TEnd {
    NotBegun,    ///< or not ended: the run was over before
    Ok,          ///< it answered that all is well
    Failed,      ///< it answered that something is not, or could not answer
    Unreachable, ///< there was no connection
  };
  std::string Name; ///< in the inventory
  TEnd End = TEnd::NotBegun;
  TJson Answer = {}; ///< what the engine says of it; null before its end
};

/// How a run goes.
struct TFleetRequest {
  std::filesystem::path Folder;    ///< an export
  std::filesystem::path Scratch;   ///< a private directory
  std::filesystem::path Inventory; ///< file or directory
  std::string Limit = {};          ///< of machines; empty: all
  unsigned Forks = 0;              ///< machines at a time; 0: as the engine has it
  bool Check = false;              ///< change nothing
  const std::atomic<int>& Cancelled;
};

/// How it ended.
struct TFleetOutcome {
  std::vector<TFleetMachine> Machines; ///< in the order of the inventory
  bool IsInstalled = true;             ///< false: the engine is not
  int Status = 0;                      ///< of the engine
  std::string Errors = {};             ///< what it said of itself
  bool HasNoMachine = false;           ///< the inventory has none that is meant
};

/// Runs ansible-playbook and hears how it goes on; `ended` is told of each machine as it ends.
/// What concerns one machine is in its answer.
TFleetOutcome PlayFleet(const TFleetRequest& request,
                        const std::function<void(const TFleetMachine&)>& ended);

} // namespace workbench
