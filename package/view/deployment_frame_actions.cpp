// The tool bar: each command with its words, its guard and its action in one row.
#include "package/common/case_fold.h"
#include "package/host/api/platforms.h"
#include "package/view/button_images.h"
#include "package/view/deployment_frame.h"
#include "package/view/user_file_classes.h"

#include <algorithm>
#include <utility>

namespace deployment {

struct TDeploymentFrame::TActionRow {
  using THandler = void (TDeploymentFrame::*)();

  TFrameAction Action;
  std::string_view Button;
  std::string_view Name;
  std::string_view Caption;
  std::string_view Hint; ///< of the button
  int Image;
  THandler Execute;
  THandler Update = nullptr; ///< null: enabled by other means, or always
  TToolButtonStyle Style = TToolButtonStyle::Button;
  bool StartsEnabled = true;
  bool SeparatorBehind = false;
};

// Captions that are names are never seen: these buttons show their image.
const std::array<TDeploymentFrame::TActionRow, FrameActionCount>& TDeploymentFrame::ActionRows() {
  using A = TFrameAction;
  using F = TDeploymentFrame;
  // clang-format off
  static const std::array<TActionRow, FrameActionCount> rows{{
      {A::Reconcile, "tbReconcile", "sbReconcile", "Reconcile", "Reconcile", 4,
       &F::sbReconcileExecute},
      {A::Add, "tbAddFiles", "sbAdd", "Add Files", "Add Files", 0, &F::sbAddExecute},
      {.Action = A::Delete, .Button = "tbDeleteFile", .Name = "sbDelete",
       .Caption = "Delete Files", .Hint = "Delete Selected Files", .Image = 1,
       .Execute = &F::sbDeleteExecute, .Update = &F::sbDeleteUpdate, .StartsEnabled = false},
      {A::AddFeature, "tbAddFeature", "sbAddFeature", "Add Feature Files", "Add Featured Files", 2,
       &F::sbAddFeatureExecute},
      {A::Deploy, "tbDeploy", "sbDeploy", "Deploy", "Deploy", 3, &F::sbDeployExecute},
      {A::Connect, "tbConnect", "sbConnect", "Connect", "Connect to Remote Machine", 5,
       &F::sbConnectExecute, &F::sbConnectUpdate, TToolButtonStyle::Check},
      {.Action = A::ResetDefault, .Button = "tbRevert", .Name = "sbResetDefault",
       .Caption = "sbResetDefault", .Hint = "Revert to Default", .Image = 7,
       .Execute = &F::sbResetDefaultExecute, .SeparatorBehind = true},
      {A::CheckAll, "tbCheckAll", "sbCheckAll", "sbCheckAll", "Check All Items", 8,
       &F::sbCheckAllExecute},
      {A::UncheckAll, "tbUncheckAll", "sbUncheckAll", "sbUncheckAll", "Uncheck All Items", 9,
       &F::sbUncheckAllExecute},
      {A::CheckSelection, "tbCheckSelection", "sbCheckSelection", "sbCheckSelection",
       "Check Selected Items", 10, &F::sbCheckSelectionExecute, &F::sbCheckSelectionUpdate},
      {.Action = A::UncheckSelection, .Button = "tbUncheckSelection", .Name = "sbUncheckSelection",
       .Caption = "sbUncheckSelection", .Hint = "Uncheck Selected Items", .Image = 11,
       .Execute = &F::sbUncheckSelectionExecute, .Update = &F::sbUncheckSelectionUpdate,
       .SeparatorBehind = true},
      {A::ChangeRemotePath, "tbChangeRemotePath", "sbChangeRemotePath", "sbChangeRemotePath",
       "Change Remote Path for Selected Items", 12, &F::sbChangeRemotePathExecute,
       &F::sbChangeRemotePathUpdate},
      {.Action = A::ChangeOverwrite, .Button = "tbChangeOverwrite", .Name = "sbChangeOverwrite",
       .Caption = "sbChangeOverwrite", .Hint = "Change Overwrite value for selected items",
       .Image = 13, .Execute = &F::sbChangeOverwriteExecute,
       .Update = &F::sbChangeOverwriteUpdate, .SeparatorBehind = true},
  }};
  // clang-format on
  return rows;
}

void TDeploymentFrame::CreateToolBar() {
  FToolBar = FControls.CreateToolBar(ButtonImages());
  for (const TActionRow& row : ActionRows()) {
    TToolButton button{.Name = row.Button,
                       .Action = row.Name,
                       .Caption = row.Caption,
                       .Hint = row.Hint,
                       .ImageIndex = row.Image,
                       .Style = row.Style,
                       .Enabled = row.StartsEnabled,
                       .OnExecute = [this, execute = row.Execute] { (this->*execute)(); },
                       .OnUpdate = {}};
    if (row.Update)
      button.OnUpdate = [this, update = row.Update] { (this->*update)(); };
    FButtons[static_cast<std::size_t>(row.Action)] = &FToolBar->AddButton(std::move(button));
    if (row.SeparatorBehind)
      FToolBar->AddSeparator();
  }
}

IToolButton& TDeploymentFrame::Button(TFrameAction action) const {
  return *FButtons[static_cast<std::size_t>(action)];
}

void TDeploymentFrame::EnableWithSelection(TFrameAction action) const {
  Button(action).SetEnabled(vtFiles->SelectedCount() > 0);
}

void TDeploymentFrame::sbDeleteUpdate() {
  const std::vector<TNodeId> selected = vtFiles->GetSelected();
  Button(TFrameAction::Delete)
      .SetEnabled(!FActivePlatform.empty() &&
                  std::any_of(selected.begin(), selected.end(),
                              [this](TNodeId node) { return IsUserFile(FileOf(node)); }));
}

void TDeploymentFrame::sbConnectUpdate() {
  Button(TFrameAction::Connect).SetEnabled(RequiresProfile(FActivePlatform));
}

bool TDeploymentFrame::RequiresProfile(std::string_view platform) const {
  if (platform.empty() || platform == sAllPlatforms || !FProject)
    return false;
  const IPlatform* known = FServices.GetPlatformManager().FindPlatform(platform);
  if (!known)
    return false;
  const std::string personality = FProject->GetPersonality();
  return known->RequiresProfile(personality) || known->PersonalityRequiresProfile(personality) ||
         SameText(platform, "Win32") || SameText(platform, "Win64");
}

} // namespace deployment
