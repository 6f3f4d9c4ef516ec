// The deployment lists of an IDE's projects, one of them in front, and all that works on them.
#pragma once

#include "workbench/desktop/controls/background_work.h"
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"
#include "workbench/desktop/projects/editor_tabs.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/projects/project_watcher.h"
#include "workbench/ide/view/list_problem.h"
#include "workbench/session/project_from_build.h"
#include "workbench/session/session.h"

#include <QString>
#include <QTimer>
#include <QWidget>
#include <filesystem>
#include <map>
#include <memory>
#include <string_view>
#include <vector>

namespace workbench {

class TDeployPanel;
class TListCommands;
class TProjectNotices;
class TServedSession;
struct TDeployReport;

/// What becomes of edits when their project goes.
enum class TUnsavedEdits {
  Ask, ///< the user is asked whether to save them; who does not say gets them back next time
  Keep ///< they can be had back when the list is opened again
};

class TProjectLists final : public QWidget {
  Q_OBJECT

public:
  /// Loads the package. Throws TInputError where it or the platform table cannot be loaded.
  explicit TProjectLists(QWidget* parent);
  ~TProjectLists() override;

  /// Opens the list or brings it forward; edits that an earlier run left behind are offered. False
  /// when it is not open, which was said.
  bool Open(const std::filesystem::path& file);
  /// Makes a list from a build and opens it. False when it was not made, which was said.
  bool Make(const std::filesystem::path& file, const TBuildSource& source);
  void Close(const std::filesystem::path& file, TUnsavedEdits edits);

  /// Commands of the list in front; nothing happens without one.
  void Save();
  void Undo() { Step(&TEditHistory::Undo); }
  void Redo() { Step(&TEditHistory::Redo); }
  void ShowProfiles();
  /// Gives a command of the list's own tool bar, such as view_button::Deploy.
  void Press(std::string_view button);

  bool HasList() const { return FTabs->count() > 0; }
  bool IsModified() const { return FProjects->IsModified(FTabs->currentIndex()); }
  bool CanUndo();
  bool CanRedo();
  /// While it is, nothing may be closed: the work goes on with what is open.
  bool IsBusy() const { return FBackground.IsBusy(); }
  std::vector<std::string> Platforms() const;
  /// What is wrong with all lists that are open, and what the last deploy of each could not bring.
  std::vector<TListProblem> Problems() const;

signals:
  /// Something may have changed that the commands or the problems depend on.
  void StateChanged();
  void BusyChanged(bool busy);
  /// A sentence that needs no answer.
  void Notice(const QString& text);

private:
  int IndexOf(const std::filesystem::path& file);
  TOpenProject* CurrentProject() const { return FProjects->ProjectAt(FTabs->currentIndex()); }
  void Opened(TOpenProject& project);
  void Deployed(const TDeployReport& report);
  void Step(void (TEditHistory::*step)());
  void AddDropped(const QStringList& files);
  void WatchFiles();
  void CheckDisk();
  void ShowState();

  TSession FSession;
  TBackgroundWork FBackground;
  TModalDialogs FForms;
  TEditorTabs* FTabs;
  TDeployPanel* FPanel;
  std::unique_ptr<TProjectTabs> FProjects;
  std::unique_ptr<TServedSession> FServed;
  TListCommands* FCommands;
  TProjectNotices* FNotices;
  TProjectWatcher FWatcher;
  QTimer FState;
  QTimer FPoll;
  std::map<std::filesystem::path, std::vector<TListProblem>> FFailures; // of the last deploys
};

} // namespace workbench
