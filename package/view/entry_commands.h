// The commands that change entries.
#pragma once

#include "package/view/file_rows.h"
#include "package/view/frame_context.h"

#include <string>
#include <vector>

namespace deployment {

class IProjectDeployment;

/// Each command that changes several entries tells nobody of them and builds the rows once. All do
/// nothing for a project without a deployment.
class TEntryCommands {
public:
  using TFileList = TFileRows::TFileList;

  explicit TEntryCommands(const TFrameContext& frame) : FFrame(frame) {}

  void Reconcile();
  void AddFiles();
  /// Asks for each selected file of the user's classes, once for all when the user says so.
  void DeleteFiles();
  bool CanDelete() const;
  void AddFeature();
  void ResetDefault();
  /// Switches files on or off for the target: all rows, or the selected ones.
  void SetFilesEnabled(bool all, bool enabled);
  void ChangeRemotePath();
  void ChangeOverwrite();
  /// The user clicked the box of a row: the file decides what that means, for all of its platforms
  /// in the project at once.
  void SwitchFile(TNodeId node);

private:
  enum class TDeletion { Asking, All, Cancelled };

  void AddChosenFile(IProjectDeployment& deployment, const std::string& path);
  bool ConfirmDelete(const IProjectDeploymentFile& file, bool several, TDeletion& deletion);
  TFileList SelectedFilesOfTarget() const;
  void ShowChanges(const TFileList& selected);

  const TFrameContext& FFrame;
};

} // namespace deployment
