// The Deployment Manager inside of an IDE: the list of one project at a time.
#pragma once

#include "workbench/ide/view/ide_project.h"
#include "workbench/ide/view/list_problem.h"
#include "workbench/ide/view/project_lists.h"

#include <QPointer>
#include <QWidget>
#include <filesystem>
#include <memory>
#include <vector>

class QAction;
class QComboBox;
class QLabel;
class QPushButton;
class QStackedWidget;
class QToolBar;
class QToolButton;

namespace workbench {

class TNewListPage;

/// Follows the projects that the IDE opens and closes. The package is loaded when the view is first
/// seen or a command is given; where it cannot be loaded the view says why, and the IDE goes on.
class TDeploymentView final : public QWidget {
  Q_OBJECT

public:
  explicit TDeploymentView(QWidget* parent = nullptr);
  ~TDeploymentView() override;

  /// A project was opened, or something about it changed.
  void AddProject(const TIdeProject& project);
  /// A project is closed. Work that goes on with its list is waited for.
  void RemoveProject(const std::filesystem::path& directory, TUnsavedEdits edits);
  /// Brings the project forward, unless it is in front.
  void ShowProject(const std::filesystem::path& directory);
  /// The IDE has no use for the view any more: it deletes itself, at once or when work is over that
  /// goes on. Edits that were not saved can be had back when their list is opened again.
  void Dismiss();

  /// The commands, for menus of the IDE; null is a line between them. The view owns them.
  const std::vector<QAction*>& Commands() const { return FCommands; }

signals:
  /// What is wrong with the lists is another than before.
  void ProblemsChanged(const std::vector<TListProblem>& problems);
  /// A command was given that the view answers: it should be seen.
  void AttentionWanted();

protected:
  void showEvent(QShowEvent* event) override;

private:
  // A list of a project, or the one that the project has not yet.
  struct TEntry {
    TIdeProject Project;
    std::filesystem::path File; // empty: there is none
    bool HasFailed = false;     // it could not be opened, which was said
  };

  QAction* AddCommand(const QString& text, const char* icon, const char* name,
                      void (TDeploymentView::*run)());
  void MakeCommands();
  void MakeBar();
  QWidget* MakeMessagePage();
  QWidget* MakeStatus();
  bool IsBusy() const { return FLists && FLists->IsBusy(); }
  bool Load();
  void FillChooser();
  TEntry* Current();
  void ShowEntry();
  void OpenList(const TEntry& entry);
  void ShowMessage(const QString& text, bool canTryAgain);
  void TryAgain();
  void MakeList(const TBuildSource& source);
  void ShowState();
  void ShowWarnings();
  void Finish();
  void SaveList();
  void UndoEdit();
  void RedoEdit();
  void Deploy();
  void Reconcile();
  void EditProfiles();

  std::vector<TEntry> FEntries; // by project, in the order in which they came
  std::vector<std::pair<std::filesystem::path, TUnsavedEdits>> FLeaving; // when work is over
  std::vector<QAction*> FCommands;
  QAction* FDeploy = nullptr;
  QAction* FReconcile = nullptr;
  QAction* FSave = nullptr;
  QAction* FUndo = nullptr;
  QAction* FRedo = nullptr;
  QComboBox* FChooser = nullptr;
  QToolBar* FBar = nullptr;
  QStackedWidget* FPages = nullptr;
  QWidget* FMessagePage = nullptr;
  QLabel* FMessage = nullptr;
  QPushButton* FTryAgain = nullptr;
  TNewListPage* FNewList = nullptr;
  QPointer<TProjectLists> FLists; // null until the package is loaded
  QLabel* FStatus = nullptr;
  QToolButton* FWarnings = nullptr;
  std::vector<TListProblem> FProblems;
  bool FIsDismissed = false;
};

} // namespace workbench
