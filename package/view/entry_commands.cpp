#include "package/view/entry_commands.h"

#include "package/common/class_names.h"
#include "package/common/path_text.h"
#include "package/featured/modify_featured_files.h"
#include "package/host/api/target_entries.h"
#include "package/view/frame_target.h"
#include "package/view/own_changes.h"
#include "package/view/revert_to_default_form.h"
#include "package/view/target_values.h"
#include "package/view/user_file_classes.h"
#include "package/view/view_strings.h"

#include <algorithm>

namespace deployment {

void TEntryCommands::Reconcile() {
  if (FFrame.Target.Deployment())
    FFrame.ReconcileAndRefresh();
}

void TEntryCommands::AddFiles() {
  IProjectDeployment* deployment = FFrame.Target.Deployment();
  if (!deployment)
    return;
  const std::vector<std::string> chosen =
      FFrame.Controls.GetDialogs().OpenFiles({.AllowMultiSelect = true,
                                              .PathMustExist = true,
                                              .FileMustExist = true,
                                              .HideReadOnly = true,
                                              .Sizable = true});
  if (chosen.empty())
    return;
  const TOwnChanges own(FFrame.Listening);
  for (const std::string& path : chosen)
    AddChosenFile(*deployment, path);
  FFrame.RefreshFiles();
}

// A file that is on the list already stays as the user made it.
void TEntryCommands::AddChosenFile(IProjectDeployment& deployment, const std::string& path) {
  std::string configuration = FFrame.SelectedConfiguration();
  if (configuration.empty())
    configuration = BaseConfiguration;
  const std::string platform = FFrame.Target.SinglePlatform();
  const std::string localName = FFrame.Services.GetFileUtils().MakeRelativePath(
      path, DirectoryPart(FFrame.Target.Project->GetProjectFileName()));
  if (deployment.FindFile(configuration, platform, localName))
    return;
  const auto file = deployment.AddFile(configuration, platform, localName);
  file->SetDeploymentClass(class_names::File);
  file->SetEnabled(platform, true);
  if (const IPlatform* known = FFrame.Services.GetPlatformManager().FindPlatform(platform))
    file->SetRemoteDir(platform, known->GetDefaultRemoteDir());
}

bool TEntryCommands::CanDelete() const {
  const std::vector<TNodeId> selected = FFrame.Rows.Tree().GetSelected();
  return !FFrame.Target.ActivePlatform.empty() &&
         std::any_of(selected.begin(), selected.end(),
                     [this](TNodeId node) { return IsUserFile(FFrame.Rows.File(node)); });
}

void TEntryCommands::DeleteFiles() {
  IProjectDeployment* deployment = FFrame.Target.Deployment();
  if (!deployment)
    return;
  const TOwnChanges own(FFrame.Listening);
  TFileRows& rows = FFrame.Rows;
  std::vector<TNodeId> nodes = rows.Tree().GetSelected();
  std::erase_if(nodes, [&](TNodeId node) { return !IsUserFile(rows.File(node)); });
  TDeletion deletion = TDeletion::Asking;
  for (const TNodeId node : nodes) {
    const auto file = rows.Data(node).ProjectDeploymentFile;
    if (ConfirmDelete(*file, nodes.size() > 1, deletion)) {
      deployment->RemoveFileEntry(*file);
      rows.Tree().DeleteNode(node);
    }
    if (deletion == TDeletion::Cancelled)
      break;
  }
  ShowChanges(rows.SelectedFiles());
}

bool TEntryCommands::ConfirmDelete(const IProjectDeploymentFile& file, bool several,
                                   TDeletion& deletion) {
  using A = TMessageAnswer;
  if (deletion == TDeletion::All)
    return true;
  const A answer = FFrame.Controls.GetDialogs().ShowMessage(
      {FormatText(TViewString::ConfirmDelete, {file.GetLocalName()}),
       several ? std::vector{A::Yes, A::YesToAll, A::No, A::Cancel} : std::vector{A::Yes, A::No}});
  if (answer == A::YesToAll)
    deletion = TDeletion::All;
  else if (answer == A::Cancel || answer == A::None)
    deletion = TDeletion::Cancelled;
  return answer == A::YesToAll || answer == A::Yes;
}

void TEntryCommands::AddFeature() {
  if (!FFrame.Target.Deployment())
    return;
  const TOwnChanges own(FFrame.Listening);
  AskForFeaturedFiles(*FFrame.Target.Project, {}, FFrame.Services);
  FFrame.RefreshFiles();
}

void TEntryCommands::ResetDefault() {
  IProjectDeployment* deployment = FFrame.Target.Deployment();
  const IOTAProjectPlatforms* platforms = FFrame.Target.Platforms();
  IModalForms* forms = FFrame.Services.GetModalForms();
  if (!deployment || !platforms || !forms)
    return;
  TRevertToDefaultForm form;
  if (forms->ShowRevertToDefault(form) != TModalResult::OK)
    return;
  const std::vector<std::string> concerned = form.GetScope() == TRevertScope::AllPlatforms
                                                 ? platforms->GetSupportedPlatforms()
                                                 : std::vector{FFrame.Target.SinglePlatform()};
  const TOwnChanges own(FFrame.Listening);
  deployment->Revert(concerned, form.GetKeepAddedFiles());
  FFrame.RefreshFiles();
}

void TEntryCommands::SetFilesEnabled(bool all, bool enabled) {
  if (!FFrame.Target.Deployment())
    return;
  const TOwnChanges own(FFrame.Listening);
  TFileRows& rows = FFrame.Rows;
  const TFileList selected = rows.SelectedFiles();
  for (const TNodeId node : all ? rows.Tree().GetChildren(0) : rows.Tree().GetSelected()) {
    target_values::SetEnabled(rows.File(node), FFrame.Target.ActivePlatform, enabled);
    rows.SetChecked(node, enabled);
  }
  ShowChanges(selected);
  FFrame.Target.Project->SetModified(true);
}

void TEntryCommands::SwitchFile(TNodeId node) {
  const TOwnChanges own(FFrame.Listening);
  IProjectDeploymentFile& file = FFrame.Rows.File(node);
  const bool enabled = !target_values::GetEnabled(file, FFrame.Target.ActivePlatform);
  if (const IOTAProjectPlatforms* platforms = FFrame.Target.Platforms()) {
    for (const std::string& platform : platforms->GetSupportedPlatforms()) {
      if (IsFileInPlatform(platform, file))
        file.SetEnabled(platform, enabled);
    }
  }
  FFrame.Rows.SetChecked(node, enabled);
  FFrame.UpdateDeployButton();
  FFrame.Target.Project->SetModified(true);
}

TEntryCommands::TFileList TEntryCommands::SelectedFilesOfTarget() const {
  TFileList files = FFrame.Rows.SelectedFiles();
  std::erase_if(files, [this](const auto& file) {
    return !target_values::CanEdit(*file, FFrame.Target.ActivePlatform);
  });
  return files;
}

void TEntryCommands::ChangeRemotePath() {
  const TOwnChanges own(FFrame.Listening);
  const TFileList files = SelectedFilesOfTarget();
  std::string directory = ".\\";
  if (files.empty() ||
      !FFrame.Controls.GetDialogs().InputBox(LoadText(TViewString::RemotePath),
                                             LoadText(TViewString::EnterRemotePath), directory))
    return;
  for (const auto& file : files)
    target_values::SetRemoteDir(*file, FFrame.Target.ActivePlatform, directory);
  ShowChanges(files);
  FFrame.Target.Project->SetModified(true);
}

void TEntryCommands::ChangeOverwrite() {
  const TOwnChanges own(FFrame.Listening);
  const TFileList files = SelectedFilesOfTarget();
  if (files.empty() || FFrame.Controls.GetDialogs().ShowMessage(
                           {std::string(LoadText(TViewString::ConfirmChange)),
                            {TMessageAnswer::Yes, TMessageAnswer::No, TMessageAnswer::Cancel}}) !=
                           TMessageAnswer::Yes)
    return;
  const std::string& platform = FFrame.Target.ActivePlatform;
  for (const auto& file : files)
    target_values::SetOverwrite(*file, platform, !target_values::GetOverwrite(*file, platform));
  ShowChanges(files);
  FFrame.Target.Project->SetModified(true);
}

void TEntryCommands::ShowChanges(const TFileList& selected) {
  FFrame.RefreshFiles();
  FFrame.Rows.ReSelectNodes(selected);
}

} // namespace deployment
