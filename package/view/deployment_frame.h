// The Deployment Manager of one project: its file list, the commands above it and the target box.
#pragma once

#include "package/host/api/controls.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/entry_paths.h"
#include "package/host/api/ideservices.h"
#include "package/view/connect_thread.h"
#include "package/view/connect_threads.h"
#include "package/view/file_status_cache.h"
#include "package/view/frame_listener.h"

#include <array>
#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// The commands in the order of the tool bar.
enum class TFrameAction : std::size_t {
  Reconcile,
  Add,
  Delete,
  AddFeature,
  Deploy,
  Connect,
  ResetDefault,
  CheckAll,
  UncheckAll,
  CheckSelection,
  UncheckSelection,
  ChangeRemotePath,
  ChangeOverwrite,
};
inline constexpr std::size_t FrameActionCount = 13;

/// Owns the state and the rules of the view; the host's controls show it. Used on the host's main
/// thread only. A project without a deployment or without platforms leaves it empty.
class TDeploymentFrame final : public IFrame {
public:
  /// A row of the list: the one record that a node of the tree carries.
  struct TFileData {
    std::shared_ptr<IProjectDeploymentFile> ProjectDeploymentFile;
  };
  using TFileList = std::vector<std::shared_ptr<IProjectDeploymentFile>>;

  /// Makes the controls. Services and controls must outlive the frame; `threads` is where attempts
  /// to connect go on when the frame is gone.
  TDeploymentFrame(VelmorIDEServices& services, IControls& controls,
                   std::shared_ptr<TConnectThreads> threads);
  TDeploymentFrame(const TDeploymentFrame&) = delete;
  TDeploymentFrame& operator=(const TDeploymentFrame&) = delete;
  ~TDeploymentFrame() override;

  std::string GetName() const override { return FName; }

  /// Binds the frame to its project, reconciles for the project's platform and shows the rows. To
  /// be called once.
  void InitializeData(const std::shared_ptr<IOTAProject>& project);

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
  void BeginUpdateNotifier();
  void EndUpdateNotifier();
  /// Switches files on or off for the active platform: all rows, or the selected ones.
  void CheckFiles(bool all);
  void UncheckFiles(bool all);
  /// Selects the rows of these files; others stay selected.
  void ReSelectNodes(const TFileList& files);

  /// An entry of the deployment changed, the deployment goes away.
  void ItemChanged(IProjectDeploymentItem& item, TDeploymentItemAction action);
  void Destroyed() { FNotifyIndex = -1; }
  /// A platform was added to a project, or taken from one.
  void PlatformAdded(ICustomProject& project, std::string_view platform);
  void RemoteProfileChanged(const IOTARemoteProfile& profile);
  void RemoteProfileRemoved(const IOTARemoteProfile& profile);

private:
  struct TRow {
    TFileData Data;
    TFileStatusCache::TEntry* Entry = nullptr;
    bool Checked = false;
  };
  struct TActionRow;
  struct TColumnRow;
  class TNotifierBracket;
  class TTreeUpdate;

  // Making and binding.
  TVirtualTreeEvents TreeEvents();
  void CreateToolBar();
  void SubscribeEvents();
  IProjectDeployment* Deployment() const;
  IOTAProjectPlatforms* Platforms() const;
  void ReconcileTarget(IProjectDeployment& deployment);
  void cbConfigChange();
  bool HasSinglePlatform() const;
  /// The chosen platform; that of the project while all are shown.
  std::string SinglePlatform() const;

  // Status.
  TEntryPaths EntryPaths(const IProjectDeployment& deployment) const;
  void UpdateAllFiles(IProjectDeployment& deployment);
  void ExpectQueries(const TEntryPaths& paths, const TDeploymentFiles& files) const;
  void UpdateCacheEntry(const TEntryPaths& paths, const IProjectDeploymentFile& file);
  bool CompareWithRemote(const TEntryPaths& paths, const IProjectDeploymentFile& file,
                         std::string_view localFile, TRemoteState& state) const;
  std::string StatusText(const TFileData& data, bool local) const;

  // Rows.
  TRow& Row(TNodeId node) { return FRows[node]; }
  IProjectDeploymentFile& FileOf(TNodeId node) { return *FRows[node].Data.ProjectDeploymentFile; }
  void AddRow(const std::shared_ptr<IProjectDeploymentFile>& file);
  void SetRowChecked(TNodeId node, bool checked);
  void SetFilesEnabled(bool all, bool enabled);
  void UpdateDeployButton();
  void DropConnection();

