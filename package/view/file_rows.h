// The rows of a frame: nodes of the tree with their files, boxes, selection and order.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/idevirtualtrees.h"
#include "package/view/file_status_cache.h"

#include <memory>
#include <vector>

namespace deployment {

class TFileRows {
public:
  /// The one record that a node of the tree carries.
  struct TFileData {
    std::shared_ptr<IProjectDeploymentFile> ProjectDeploymentFile;
  };
  using TFileList = std::vector<std::shared_ptr<IProjectDeploymentFile>>;

  /// Rows attach themselves to the cache, which must outlive the object.
  explicit TFileRows(TFileStatusCache& cache) : FFileCache(cache) {}

  /// The tree that shows the rows; to be set before anything else. It tells Free of every node that
  /// goes, the last ones with this object.
  void SetTree(std::unique_ptr<IVirtualStringTree> tree) { vtFiles = std::move(tree); }
  IVirtualStringTree& Tree() const { return *vtFiles; }

  /// Appends a row.
  void Add(const std::shared_ptr<IProjectDeploymentFile>& file, bool checked);
  void SetChecked(TNodeId node, bool checked);
  /// The node goes away.
  void Free(TNodeId node);
  const TFileData& Data(TNodeId node) const { return FRows[node].Data; }
  IProjectDeploymentFile& File(TNodeId node) const {
    return *FRows[node].Data.ProjectDeploymentFile;
  }

  /// Files of the selected rows from top to bottom.
  TFileList SelectedFiles() const;
  /// Selects the rows of these files; others stay selected.
  void ReSelectNodes(const TFileList& files);

  /// The user clicked a header: sorts by the column, the other way round if it was the last one.
  void ClickHeader(int column);
  /// Sorts rows that were built anew as the user wanted it; does nothing before the first click.
  void SortAgain();

private:
  struct TRow {
    TFileData Data;
    TFileStatusCache::TEntry* Entry = nullptr;
    bool Checked = false;
  };

  TFileStatusCache& FFileCache;
  std::vector<TRow> FRows; ///< by node
  int FSortColumn = -1;    ///< of the last header sort; -1: unsorted
  TSortDirection FSortDirection = TSortDirection::Ascending;
  std::unique_ptr<IVirtualStringTree> vtFiles; ///< goes first, since it frees its nodes
};

/// The tree shows the outcome only.
class TTreeUpdate {
public:
  explicit TTreeUpdate(IVirtualStringTree& tree) : FTree(tree) { FTree.BeginUpdate(); }
  TTreeUpdate(const TTreeUpdate&) = delete;
  TTreeUpdate& operator=(const TTreeUpdate&) = delete;
  ~TTreeUpdate() { FTree.EndUpdate(); }

private:
  IVirtualStringTree& FTree;
};

} // namespace deployment
