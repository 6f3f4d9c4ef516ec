// The Deployment Manager of one project: its file list, the commands above it and the target box.
#pragma once

#include "package/common/errors.h"
#include "package/host/api/controls.h"
#include "package/host/api/deploymentapi.h"
#include "package/view/cell_editing.h"
#include "package/view/cell_texts.h"
#include "package/view/connection.h"
#include "package/view/file_rows.h"
#include "package/view/frame_commands.h"
#include "package/view/frame_context.h"
#include "package/view/frame_listener.h"
#include "package/view/frame_target.h"
#include "package/view/own_changes.h"
#include "package/view/status_gatherer.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace deployment {

class TViewThreads;

/// The face of the view: puts its parts together and passes on what the host's controls, the
/// deployment and the profiles tell. Used on the host's main thread only. A project without a
/// deployment or without platforms leaves it empty.
class TDeploymentFrame final : public IFrame {
public:
  using TFileData = TFileRows::TFileData;
  using TFileList = TFileRows::TFileList;

  /// Makes the controls. Services and controls must outlive the frame; `threads` is where attempts
  /// to connect go on when the frame is gone.
  TDeploymentFrame(VelmorIDEServices& services, IControls& controls,
                   std::shared_ptr<TViewThreads> threads);
  TDeploymentFrame(const TDeploymentFrame&) = delete;
  TDeploymentFrame& operator=(const TDeploymentFrame&) = delete;
  ~TDeploymentFrame() override;

  std::string GetName() const override { return FName; }

  /// Binds the frame to its project, reconciles for the target that is asked for, or else for the
  /// project's platform, and shows the rows. To be called once. A target that cannot be computed
  /// leaves TargetProblem; what the list itself throws is thrown.
  void InitializeData(const std::shared_ptr<IOTAProject>& project,
                      const std::optional<TShowRequest>& request = std::nullopt);
  /// Shows the target as if the user chose it; a target that cannot be computed leaves
  /// TargetProblem.
  void ShowTarget(const TShowRequest& request);
  /// Why the target that is shown could not be computed; then the rows are what the list held
  /// before, and a notice says so. Empty when it could.
  const std::optional<TInputError>& TargetProblem() const { return FTargetProblem; }

  /// Builds the status cache anew, without or with the remote machine.
  void GatherInformation();
  void GatherRemoteFileInfo();
  /// Finds out the status of one file, which belongs to the target, and keeps it.
  void InternalUpdateFileCache(const IProjectDeploymentFile& file);
  /// The same after a change of the file, with the profile of the project's active platform.
  void UpdateFileCache(const IProjectDeploymentFile& file);
  /// Builds cache and rows anew.
  void RefreshFiles();
  /// Adds one row for each file that the target shows.
  void PopulateTree();
  /// True for no platform and for "All Platforms"; else when the file has the platform, ignoring
  /// case.
  static bool IsInPlatform(std::string_view platform, const IProjectDeploymentFile& file);
  /// A remote directory as seen from the base: relative ones stand in it, others for themselves.
  /// Ends in a delimiter.
  static std::string FixPath(std::string_view path, std::string_view basePath);
  /// Makes the file belong to the platform.
  void AddPlatform(std::string_view platform, IProjectDeploymentFile& file) const;
  /// True when deploying to the platform takes a remote profile.
  bool RequiresProfile(std::string_view platform) const;

  /// Brackets changes that the view makes itself, of which it need not hear.
  void BeginUpdateNotifier() { FListening.BeginUpdateNotifier(); }
  void EndUpdateNotifier() { FListening.EndUpdateNotifier(); }
  /// Switches files on or off for the active platform: all rows, or the selected ones.
  void CheckFiles(bool all) { FCommands.Entries().SetFilesEnabled(all, /*enabled=*/true); }
  void UncheckFiles(bool all) { FCommands.Entries().SetFilesEnabled(all, /*enabled=*/false); }
  /// Selects the rows of these files; others stay selected.
  void ReSelectNodes(const TFileList& files) { FRows.ReSelectNodes(files); }

  /// An entry of the deployment changed, the deployment goes away.
  void ItemChanged(IProjectDeploymentItem& item, TDeploymentItemAction action);
  void Destroyed() { FListening.Forget(); }
  /// A platform was added to a project, or taken from one.
  void PlatformAdded(ICustomProject& project, std::string_view platform);
  void RemoteProfileChanged(const IOTARemoteProfile& profile);
  void RemoteProfileRemoved(const IOTARemoteProfile& profile);
  /// The attempt to connect has ended.
  void ConnectExeOnTerminate(const TConnectThread& thread);

private:
  TFrameContext Context();
  TVirtualTreeEvents TreeEvents();
  void SubscribeEvents();
  TCellContext Cells() const { return {FTarget, FStatus}; }
  void SetTarget(const TDeploymentTarget& target);
  void cbConfigChange();
  void ReconcileTarget();
  void ReconcileAndRefresh();
  void SetTargetProblem(std::optional<TInputError> problem);
  bool ConnectFirst();
  bool DropConnection();
  void UpdateDeployButton();

  // Events of the file list.
  void vtFilesPaintText(TNodeId node, TTextColor& color) const;
  int vtFilesCompareNodes(TNodeId first, TNodeId second, int column) const;
  void vtFilesHeaderClick(int column, TMouseButton button);
  void vtFilesEdited(TNodeId node, int column);
  void vtFilesFreeNode(TNodeId node);

  VelmorIDEServices& FServices;
  IControls& FControls;
  std::string FName;
  TFrameTarget FTarget;
  std::optional<TInputError> FTargetProblem;
  bool FAwaitsRows = false; ///< they come when the attempt to connect has ended
  TEventHandle FPlatformAdded = 0;
  TEventHandle FPlatformRemoved = 0;
  int FRemoteProfileNotiferIndex = -1;

  std::shared_ptr<TFrameListener> FListener;
  TDeploymentListening FListening;
  TConnection FConnection;
  TStatusGatherer FStatus;
  TFrameContext FContext;
  TCellEditing FEditing;
  TFrameCommands FCommands;
  std::unique_ptr<ITargetsComboBox> cbConfig;
  TFileRows FRows; ///< goes first: the tree tells of its nodes to the last
};

} // namespace deployment
