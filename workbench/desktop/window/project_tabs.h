// The projects that are open side by side, each on a tab.
#pragma once

#include "workbench/desktop/window/background_work.h"
#include "workbench/desktop/window/editor_tabs.h"
#include "workbench/desktop/window/project_edits.h"
#include "workbench/session/session.h"

#include <QObject>
#include <filesystem>
#include <memory>
#include <vector>

namespace workbench {

/// Opens, saves, reloads and closes. What goes wrong is said to the user, and the other projects
/// stay as they are.
class TProjectTabs final : public QObject {
  Q_OBJECT

public:
  /// Everything must outlive the object. Dialogs stand before the window.
  TProjectTabs(TSession& session, TEditorTabs& tabs, TBackgroundWork& background, QWidget& window);

  /// Brings a project forward that is open already. False when it cannot be opened.
  bool Open(const std::filesystem::path& file);
  /// False when it is not saved.
  bool Save(int index);
  bool SaveAll();
  /// Asks what to do with changes; false when the user wants the project to stay.
  bool Close(int index);
  /// Asks for all projects with changes; false when the user wants to stay.
  bool MayCloseAll();
  /// Closes all without a question.
  void CloseAll();
  /// Reads the project anew; changes are lost, after a question. False when it stays as it is.
  bool Reload(int index);
  /// Offers to reload the projects whose files were changed by others, once for each change.
  void CheckDisk();

  /// The project on a tab; null for none.
  TOpenProject* ProjectAt(int index) const;
  /// That project or the one that a project of the package stands for; null for none.
  TOpenProject* Find(const deployment::ICustomProject& project) const;
  TFormControls* ControlsOf(const TOpenProject& project) const;
  std::vector<std::filesystem::path> Files() const;
  /// Edits of the project on a tab; null for none.
  TProjectEdits* EditsAt(int index);
  /// What changed in the projects since the last call becomes steps of them.
  void EndSteps();
  /// Opens the project and does the edits to it that an earlier run left behind. False when that
  /// fails, which is said.
  bool Recover(const TRecoverable& recoverable);
  /// Brings the marks behind the captions up to date.
  void ShowModified();

signals:
  /// A project was opened, and shows.
  void Opened(TOpenProject* project);
  /// Projects came or went, or were saved.
  void Changed();

private:
  struct TProjectTab {
    TOpenProject* Project = nullptr; // the session's
    TFormControls* Controls = nullptr;
    std::unique_ptr<TProjectEdits> Edits;
    bool WasAsked = false; // whether to reload; until the file is what it was
  };

  TProjectTab* TabAt(int index);
  TOpenProject& Read(const std::filesystem::path& file);
  void Show(TOpenProject& project, int index);
  bool Write(const TProjectTab& tab, bool force);
  bool MayClose(int index);
  void Shut(const TOpenProject& project);
  bool ReadAnew(int index);
  bool MayLose(const TProjectTab& tab, const QString& question);

  TSession& FSession;
  TEditorTabs& FTabs;
  TBackgroundWork& FBackground;
  QWidget& FWindow;
  std::vector<TProjectTab> FProjects; // in no order
};

} // namespace workbench
