// The menus of the window: one table says which commands there are.
#pragma once

#include <QKeySequence>
#include <QObject>
#include <QString>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

class QAction;
class QMainWindow;
class QMenu;

namespace workbench {

class TProjectTabs;
class TEditorTabs;
class TSettings;

/// Name of the history of projects that were opened.
inline constexpr const char* RecentProjects = "recent-projects";

/// What the menus keep up to date about a command.
enum class TCommandKind {
  Always,  ///< nothing
  Project, ///< is of use with a project only
  Open,    ///< is followed by the projects that were open lately
  Undo,    ///< names the step
  Redo     ///< names the step
};

/// A command of a menu.
struct TWindowCommand {
  QString Text;
  QKeySequence Keys;
  std::function<void()> Run; ///< empty: a line between commands
  TCommandKind Kind = TCommandKind::Always;
};

/// Fills the menu bar. A command leaves a cell editor that is open first, and is not given where
/// the form refuses the text that stands in it.
class TWindowMenus final : public QObject {
  Q_OBJECT

public:
  /// Everything must outlive the object. `open` opens a project.
  TWindowMenus(QMainWindow& window, TProjectTabs& projects, TEditorTabs& tabs, TSettings& settings,
               std::function<void(const std::filesystem::path&)> open);

  /// Adds a menu with these commands; it stands behind the others.
  void AddMenu(const QString& title, const std::vector<TWindowCommand>& commands);
  /// Adds the menu in which the commands of the tool bar in front stand.
  void AddDeploymentMenu();
  /// Names the steps that can be undone, and enables what the project in front allows.
  void Update();

private:
  QAction* Add(QMenu& menu, const TWindowCommand& command);
  void AddRecent(QMenu& menu);
  void FillRecent();
  void FillDeployment();
  void UpdateUndo();
  static QString StepText(const std::string& name);

  QMainWindow& FWindow;
  TProjectTabs& FProjects;
  TEditorTabs& FTabs;
  TSettings& FSettings;
  const std::function<void(const std::filesystem::path&)> FOpen;
  QMenu* FRecent = nullptr;
  QMenu* FDeployment = nullptr;
  QAction* FUndo = nullptr;
  QAction* FRedo = nullptr;
  std::vector<QAction*> FProjectActions; // of use with a project only
};

} // namespace workbench
