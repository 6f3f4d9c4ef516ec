#include "package/view/cell_editing.h"

#include "package/common/case_fold.h"
#include "package/host/api/file_columns.h"
#include "package/view/cell_texts.h"
#include "package/view/file_rows.h"
#include "package/view/own_changes.h"
#include "package/view/target_values.h"
#include "package/view/view_strings.h"

#include <string>

namespace deployment {
namespace {

constexpr int PlatformsButtonImage = 6;
constexpr std::string_view RemotePathHistory = "hlDeploymentMgrRemotePath";

// What is wrong with a value shows when it is used; an editor lets every value pass.
bool ValidateEdits(std::string_view /*text*/) {
  return true;
}

} // namespace

bool TCellEditing::IsEditable(int column) {
  return column == file_column::Platforms || column == file_column::RemotePath ||
         column == file_column::RemoteName || column == file_column::Overwrite;
}

std::unique_ptr<ICellEditor> TCellEditing::CreateEditor(TNodeId node, int column) {
  FEditingNode = node;
  ICellEditors& editors = FFrame.Controls.GetCellEditors();
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

bool TCellEditing::EditorButtonPressed(ICellEditor& editor) {
  if (FEditingNode == 0)
    return false;
  const TOwnChanges own(FFrame.Listening);
  const TFileRows::TFileData data = FFrame.Rows.Data(FEditingNode);
  const bool handled = FChoosePlatforms(*data.ProjectDeploymentFile);
  editor.SetText(GetPlatformText(FFrame.Target, *data.ProjectDeploymentFile));
  return handled;
}

// The platforms were written by the dialog of their editor.
void TCellEditing::NewText(TNodeId node, int column, std::string_view text) {
  const TOwnChanges own(FFrame.Listening);
  IProjectDeploymentFile& file = FFrame.Rows.File(node);
  const std::string& platform = FFrame.Target.ActivePlatform;
  if (column == file_column::RemotePath)
    target_values::SetRemoteDir(file, platform, text);
  else if (column == file_column::RemoteName)
    target_values::SetRemoteName(file, platform, text);
  else if (column == file_column::Overwrite)
    target_values::SetOverwrite(file, platform, SameText(text, LoadText(TViewString::Always)));
}

void TCellEditing::Forget(TNodeId node) {
  if (FEditingNode == node)
    FEditingNode = 0;
}

} // namespace deployment
