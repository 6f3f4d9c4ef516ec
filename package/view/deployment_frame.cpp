// Life of the frame: its controls, the project that it is bound to, and what it hears.
#include "package/view/deployment_frame.h"

#include "package/view/frame_brackets.h"
#include "package/view/view_strings.h"

#include <chrono>
#include <utility>

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

} // namespace

TDeploymentFrame::TDeploymentFrame(VelmorIDEServices& services, IControls& controls,
                                   std::shared_ptr<TConnectThreads> threads)
    : FServices(services), FControls(controls), FThreads(std::move(threads)),
      FListener(std::make_shared<TFrameListener>(*this)) {
  CreateToolBar();
  cbConfig = FControls.CreateTargetsComboBox();
  cbConfig->SetOnChange([this] { cbConfigChange(); });
  vtFiles = FControls.CreateTree(FileListOptions(), TreeEvents());
  vtFiles->SetColumns(FileColumns());
  SubscribeEvents();
}

TVirtualTreeEvents TDeploymentFrame::TreeEvents() {
  TVirtualTreeEvents events;
  events.OnGetText = [this](TNodeId node, int column) { return vtFilesGetText(node, column); };
  events.OnPaintText = [this](TNodeId node, int, TTextColor& color) {
    vtFilesPaintText(node, color);
  };
  events.OnCompareNodes = [this](TNodeId first, TNodeId second, int column) {
    return vtFilesCompareNodes(first, second, column);
  };
  events.OnSortKey = [this](TNodeId node, int column) { return SortKey(node, column); };
  events.OnHeaderClick = [this](int column, TMouseButton button) {
    vtFilesHeaderClick(column, button);
  };
  events.OnEditing = [](TNodeId, int column) { return vtFilesEditing(column); };
  events.OnCreateEditor = [this](TNodeId node, int column) {
    return vtFilesCreateEditor(node, column);
  };
  events.OnNewText = [this](TNodeId node, int column, std::string_view text) {
    vtFilesNewText(node, column, text);
  };
  events.OnEdited = [this](TNodeId node, int column) { vtFilesEdited(node, column); };
  events.OnChecking = [](TNodeId) { return true; };
  events.OnChecked = [this](TNodeId node) { vtFilesChecked(node); };
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
  if (IProjectDeployment* deployment = FNotifyIndex != -1 ? Deployment() : nullptr)
    deployment->RemoveNotifier(FNotifyIndex);
  FServices.GetPlatformManager().PlatformAdded().Unsubscribe(FPlatformAdded);
  FServices.GetPlatformManager().PlatformRemoved().Unsubscribe(FPlatformRemoved);
  IOTARemoteProfileServices* profiles = FServices.GetRemoteProfileServices();
  if (profiles && FRemoteProfileNotiferIndex != -1)
    profiles->RemoveNotifier(FRemoteProfileNotiferIndex);
}

void TDeploymentFrame::InitializeData(const std::shared_ptr<IOTAProject>& project) {
  FProject = project;
  cbConfig->SetProject(project.get());
  FName = "DeploymentFrame_" + FControls.GetIdentifier(*project);
  FActivePlatform = project->GetCurrentPlatform();
  IProjectDeployment* deployment = Deployment();
  if (!deployment)
    return PopulateTree();
  FNotifyIndex = deployment->AddNotifier(FListener);
  ReconcileTarget(*deployment);
  RefreshFiles();
}

IProjectDeployment* TDeploymentFrame::Deployment() const {
  return FProject ? FProject->GetProjectDeployment() : nullptr;
}

IOTAProjectPlatforms* TDeploymentFrame::Platforms() const {
  return FProject ? FProject->GetProjectPlatforms() : nullptr;
}

bool TDeploymentFrame::HasSinglePlatform() const {
  return !FActivePlatform.empty() && FActivePlatform != LoadText(TViewString::AllPlatforms);
}

std::string TDeploymentFrame::SinglePlatform() const {
  const IOTAProjectPlatforms* platforms = Platforms();
  return HasSinglePlatform() || !platforms ? FActivePlatform : platforms->GetActivePlatform();
}

// A reconcile tells of every entry; the rows are built once, by whoever asked for it.
void TDeploymentFrame::ReconcileTarget(IProjectDeployment& deployment) {
  struct TReconciling {
    explicit TReconciling(bool& flag) : Flag(flag) { Flag = true; }
    TReconciling(const TReconciling&) = delete;
    TReconciling& operator=(const TReconciling&) = delete;
    ~TReconciling() { Flag = false; }
    bool& Flag;
  };
  const TReconciling reconciling(FReconciling);
  deployment.Reconcile(FConfiguration, FActivePlatform);
}

void TDeploymentFrame::cbConfigChange() {
  FActivePlatform = cbConfig->GetSelectedPlatform();
  FConfiguration = cbConfig->GetSelectedConfiguration();
  Button(TFrameAction::Deploy).SetEnabled(!FActivePlatform.empty());
  if (FActivePlatform.empty())
    FActivePlatform = LoadText(TViewString::AllPlatforms);
  // The button is down, so this connects anew for the new target.
  if (FConnected)
    sbConnectExecute();
  if (IProjectDeployment* deployment = Deployment()) {
    vtFiles->Clear();
    ReconcileTarget(*deployment);
    RefreshFiles();
  }
}

void TDeploymentFrame::RefreshFiles() {
  const TTreeUpdate update(*vtFiles);
  vtFiles->Clear();
  if (FConnected && !FConnecting)
    GatherRemoteFileInfo();
  else
    GatherInformation();
  cbConfig->Repopulate();
  PopulateTree();
  if (FSortColumn != -1)
    vtFiles->SortTree(FSortColumn, FSortDirection);
}

void TDeploymentFrame::BeginUpdateNotifier() {
  if (IProjectDeployment* deployment = FNotifyIndex != -1 ? Deployment() : nullptr)
    deployment->RemoveNotifier(FNotifyIndex);
  FNotifyIndex = -1;
}

void TDeploymentFrame::EndUpdateNotifier() {
  IProjectDeployment* deployment = Deployment();
  if (deployment && FNotifyIndex == -1)
    FNotifyIndex = deployment->AddNotifier(FListener);
}

void TDeploymentFrame::ItemChanged(IProjectDeploymentItem& /*item*/,
                                   TDeploymentItemAction /*action*/) {
  if (!FReconciling)
    RefreshFiles();
}

void TDeploymentFrame::PlatformAdded(ICustomProject& /*project*/, std::string_view /*platform*/) {
  cbConfig->Repopulate();
}

// An attempt that runs meanwhile was for the profile as it had been.
void TDeploymentFrame::DropConnection() {
  FCancelConnect = true;
  FConnected = false;
  Button(TFrameAction::Connect).SetDown(false);
}

void TDeploymentFrame::RemoteProfileChanged(const IOTARemoteProfile& /*profile*/) {
  if (!FConnected)
    return;
  DropConnection();
  RefreshFiles();
}

void TDeploymentFrame::RemoteProfileRemoved(const IOTARemoteProfile& /*profile*/) {
  if (!FConnected)
    return;
  DropConnection();
  vtFiles->Clear();
}

} // namespace deployment
