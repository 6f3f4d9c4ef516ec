// The window: menus, a tab for each project, the deploy panel below.
#pragma once

#include "workbench/desktop/window/background_work.h"
#include "workbench/desktop/window/editor_tabs.h"
#include "workbench/desktop/window/project_tabs.h"
#include "workbench/desktop/window/project_watcher.h"
#include "workbench/desktop/window/window_layout.h"

#include <QMainWindow>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QLabel;
class QMenu;
class QSplitter;
class QToolButton;

namespace workbench {

class TConnectionQuestions;
class TDeployPanel;
class TModalDialogs;
class TWelcomePage;

/// Name of the history of projects that were opened.
inline constexpr std::string_view RecentProjects = "recent-projects";

/// True for a name such as "Name.vproj"; side files are no projects.
bool IsProjectFile(const std::filesystem::path& file);

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
  TDeployPanel& Panel() { return *FPanel; }
  /// The controls of the current project; null for none.
  TFormControls* CurrentControls() const;
  TOpenProject* CurrentProject() const;

protected:
  void closeEvent(QCloseEvent* event) override;
  void changeEvent(QEvent* event) override;
  void dragEnterEvent(QDragEnterEvent* event) override;
  void dropEvent(QDropEvent* event) override;

private:
  void MakePages();
  void MakeStatusBar();
  void MakeMenus();
  void MakeFileMenu();
  void MakeEditMenu();
  void MakeDeploymentMenu();
  void MakeToolsMenu();
  void MakeHelpMenu();
  void ServeSession();
  QAction* AddAction(QMenu& menu, const QString& text, const QKeySequence& keys,
                     const std::function<void()>& run);

  void Opened(TOpenProject& project);
  void ShowState();
  void ShowPresentState();
  void ShowTrouble();
  void ExplainMissingProfile(TOpenProject& project);
  void ShowStateSoon() { FState.start(); }
  void ShowPage();
  void FillRecent();
  void AskForProject();
  void Undo();
  void Redo();
  void ShowUndo();
  void Copy();
  void SelectAll();
  void AddDropped(const QStringList& files);
  void ShowProfiles();
  void ShowSettings();
  void ShowWarnings();
  void ShowAbout();
  bool MayRun(const std::vector<std::string>& commands, const std::string& place);
  void ShowLostConnection(const std::string& profile, const std::string& reason);
  bool CreateProfile(const deployment::ICustomProject& project, std::string_view platform);
  void KeepLayout() const;

  TSession& FSession;
  const TWindowLayout FLayout;
  TBackgroundWork FBackground;
  TEditorTabs* FTabs = nullptr;
  TDeployPanel* FPanel = nullptr;
  QSplitter* FSplitter = nullptr;
  TWelcomePage* FWelcome = nullptr;
  QLabel* FCounts = nullptr;
  QToolButton* FWarnings = nullptr;
  QMenu* FRecent = nullptr;
  QAction* FUndo = nullptr;
  QAction* FRedo = nullptr;
  QMenu* FDeployment = nullptr;
  std::vector<QAction*> FProjectActions; // of use with a project only
  std::unique_ptr<TModalDialogs> FModalForms;
  std::unique_ptr<TProjectTabs> FProjects;
  std::shared_ptr<TConnectionQuestions> FQuestions; // threads hold it too
  QString FTrouble;                                 // that was said
  TProjectWatcher FWatcher;
  QTimer FState;
  QTimer FPoll;
};

} // namespace workbench
