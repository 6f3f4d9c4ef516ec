// The window: menus, a tab for each project, the deploy panel below.
#pragma once

#include "workbench/desktop/controls/background_work.h"
#include "workbench/desktop/projects/editor_tabs.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/projects/project_watcher.h"
#include "workbench/desktop/window/window_layout.h"

#include <QMainWindow>
#include <QTimer>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QStackedWidget;

namespace workbench {

class TDeployPanel;
class TListCommands;
class TMissingNotices;
class TModalDialogs;
class TServedSession;
class TProjectNotices;
class TProjectPanes;
class TTargetsTab;
class TWelcomePage;
class TWindowPanes;
class TWindowMenus;
class TWindowStatus;
struct TWindowCommand;

class TMainWindow final : public QMainWindow {
  Q_OBJECT

public:
  /// The session must outlive the window, which shows its views, asks its questions and does its
  /// long work from now on.
  explicit TMainWindow(TSession& session);
  ~TMainWindow() override;

  /// Opens a project or brings it forward; an error is said to the user. False when it is not open.
  bool Open(const std::filesystem::path& file);
  /// Chooses the target of the current project, as in its target box.
  void ChooseTarget(const std::string& configuration, const std::string& platform);
  /// Opens what was open when the window was closed last.
  void Restore();
  /// Offers the edits that an earlier run left behind.
  void OfferRecovery();

  TProjectTabs& Projects() { return *FProjects; }
  TEditorTabs& Tabs() { return *FTabs; }
  TProjectNotices& Notices() { return *FNotices; }
  TDeployPanel& Panel() { return *FPanel; }
  /// The controls of the current project; null for none.
  TFormControls* CurrentControls() const;
  TOpenProject* CurrentProject() const;

signals:
  /// This project is in front now; null when none is. The controls go with it.
  void ProjectShown(TOpenProject* project, TFormControls* controls);

protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

private:
  void MakePages();
  void MakeWelcome();
  void MakeMenus();
  std::vector<TWindowCommand> FileCommands();
  std::vector<TWindowCommand> EditCommands();
  std::vector<TWindowCommand> ToolsCommands();
  void WatchState();
  void WatchFiles();
  void CheckDisk();

  void Opened(TOpenProject& project);
  void ShowState();
  void ShowStateSoon() { FState.start(); }
  void ShowPage();
  void FocusListSoon();
  void AskForProject();
  void NewProject();
  void ShowRecent();
  void ShowGuide();
  void SaveAs();
  void Step(void (TEditHistory::*step)());
  void Copy();
  void SelectAll();
  void AddDropped(const QStringList& files);
  void AddDroppedFolder(const std::filesystem::path& folder);
  void ShowAbout();
  void KeepLayout() const;

  TSession& FSession;
  const TWindowLayout FLayout;
  TBackgroundWork FBackground;
  TEditorTabs* FTabs = nullptr;
  TDeployPanel* FPanel = nullptr;
  TWindowPanes* FPanes = nullptr;
  QStackedWidget* FPages = nullptr;
  TWelcomePage* FWelcome = nullptr;
  TWindowMenus* FMenus = nullptr;
  TWindowStatus* FStatus = nullptr;
  TProjectNotices* FNotices = nullptr;
  TMissingNotices* FMissing = nullptr;
  TListCommands* FListCommands = nullptr;
  TProjectPanes* FProjectPanes = nullptr;
  TTargetsTab* FTargets = nullptr;
  std::unique_ptr<TModalDialogs> FModalForms;
  std::unique_ptr<TProjectTabs> FProjects;
  std::unique_ptr<TServedSession> FServed;
  TProjectWatcher FWatcher;
  QTimer FState;
  QTimer FPoll;
};

} // namespace workbench
