#include "package/view/file_rows.h"

#include <unordered_set>
#include <utility>

namespace deployment {

void TFileRows::Add(const std::shared_ptr<IProjectDeploymentFile>& file, bool checked) {
  const TNodeId node = vtFiles->AddNode(0, TCheckType::CheckBox);
  if (FRows.size() <= node)
    FRows.resize(node + 1);
  FRows[node] = {{file}, &FFileCache.AttachRow(file->GetLocalName()), false};
  SetChecked(node, checked);
}

void TFileRows::SetChecked(TNodeId node, bool checked) {
  vtFiles->SetCheckState(node, checked ? TCheckState::Checked : TCheckState::Unchecked);
  TRow& row = FRows[node];
  if (row.Checked != checked)
    FFileCache.SetRowChecked(*row.Entry, checked);
  row.Checked = checked;
}

void TFileRows::Free(TNodeId node) {
  const TRow row = std::exchange(FRows[node], {});
  FFileCache.DetachRow(*row.Entry, row.Checked);
}

TFileRows::TFileList TFileRows::SelectedFiles() const {
  TFileList files;
  for (const TNodeId node : vtFiles->GetSelected())
    files.push_back(FRows[node].Data.ProjectDeploymentFile);
  return files;
}

void TFileRows::ReSelectNodes(const TFileList& files) {
  if (files.empty())
    return;
  std::unordered_set<const IProjectDeploymentFile*> wanted;
  for (const auto& file : files)
    wanted.insert(file.get());
  for (const TNodeId node : vtFiles->GetChildren(0)) {
    if (wanted.contains(FRows[node].Data.ProjectDeploymentFile.get()))
      vtFiles->SetSelected(node, true);
  }
}

void TFileRows::ClickHeader(int column) {
  const bool flips = vtFiles->GetSortColumn() == column &&
                     vtFiles->GetSortDirection() == TSortDirection::Ascending;
  FSortColumn = column;
  FSortDirection = flips ? TSortDirection::Descending : TSortDirection::Ascending;
  vtFiles->SetSortMark(FSortColumn, FSortDirection);
  vtFiles->SortTree(FSortColumn, FSortDirection);
}

void TFileRows::SortAgain() {
  if (FSortColumn != -1)
    vtFiles->SortTree(FSortColumn, FSortDirection);
}

} // namespace deployment
