// The commands that change entries.
#include "package/common/path_text.h"
#include "package/featured/modify_featured_files.h"
#include "package/host/api/target_entries.h"
#include "package/view/deployment_frame.h"
#include "package/view/frame_brackets.h"
#include "package/view/revert_to_default_form.h"
#include "package/view/user_file_classes.h"
#include "package/view/view_strings.h"

#include <algorithm>

namespace deployment {

void TDeploymentFrame::sbReconcileExecute() {
  if (IProjectDeployment* deployment = Deployment()) {
    ReconcileTarget(*deployment);
    RefreshFiles();
  }
}

void TDeploymentFrame::sbAddExecute() {
  IProjectDeployment* deployment = Deployment();
  if (!deployment)
    return;
  const std::vector<std::string> chosen =
      FControls.GetDialogs().OpenFiles({.AllowMultiSelect = true,
                                        .PathMustExist = true,
                                        .FileMustExist = true,
                                        .HideReadOnly = true,
                                        .Sizable = true});
  if (chosen.empty())
    return;
  const TNotifierBracket bracket(*this);
  for (const std::string& path : chosen)
    AddChosenFile(*deployment, path);
  RefreshFiles();
}

// A file that is on the list already stays as the user made it.
void TDeploymentFrame::AddChosenFile(IProjectDeployment& deployment, const std::string& path) {
  std::string configuration = cbConfig->GetSelectedConfiguration();
  if (configuration.empty())
    configuration = BaseConfiguration;
  const std::string platform = SinglePlatform();
  const std::string localName = FServices.GetFileUtils().MakeRelativePath(
      path, DirectoryPart(FProject->GetProjectFileName()));
  if (deployment.FindFile(configuration, platform, localName))
    return;
  const auto file = deployment.AddFile(configuration, platform, localName);
  file->SetDeploymentClass(AddedFileClass);
  file->SetEnabled(platform, true);
  if (const IPlatform* known = FServices.GetPlatformManager().FindPlatform(platform))
    file->SetRemoteDir(platform, known->GetDefaultRemoteDir());
}

void TDeploymentFrame::sbDeleteExecute() {
  IProjectDeployment* deployment = Deployment();
  if (!deployment)
    return;
  const TNotifierBracket bracket(*this);
  std::vector<TNodeId> nodes = vtFiles->GetSelected();
  std::erase_if(nodes, [this](TNodeId node) { return !IsUserFile(FileOf(node)); });
  bool all = false;
  bool cancelled = false;
  for (const TNodeId node : nodes) {
    const auto file = Row(node).Data.ProjectDeploymentFile;
    if (ConfirmDelete(*file, nodes.size() > 1, all, cancelled)) {
      deployment->RemoveFileEntry(*file);
      vtFiles->DeleteNode(node);
    }
    if (cancelled)
      break;
  }
  const TFileList remaining = SelectedFiles();
  RefreshFiles();
  ReSelectNodes(remaining);
}

bool TDeploymentFrame::ConfirmDelete(const IProjectDeploymentFile& file, bool several, bool& all,
                                     bool& cancelled) {
  using A = TMessageAnswer;
  if (all)
    return true;
  const A answer = FControls.GetDialogs().ShowMessage(
      {FormatText(TViewString::ConfirmDelete, {file.GetLocalName()}),
       several ? std::vector{A::Yes, A::YesToAll, A::No, A::Cancel} : std::vector{A::Yes, A::No}});
  all = answer == A::YesToAll;
  cancelled = answer == A::Cancel || answer == A::None;
  return all || answer == A::Yes;
}

void TDeploymentFrame::sbAddFeatureExecute() {
  if (!Deployment())
    return;
  ISettingsStore& settings = FServices.GetSettings();
  const bool stored = settings.ReadBool(FeaturedSettingsSection, ShowFeaturedFormAuto, true);
  bool showAuto = stored;
  const TNotifierBracket bracket(*this);
  ModifyFeaturedFiles(*FProject, showAuto, {}, FServices);
  if (showAuto != stored)
    settings.WriteBool(FeaturedSettingsSection, ShowFeaturedFormAuto, showAuto);
  RefreshFiles();
}

void TDeploymentFrame::sbResetDefaultExecute() {
  IProjectDeployment* deployment = Deployment();
  const IOTAProjectPlatforms* platforms = Platforms();
  IModalForms* forms = FServices.GetModalForms();
  if (!deployment || !platforms || !forms)
    return;
  TRevertToDefaultForm form;
  if (forms->ShowRevertToDefault(form) != TModalResult::OK)
    return;
  const std::vector<std::string> concerned = form.GetScope() == TRevertScope::AllPlatforms
                                                 ? platforms->GetSupportedPlatforms()
                                                 : std::vector{SinglePlatform()};
  const TNotifierBracket bracket(*this);
  deployment->Revert(concerned, form.GetKeepAddedFiles());
  RefreshFiles();
}

TDeploymentFrame::TFileList TDeploymentFrame::SelectedFilesOfPlatform() const {
  TFileList files = SelectedFiles();
  std::erase_if(files, [this](const auto& file) { return !HoldsPlatform(*file, FActivePlatform); });
  return files;
}

void TDeploymentFrame::sbChangeRemotePathExecute() {
  const TNotifierBracket bracket(*this);
  const TFileList files = SelectedFilesOfPlatform();
  std::string directory = ".\\";
  if (files.empty() ||
      !FControls.GetDialogs().InputBox(LoadText(TViewString::RemotePath),
                                       LoadText(TViewString::EnterRemotePath), directory))
    return;
  for (const auto& file : files)
    file->SetRemoteDir(FActivePlatform, directory);
  RefreshFiles();
  ReSelectNodes(files);
}

void TDeploymentFrame::sbChangeOverwriteExecute() {
  const TNotifierBracket bracket(*this);
  const TFileList files = SelectedFilesOfPlatform();
  if (files.empty() || FControls.GetDialogs().ShowMessage(
                           {std::string(LoadText(TViewString::ConfirmChange)),
                            {TMessageAnswer::Yes, TMessageAnswer::No, TMessageAnswer::Cancel}}) !=
                           TMessageAnswer::Yes)
    return;
  for (const auto& file : files)
    file->SetOverwrite(FActivePlatform, !file->GetOverwrite(FActivePlatform));
  RefreshFiles();
  ReSelectNodes(files);
}

} // namespace deployment
