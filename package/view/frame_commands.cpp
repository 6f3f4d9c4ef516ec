#include "package/view/frame_commands.h"

#include "package/host/api/view_buttons.h"
#include "package/view/button_images.h"

#include <utility>

namespace deployment {

struct TFrameCommands::TCommand {
  TFrameAction Action;
  std::string_view Button;
  std::string_view Name;
  std::string_view Caption;
  std::string_view Hint; ///< of the button
  int Image;
  void (*Execute)(TFrameCommands& commands);
  /// May the command run? Null: it always may, or its button is enabled by other means.
  bool (*Guard)(const TFrameCommands& commands) = nullptr;
  TToolButtonStyle Style = TToolButtonStyle::Button;
  bool StartsEnabled = true;
  bool SeparatorBehind = false;
};

// Captions that are names are never seen: these buttons show their image.
const std::array<TFrameCommands::TCommand, FrameActionCount>& TFrameCommands::Commands() {
  using A = TFrameAction;
  using C = TFrameCommands;
  constexpr auto hasSelection = [](const C& c) { return c.HasSelection(); };
  // clang-format off
  static const std::array<TCommand, FrameActionCount> rows{{
      {A::Reconcile, view_button::Reconcile, "sbReconcile", "Reconcile", "Reconcile", 4,
       [](C& c) { c.FEntries.Reconcile(); }},
      {A::Add, view_button::AddFiles, "sbAdd", "Add Files", "Add Files", 0,
       [](C& c) { c.FEntries.AddFiles(); }},
      {.Action = A::Delete, .Button = view_button::DeleteFile, .Name = "sbDelete",
       .Caption = "Delete Files", .Hint = "Delete Selected Files", .Image = 1,
       .Execute = [](C& c) { c.FEntries.DeleteFiles(); },
       .Guard = [](const C& c) { return c.FEntries.CanDelete(); }, .StartsEnabled = false},
      {A::AddFeature, view_button::AddFeature, "sbAddFeature", "Add Feature Files",
       "Add Featured Files", 2, [](C& c) { c.FEntries.AddFeature(); }},
      {A::Deploy, view_button::Deploy, "sbDeploy", "Deploy", "Deploy", 3,
       [](C& c) { c.FRemote.Deploy(); }},
      {A::Connect, view_button::Connect, "sbConnect", "Connect", "Connect to Remote Machine", 5,
       [](C& c) { c.FRemote.Connect(c.Button(A::Connect)); },
       [](const C& c) { return c.FRemote.CanConnect(); }, TToolButtonStyle::Check},
      {.Action = A::ResetDefault, .Button = view_button::Revert, .Name = "sbResetDefault",
       .Caption = "sbResetDefault", .Hint = "Revert to Default", .Image = 7,
       .Execute = [](C& c) { c.FEntries.ResetDefault(); }, .SeparatorBehind = true},
      {A::CheckAll, view_button::CheckAll, "sbCheckAll", "sbCheckAll", "Check All Items", 8,
       [](C& c) { c.FEntries.SetFilesEnabled(/*all=*/true, /*enabled=*/true); }},
      {A::UncheckAll, view_button::UncheckAll, "sbUncheckAll", "sbUncheckAll",
       "Uncheck All Items", 9,
       [](C& c) { c.FEntries.SetFilesEnabled(/*all=*/true, /*enabled=*/false); }},
      {A::CheckSelection, view_button::CheckSelection, "sbCheckSelection", "sbCheckSelection",
       "Check Selected Items", 10,
       [](C& c) { c.FEntries.SetFilesEnabled(/*all=*/false, /*enabled=*/true); }, hasSelection},
      {.Action = A::UncheckSelection, .Button = view_button::UncheckSelection,
       .Name = "sbUncheckSelection", .Caption = "sbUncheckSelection",
       .Hint = "Uncheck Selected Items", .Image = 11,
       .Execute = [](C& c) { c.FEntries.SetFilesEnabled(/*all=*/false, /*enabled=*/false); },
       .Guard = hasSelection, .SeparatorBehind = true},
      {A::ChangeRemotePath, view_button::ChangeRemotePath, "sbChangeRemotePath",
       "sbChangeRemotePath", "Change Remote Path for Selected Items", 12,
       [](C& c) { c.FEntries.ChangeRemotePath(); }, hasSelection},
      {.Action = A::ChangeOverwrite, .Button = view_button::ChangeOverwrite,
       .Name = "sbChangeOverwrite", .Caption = "sbChangeOverwrite",
       .Hint = "Change Overwrite value for selected items", .Image = 13,
       .Execute = [](C& c) { c.FEntries.ChangeOverwrite(); }, .Guard = hasSelection,
       .SeparatorBehind = true},
  }};
  // clang-format on
  return rows;
}

void TFrameCommands::CreateToolBar() {
  FToolBar = FFrame.Controls.CreateToolBar(ButtonImages());
  for (const TCommand& row : Commands()) {
    TToolButton button{.Name = row.Button,
                       .Action = row.Name,
                       .Caption = row.Caption,
                       .Hint = row.Hint,
                       .ImageIndex = row.Image,
                       .Style = row.Style,
                       .Enabled = row.StartsEnabled,
                       .OnExecute = [this, &row] { row.Execute(*this); },
                       .OnUpdate = {}};
    if (row.Guard)
      button.OnUpdate = [this, &row] { Button(row.Action).SetEnabled(row.Guard(*this)); };
    FButtons[static_cast<std::size_t>(row.Action)] = &FToolBar->AddButton(std::move(button));
    if (row.SeparatorBehind)
      FToolBar->AddSeparator();
  }
}

IToolButton& TFrameCommands::Button(TFrameAction action) const {
  return *FButtons[static_cast<std::size_t>(action)];
}

void TFrameCommands::Execute(TFrameAction action) {
  Commands()[static_cast<std::size_t>(action)].Execute(*this);
}

bool TFrameCommands::HasSelection() const {
  return FFrame.Rows.Tree().SelectedCount() > 0;
}

} // namespace deployment
