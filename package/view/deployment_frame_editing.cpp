// Editing in the cells.
#include "package/common/case_fold.h"
#include "package/view/deployment_frame.h"
#include "package/view/file_columns.h"
#include "package/view/frame_brackets.h"
#include "package/view/select_platform.h"
#include "package/view/view_strings.h"

namespace deployment {
namespace {

constexpr int PlatformsButtonImage = 6;
constexpr std::string_view RemotePathHistory = "hlDeploymentMgrRemotePath";

// What is wrong with a value shows when it is used; an editor lets every value pass.
bool ValidateEdits(std::string_view /*text*/) {
  return true;
}

} // namespace

bool TDeploymentFrame::vtFilesEditing(int column) {
  return column == file_column::Platforms || column == file_column::RemotePath ||
         column == file_column::RemoteName || column == file_column::Overwrite;
}

std::unique_ptr<ICellEditor> TDeploymentFrame::vtFilesCreateEditor(TNodeId node, int column) {
  FEditingNode = node;
  ICellEditors& editors = FControls.GetCellEditors();
  switch (column) {
  case file_column::Platforms:
    return editors.CreateButtonEditor(
        PlatformsButtonImage, [this](ICellEditor& editor) { return EditorButtonPressed(editor); },
        ValidateEdits);
  case file_column::RemotePath:
    return editors.CreateHistoryComboEditor(RemotePathHistory);
  case file_column::RemoteName:
    return editors.CreateComboEditor({""}, ValidateEdits);
  case file_column::Overwrite:
    return editors.CreateComboEditor(
        {std::string(LoadText(TViewString::Always)), std::string(LoadText(TViewString::Never))},
        ValidateEdits);
  default:
    return nullptr;
  }
}

bool TDeploymentFrame::EditorButtonPressed(ICellEditor& editor) {
  if (FEditingNode == 0)
    return false;
  const TNotifierBracket bracket(*this);
  const TFileData data = Row(FEditingNode).Data;
  const bool handled =
      SelectPlatform(*this, *FProject, *data.ProjectDeploymentFile, FServices.GetModalForms());
  editor.SetText(GetPlatformText(data));
  return handled;
}

void TDeploymentFrame::AddPlatform(std::string_view platform, IProjectDeploymentFile& file) const {
  if (!IsInPlatform(platform, file))
    file.SetRemoteName(platform, file.GetLocalName());
}

// The platforms were written by the dialog of their editor.
void TDeploymentFrame::vtFilesNewText(TNodeId node, int column, std::string_view text) {
  const TNotifierBracket bracket(*this);
  IProjectDeploymentFile& file = FileOf(node);
  if (column == file_column::RemotePath)
    file.SetRemoteDir(FActivePlatform, text);
  else if (column == file_column::RemoteName)
    file.SetRemoteName(FActivePlatform, text);
  else if (column == file_column::Overwrite)
    file.SetOverwrite(FActivePlatform, SameText(text, LoadText(TViewString::Always)));
}

void TDeploymentFrame::vtFilesEdited(TNodeId node, int column) {
  UpdateFileCache(FileOf(node));
  if (vtFilesEditing(column))
    FProject->SetModified(true);
}

} // namespace deployment
