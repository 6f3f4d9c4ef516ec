// What a run changed in the list of a project: the difference between before and after, and which
// target of the run each change came with.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "workbench/list/list_snapshot.h"

#include <memory>
#include <string>
#include <vector>

namespace workbench {

/// An entry, named as it is after the change, or before when it is gone.
struct TChangedEntry {
  std::string LocalName;
  std::string ClassName;
  std::string Target; ///< configuration and platforms, such as "Debug, Win32"
};

/// What changed with one target.
struct TTargetChanges {
  std::vector<TChangedEntry> Added;
  std::vector<TChangedEntry> Modified;
  std::vector<TChangedEntry> Removed;

  bool IsEmpty() const { return Added.empty() && Modified.empty() && Removed.empty(); }
};

/// What a change did to the entries, by the same rules as TListChanges.
TTargetChanges ChangesOf(const TListChange& change);

/// Listens to a deployment from its making until Finish. What one target adds and a later one takes
/// out again is no change, and neither is what comes back as it was. A file entry that is made anew
/// under its old names counts as modified.
class TListChanges {
public:
  /// Takes down the list as it is now. The deployment must outlive the object.
  explicit TListChanges(deployment::IProjectDeployment& deployment);
  ~TListChanges();
  TListChanges(const TListChanges&) = delete;
  TListChanges& operator=(const TListChanges&) = delete;

  /// Changes from here on come with the next target; to be called before each one.
  void StartTarget();
  /// The changes of each target, in the order of their starts.
  std::vector<TTargetChanges> Finish();
  /// After Finish: what came with one target and went with a later one, in order.
  const std::vector<TChangedEntry>& Lost() const { return FLost; }

private:
  class TListener;

  void FindLost(const TSnapshotChange& change);

  deployment::IProjectDeployment& FDeployment;
  TListSnapshot FSnapshot;
  std::vector<TChangedEntry> FLost;
  std::shared_ptr<TListener> FListener;
  int FListenerIndex;
};

} // namespace workbench
