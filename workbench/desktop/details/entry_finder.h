// Which entries of the deployment the rows of a list stand for.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "workbench/desktop/controls/tree_model.h"

#include <memory>
#include <vector>

namespace workbench {

class TOpenProject;

/// Used on the main thread, and good until rows or entries change.
class TEntryFinder {
public:
  using TFile = std::shared_ptr<deployment::IProjectDeploymentFile>;

  /// Both must outlive the object. `target` is what the rows show.
  TEntryFinder(TOpenProject& project, const TTreeModel& rows,
               const deployment::TDeploymentTarget& target)
      : FProject(project), FRows(rows), FTarget(target) {}

  /// The entry of a row; null when there is none any more.
  TFile Find(deployment::TNodeId node) const;
  /// The rows of these entries, in the order of the entries.
  std::vector<deployment::TNodeId> RowsOf(const std::vector<TFile>& files) const;

private:
  std::size_t RankOf(deployment::TNodeId node) const;

  TOpenProject& FProject;
  const TTreeModel& FRows;
  const deployment::TDeploymentTarget FTarget;
};

} // namespace workbench