  // Texts of the cells.
  static const std::vector<TColumnRow>& ColumnRows();
  static std::vector<TTreeColumn> FileColumns();
  std::string GetLocalPathText(const TFileData& data) const;
  std::string GetLocalNameText(const TFileData& data) const;
  std::string GetClassText(const TFileData& data) const;
  std::string GetConfigText(const TFileData& data) const;
  std::string GetPlatformText(const TFileData& data) const;
  std::string GetRemotePathText(const TFileData& data) const;
  std::string GetRemoteNameText(const TFileData& data) const;
  std::string GetRemoteStatusText(const TFileData& data) const;
  std::string GetOverwriteText(const TFileData& data) const;
  std::string GetLocalStatusText(const TFileData& data) const;
  std::string GetColumnText(const TFileData& data, int column) const;
  std::string SortKey(TNodeId node, int column);

  // Events of the file list.
  std::string vtFilesGetText(TNodeId node, int column);
  void vtFilesPaintText(TNodeId node, TTextColor& color);
  int vtFilesCompareNodes(TNodeId first, TNodeId second, int column);
  void vtFilesHeaderClick(int column, TMouseButton button);
  static bool vtFilesEditing(int column);
  std::unique_ptr<ICellEditor> vtFilesCreateEditor(TNodeId node, int column);
  void vtFilesNewText(TNodeId node, int column, std::string_view text);
  void vtFilesEdited(TNodeId node, int column);
  void vtFilesChecked(TNodeId node);
  void vtFilesFreeNode(TNodeId node);
  bool EditorButtonPressed(ICellEditor& editor);

  // Commands.
  static const std::array<TActionRow, FrameActionCount>& ActionRows();
  IToolButton& Button(TFrameAction action) const;
  void EnableWithSelection(TFrameAction action) const;
  TFileList SelectedFiles() const;
  TFileList SelectedFilesOfPlatform() const;
  void sbReconcileExecute();
  void sbAddExecute();
  void AddChosenFile(IProjectDeployment& deployment, const std::string& path);
  void sbDeleteExecute();
  void sbDeleteUpdate();
  bool ConfirmDelete(const IProjectDeploymentFile& file, bool several, bool& all, bool& cancelled);
  void sbAddFeatureExecute();
  void sbDeployExecute();
  bool ChoosePlatformToDeploy(IOTAProjectPlatforms& platforms);
  bool PromptForProfile(std::string_view platform);
  void sbConnectExecute();
  void sbConnectUpdate();
  void ConnectExeOnTerminate(const TConnectThread& thread);
  void sbResetDefaultExecute();
  void sbCheckAllExecute() { CheckFiles(true); }
  void sbUncheckAllExecute() { UncheckFiles(true); }
  void sbCheckSelectionExecute() { CheckFiles(false); }
  void sbUncheckSelectionExecute() { UncheckFiles(false); }
  void sbCheckSelectionUpdate() { EnableWithSelection(TFrameAction::CheckSelection); }
  void sbUncheckSelectionUpdate() { EnableWithSelection(TFrameAction::UncheckSelection); }
  void sbChangeRemotePathExecute();
  void sbChangeRemotePathUpdate() { EnableWithSelection(TFrameAction::ChangeRemotePath); }
  void sbChangeOverwriteExecute();
  void sbChangeOverwriteUpdate() { EnableWithSelection(TFrameAction::ChangeOverwrite); }

  VelmorIDEServices& FServices;
  IControls& FControls;
  std::shared_ptr<TConnectThreads> FThreads;
  std::string FName;

  std::shared_ptr<IOTAProject> FProject;
  std::string FActivePlatform; ///< or "All Platforms"
  std::string FConfiguration;
  TNodeId FEditingNode = 0;
  int FNotifyIndex = -1; ///< at the deployment; -1 for none
  bool FConnected = false;
  bool FConnecting = false;
  TFileStatusCache FFileCache;
  std::shared_ptr<IOTARemoteProfile> FProfile;
  bool FCancelConnect = false; ///< the running attempt is to be discarded when it ends
  int FRemoteProfileNotiferIndex = -1;
  int FSortColumn = -1;
  TSortDirection FSortDirection = TSortDirection::Ascending;

  bool FReconciling = false; ///< the rows are built when it is done
  TEventHandle FPlatformAdded = 0;
  TEventHandle FPlatformRemoved = 0;
  std::shared_ptr<TFrameListener> FListener;
  std::vector<TRow> FRows; ///< by node
  std::array<IToolButton*, FrameActionCount> FButtons{};

  std::unique_ptr<IToolBar> FToolBar;
  std::unique_ptr<ITargetsComboBox> cbConfig;
  std::unique_ptr<IVirtualStringTree> vtFiles;
};

} // namespace deployment
