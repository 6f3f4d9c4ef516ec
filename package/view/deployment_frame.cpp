#include "package/view/deployment_frame.h"

#include "package/host/api/entry_paths.h"
#include "package/host/api/file_columns.h"
#include "package/host/api/target_entries.h"
#include "package/view/select_platform.h"
#include "package/view/target_values.h"
#include "package/view/view_threads.h"

#include <chrono>
#include <exception>
#include <utility>
#include <vector>

namespace deployment {
namespace {

TTreeOptions FileListOptions() {
  return {.CheckBoxes = true,
          .MultiSelect = true,
          .FullRowSelect = true,
          .Incremental = true,
          .ColumnsResize = true,
          .SortGlyphs = true,
          .VerticalLines = true,
          .HintsAsTooltip = true,
          .StrongUnfocused = true,
          .Editable = true,
          .EditDelay = std::chrono::milliseconds(100)};
}

std::vector<TTreeColumn> HeaderColumns() {
  std::vector<TTreeColumn> columns;
  for (const TFileColumn& column : FileColumns) {
    if (column.Width > 0)
      columns.push_back({column.Title, column.Width});
  }
  return columns;
}

std::string NoticeOf(const TInputError& problem) {
  std::string text = problem.what();
  if (!problem.Place().File.empty()) {
    text += " (" + problem.Place().File;
    if (problem.Place().Line != 0)
      text += ":" + std::to_string(problem.Place().Line);
    text += ")";
  }
  return text;
}

} // namespace

TDeploymentFrame::TDeploymentFrame(VelmorIDEServices& services, IControls& controls,
                                   std::shared_ptr<TViewThreads> threads)
    : FServices(services), FControls(controls), FListener(std::make_shared<TFrameListener>(*this)),
      FListening(FTarget, FListener), FConnection(std::move(threads)),
      FStatus(services, FTarget, FConnection), FContext(Context()),
      FEditing(FContext,
               [this](IProjectDeploymentFile& file) {
                 return SelectPlatform(*this, *FTarget.Project, file, FServices.GetModalForms());
               }),
      FCommands(FContext,
                [listener = FListener](const TConnectThread& thread) {
                  if (TDeploymentFrame* frame = listener->Frame())
                    frame->ConnectExeOnTerminate(thread);
                }),
      FRows(FStatus.Cache()) {
  FCommands.CreateToolBar();
  cbConfig = FControls.CreateTargetsComboBox();
  cbConfig->SetOnChange([this] { cbConfigChange(); });
  FRows.SetTree(FControls.CreateTree(FileListOptions(), TreeEvents()));
  FRows.Tree().SetColumns(HeaderColumns());
  SubscribeEvents();
}

TFrameContext TDeploymentFrame::Context() {
  return {.Services = FServices,
          .Controls = FControls,
          .Target = FTarget,
          .Connection = FConnection,
          .Status = FStatus,
          .Rows = FRows,
          .Listening = FListening,
          .SelectedConfiguration = [this] { return cbConfig->GetSelectedConfiguration(); },
          .ReconcileAndRefresh = [this] { ReconcileAndRefresh(); },
          .RefreshFiles = [this] { RefreshFiles(); },
          .UpdateDeployButton = [this] { UpdateDeployButton(); }};
}

TVirtualTreeEvents TDeploymentFrame::TreeEvents() {
  TVirtualTreeEvents events;
  events.OnGetText = [this](TNodeId node, int column) {
    return GetColumnText(Cells(), FRows.File(node), column);
  };
  events.OnPaintText = [this](TNodeId node, int, TTextColor& color) {
    vtFilesPaintText(node, color);
  };
  events.OnCompareNodes = [this](TNodeId first, TNodeId second, int column) {
    return vtFilesCompareNodes(first, second, column);
  };
  events.OnSortKey = [this](TNodeId node, int column) {
    return GetSortKey(Cells(), FRows.File(node), column);
  };
  events.OnHeaderClick = [this](int column, TMouseButton button) {
    vtFilesHeaderClick(column, button);
  };
  events.OnEditing = [](TNodeId, int column) { return TCellEditing::IsEditable(column); };
  events.OnCreateEditor = [this](TNodeId node, int column) {
    return FEditing.CreateEditor(node, column);
  };
  events.OnNewText = [this](TNodeId node, int column, std::string_view text) {
    FEditing.NewText(node, column, text);
  };
  events.OnEdited = [this](TNodeId node, int column) { vtFilesEdited(node, column); };
  events.OnChecking = [](TNodeId) { return true; };
  events.OnChecked = [this](TNodeId node) { FCommands.Entries().SwitchFile(node); };
  events.OnFreeNode = [this](TNodeId node) { vtFilesFreeNode(node); };
  return events;
}

void TDeploymentFrame::SubscribeEvents() {
  const auto changed = [this](ICustomProject& project, std::string_view platform) {
    PlatformAdded(project, platform);
  };
  FPlatformAdded = FServices.GetPlatformManager().PlatformAdded().Subscribe(changed);
  FPlatformRemoved = FServices.GetPlatformManager().PlatformRemoved().Subscribe(changed);
  if (IOTARemoteProfileServices* profiles = FServices.GetRemoteProfileServices())
    FRemoteProfileNotiferIndex = profiles->AddNotifier(FListener);
}

TDeploymentFrame::~TDeploymentFrame() {
  FListener->Detach();
  FListening.Leave();
  FServices.GetPlatformManager().PlatformAdded().Unsubscribe(FPlatformAdded);
  FServices.GetPlatformManager().PlatformRemoved().Unsubscribe(FPlatformRemoved);
  IOTARemoteProfileServices* profiles = FServices.GetRemoteProfileServices();
  if (profiles && FRemoteProfileNotiferIndex != -1)
    profiles->RemoveNotifier(FRemoteProfileNotiferIndex);
}

void TDeploymentFrame::InitializeData(const std::shared_ptr<IOTAProject>& project,
                                      const std::optional<TShowRequest>& request) {
  FTarget.Project = project;
  cbConfig->SetProject(project.get());
  FName = "DeploymentFrame_" + FControls.GetIdentifier(*project);
  FTarget.ActivePlatform = project->GetCurrentPlatform();
  if (request) {
    cbConfig->Select(request->Target);
    SetTarget(request->Target);
  }
  if (!FTarget.Deployment())
    return PopulateTree();
  FListening.Join();
  try {
    ReconcileTarget();
  } catch (const TInputError&) {
    return RefreshFiles(); // the notice says what is wrong with the target
  }
  if (!(request && request->Connect && ConnectFirst()))
    RefreshFiles();
}

void TDeploymentFrame::ShowTarget(const TShowRequest& request) {
  cbConfig->Select(request.Target);
  try {
    cbConfigChange();
  } catch (const TInputError&) {
    if (!FTargetProblem)
      throw;
  }
  if (request.Connect && !FConnection.HasConnection())
    ConnectFirst();
}

// True when the rows come with the end of an attempt to connect.
bool TDeploymentFrame::ConnectFirst() {
  if (!FCommands.Remote().CanConnect())
    return false;
  FCommands.Button(TFrameAction::Connect).SetDown(true);
  FAwaitsRows = true;
  FCommands.Execute(TFrameAction::Connect);
  return true;
}

void TDeploymentFrame::SetTarget(const TDeploymentTarget& target) {
  FTarget.ActivePlatform = target.Platform.empty() ? std::string(sAllPlatforms) : target.Platform;
  FTarget.Configuration = target.Configuration;
}

void TDeploymentFrame::cbConfigChange() {
  const std::string platform = cbConfig->GetSelectedPlatform();
  SetTarget({cbConfig->GetSelectedConfiguration(), platform});
  FCommands.Button(TFrameAction::Deploy).SetEnabled(!platform.empty());
  // The button is down, so this connects anew for the new target.
  if (FConnection.HasConnection())
    FCommands.Execute(TFrameAction::Connect);
  if (FTarget.Deployment()) {
    FRows.Tree().Clear();
    ReconcileAndRefresh();
  }
}

// A reconcile tells of every entry; the rows are built once, behind it.
void TDeploymentFrame::ReconcileTarget() {
  const TOwnChanges own(FListening);
  try {
    FTarget.Deployment()->Reconcile(FTarget.Configuration, FTarget.ActivePlatform);
    SetTargetProblem(std::nullopt);
  } catch (const TInputError& error) {
    SetTargetProblem(error);
    throw;
  }
}

// The rows show what the list holds, also when the target could not be computed.
void TDeploymentFrame::ReconcileAndRefresh() {
  try {
    ReconcileTarget();
  } catch (const std::exception&) {
    RefreshFiles();
    throw;
  }
  RefreshFiles();
}

void TDeploymentFrame::SetTargetProblem(std::optional<TInputError> problem) {
  FTargetProblem = std::move(problem);
  FRows.Tree().SetNotice(FTargetProblem ? NoticeOf(*FTargetProblem) : std::string());
}

void TDeploymentFrame::RefreshFiles() {
  const TTreeUpdate update(FRows.Tree());
  FAwaitsRows = false;
  FRows.Tree().Clear();
  if (FConnection.IsConnected())
    GatherRemoteFileInfo();
  else
    GatherInformation();
  cbConfig->Repopulate();
  PopulateTree();
  FRows.SortAgain();
}

void TDeploymentFrame::PopulateTree() {
  if (IProjectDeployment* deployment = FTarget.Deployment()) {
    TTargetEntries entries(*FTarget.Project,
                           {cbConfig->GetSelectedConfiguration(), FTarget.ActivePlatform});
    for (const auto& file : deployment->GetFiles()) {
      if (entries.IsListed(*file))
        FRows.Add(file, target_values::GetEnabled(*file, FTarget.ActivePlatform));
    }
  }
  UpdateDeployButton();
}

void TDeploymentFrame::GatherInformation() {
  if (FStatus.GatherInformation())
    UpdateDeployButton();
}

void TDeploymentFrame::GatherRemoteFileInfo() {
  if (FStatus.GatherRemoteFileInfo())
    UpdateDeployButton();
}

void TDeploymentFrame::InternalUpdateFileCache(const IProjectDeploymentFile& file) {
  FStatus.InternalUpdateFileCache(file);
}

void TDeploymentFrame::UpdateFileCache(const IProjectDeploymentFile& file) {
  if (FStatus.UpdateFileCache(file))
    UpdateDeployButton();
}

void TDeploymentFrame::UpdateDeployButton() {
  FCommands.Button(TFrameAction::Deploy)
      .SetEnabled(FTarget.HasSinglePlatform() && FStatus.Cache().DeployableRows() > 0);
}

bool TDeploymentFrame::IsInPlatform(std::string_view platform, const IProjectDeploymentFile& file) {
  return IsFileInPlatform(platform, file);
}

std::string TDeploymentFrame::FixPath(std::string_view path, std::string_view basePath) {
  return deployment::FixPath(path, basePath);
}

void TDeploymentFrame::AddPlatform(std::string_view platform, IProjectDeploymentFile& file) const {
  if (!IsInPlatform(platform, file))
    file.SetRemoteName(platform, file.GetLocalName());
}

bool TDeploymentFrame::RequiresProfile(std::string_view platform) const {
  return deployment::RequiresProfile(FServices, FTarget, platform);
}

void TDeploymentFrame::ItemChanged(IProjectDeploymentItem& /*item*/,
                                   TDeploymentItemAction /*action*/) {
  RefreshFiles();
}

void TDeploymentFrame::PlatformAdded(ICustomProject& /*project*/, std::string_view /*platform*/) {
  cbConfig->Repopulate();
}

bool TDeploymentFrame::DropConnection() {
  if (!FConnection.Drop())
    return false;
  FCommands.Button(TFrameAction::Connect).SetDown(false);
  return true;
}

void TDeploymentFrame::RemoteProfileChanged(const IOTARemoteProfile& /*profile*/) {
  if (DropConnection())
    RefreshFiles();
}

void TDeploymentFrame::RemoteProfileRemoved(const IOTARemoteProfile& /*profile*/) {
  if (DropConnection())
    FRows.Tree().Clear();
}

void TDeploymentFrame::ConnectExeOnTerminate(const TConnectThread& thread) {
  if (FCommands.Remote().ConnectEnded(FCommands.Button(TFrameAction::Connect), thread) ||
      FAwaitsRows)
    RefreshFiles();
}

void TDeploymentFrame::vtFilesPaintText(TNodeId node, TTextColor& color) const {
  if (FStatus.LocalFileExists(FRows.File(node)))
    return;
  // The style's own colour counts only where it is none at all.
  const bool noColor = FControls.GetStyle().GetTreeItemTextColor() == TTextColor::NoColor;
  color = noColor ? TTextColor::NoColor : TTextColor::ButtonShadow;
}

int TDeploymentFrame::vtFilesCompareNodes(TNodeId first, TNodeId second, int column) const {
  return GetSortKey(Cells(), FRows.File(first), column)
      .compare(GetSortKey(Cells(), FRows.File(second), column));
}

void TDeploymentFrame::vtFilesHeaderClick(int column, TMouseButton button) {
  if (button == TMouseButton::Left)
    FRows.ClickHeader(column);
}

void TDeploymentFrame::vtFilesEdited(TNodeId node, int column) {
  UpdateFileCache(FRows.File(node));
  if (TCellEditing::IsEditable(column))
    FTarget.Project->SetModified(true);
}

void TDeploymentFrame::vtFilesFreeNode(TNodeId node) {
  FEditing.Forget(node);
  FRows.Free(node);
}

} // namespace deployment
