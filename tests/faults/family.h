// A family of faults: one scenario, hit again and again at another place.
#pragma once

#include "tests/faults/fault_place.h"

#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace faults {

/// What went wrong, as a sentence; nothing when every promise was kept.
using TBroken = std::optional<std::string>;

/// Implemented once for each scenario. An object works in its place alone.
class IFamily {
public:
  virtual ~IFamily() = default;
  /// The name in the table.
  virtual std::string Name() const = 0;
  /// Makes the place what it is before each run, and keeps it; called once.
  virtual void SetUp(TFaultPlace& place) = 0;
  /// The run that is hit.
  virtual TProgramStart Run(const TFaultPlace& place) const = 0;
  /// Hears of a run that nothing hit: its state is what a run is to reach.
  virtual void Learn(const TFaultPlace& place, const TRunEnd& end) = 0;
  /// Looks at what a run left that was hit, and may run the program again, as a user would.
  virtual TBroken Check(const TFaultPlace& place, const TRunEnd& end) const = 0;
  /// The errors that are tried at each call.
  virtual std::vector<int> Errors() const;
  /// At most that many calls are hit, evenly chosen; 0: each one.
  virtual std::size_t MostCalls() const { return 0; }
  /// At most that many allocations.
  virtual std::size_t MostAllocations() const { return 0; }
};

using TFamilies = std::vector<std::unique_ptr<IFamily>>;

/// Saves and the files that the user keeps: save, save through a link, new, export, settings,
/// profiles, consent.
TFamilies SavingFamilies();
/// Unsaved edits and their recovery.
TFamilies JournalFamilies();
/// Deploys to a folder, and to a machine whose client is hit.
TFamilies DeployFamilies();

/// Deploys once more, as a user would: where something unfinished stands on the target though
/// nothing was left to do, which sweeps nothing, with --force. A machine may keep a lock that does
/// not name its holder; where `mayBreakLock` is set, --break-lock is what the message says.
TRunEnd DeployAgain(const TFaultPlace& place, std::vector<std::string> arguments,
                    bool mayBreakLock);

/// What holds of every run: it ends, it does not crash, and one that fails says why, naming a file.
TBroken CheckManners(const TRunEnd& end);

} // namespace faults
