// The rows: which files have one, their boxes and their selection.
#include "package/host/api/target_entries.h"
#include "package/view/deployment_frame.h"
#include "package/view/frame_brackets.h"

#include <unordered_set>
#include <utility>

namespace deployment {

void TDeploymentFrame::PopulateTree() {
  if (IProjectDeployment* deployment = Deployment()) {
    TTargetEntries entries(*FProject, {cbConfig->GetSelectedConfiguration(), FActivePlatform});
    for (const auto& file : deployment->GetFiles()) {
      if (entries.IsListed(*file))
        AddRow(file);
    }
  }
  UpdateDeployButton();
}

void TDeploymentFrame::AddRow(const std::shared_ptr<IProjectDeploymentFile>& file) {
  const TNodeId node = vtFiles->AddNode(0, TCheckType::CheckBox);
  if (FRows.size() <= node)
    FRows.resize(node + 1);
  Row(node) = {{file}, &FFileCache.AttachRow(file->GetLocalName()), false};
  SetRowChecked(node, file->GetEnabled(FActivePlatform));
}

void TDeploymentFrame::SetRowChecked(TNodeId node, bool checked) {
  vtFiles->SetCheckState(node, checked ? TCheckState::Checked : TCheckState::Unchecked);
  TRow& row = Row(node);
  if (row.Checked != checked)
    FFileCache.SetRowChecked(*row.Entry, checked);
  row.Checked = checked;
}

void TDeploymentFrame::vtFilesFreeNode(TNodeId node) {
  if (FEditingNode == node)
    FEditingNode = 0;
  const TRow row = std::exchange(Row(node), {});
  FFileCache.DetachRow(*row.Entry, row.Checked);
}

// The file decides what the click means, for all of its platforms at once.
void TDeploymentFrame::vtFilesChecked(TNodeId node) {
  const TNotifierBracket bracket(*this);
  IProjectDeploymentFile& file = FileOf(node);
  const bool enabled = !file.GetEnabled(FActivePlatform);
  if (const IOTAProjectPlatforms* platforms = Platforms()) {
    for (const std::string& platform : platforms->GetSupportedPlatforms()) {
      if (IsInPlatform(platform, file))
        file.SetEnabled(platform, enabled);
    }
  }
  SetRowChecked(node, enabled);
  UpdateDeployButton();
  FProject->SetModified(true);
}

void TDeploymentFrame::CheckFiles(bool all) {
  SetFilesEnabled(all, /*enabled=*/true);
}

void TDeploymentFrame::UncheckFiles(bool all) {
  SetFilesEnabled(all, /*enabled=*/false);
}

void TDeploymentFrame::SetFilesEnabled(bool all, bool enabled) {
  if (!Deployment())
    return;
  const TNotifierBracket bracket(*this);
  const TFileList selected = SelectedFiles();
  for (const TNodeId node : all ? vtFiles->GetChildren(0) : vtFiles->GetSelected()) {
    FileOf(node).SetEnabled(FActivePlatform, enabled);
    SetRowChecked(node, enabled);
  }
  RefreshFiles();
  ReSelectNodes(selected);
  FProject->SetModified(true);
}

TDeploymentFrame::TFileList TDeploymentFrame::SelectedFiles() const {
  TFileList files;
  for (const TNodeId node : vtFiles->GetSelected())
    files.push_back(FRows[node].Data.ProjectDeploymentFile);
  return files;
}

void TDeploymentFrame::ReSelectNodes(const TFileList& files) {
  if (files.empty())
    return;
  std::unordered_set<const IProjectDeploymentFile*> wanted;
  for (const auto& file : files)
    wanted.insert(file.get());
  for (const TNodeId node : vtFiles->GetChildren(0)) {
    if (wanted.contains(Row(node).Data.ProjectDeploymentFile.get()))
      vtFiles->SetSelected(node, true);
  }
}

void TDeploymentFrame::UpdateDeployButton() {
  Button(TFrameAction::Deploy).SetEnabled(HasSinglePlatform() && FFileCache.DeployableRows() > 0);
}

} // namespace deployment
