// The projects that are open side by side, each on a tab.
#pragma once

#include "workbench/desktop/controls/background_work.h"
#include "workbench/desktop/projects/editor_tabs.h"
#include "workbench/desktop/projects/project_edits.h"
#include "workbench/session/session.h"

#include <QObject>
#include <QStringList>
#include <cstddef>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace workbench {

class TChangeReasons;
class TModalDialogs;
class TOpenSolution;
struct TSolutionMember;

/// Opens, saves, reloads and closes. What goes wrong is said to the user, and the other projects
/// stay as they are. A cell editor that is open is left first, with its text; where the form
/// refuses the text nothing is done.
class TProjectTabs final : public QObject {
  Q_OBJECT

public:
  /// Everything must outlive the object. Dialogs stand before the window.
  TProjectTabs(TSession& session, TEditorTabs& tabs, TBackgroundWork& background,
               TModalDialogs& forms, QWidget& window);
  ~TProjectTabs() override;

  /// Brings a project forward that is open already. False when it cannot be opened.
  bool Open(const std::filesystem::path& file);
  /// Opens the projects of a solution that have something to deploy, the first one in front. False
  /// when the solution cannot be read or none of them is open then.
  bool OpenSolution(const std::filesystem::path& file);
  /// False when it is not saved.
  bool Save(int index);
  /// Saves under another name, under which the project goes on. False when it is not saved.
  bool SaveAs(int index, const std::filesystem::path& file);
  /// Saves those with changes.
  bool SaveAll();
  /// Asks what to do with changes; false when the user wants the project to stay.
  bool Close(int index);
  /// Closes without a question; edits that were not saved can be had back when the project is
  /// opened again.
  void Leave(int index);
  /// Asks for all projects with changes; false when the user wants to stay.
  bool MayCloseAll();
  /// Closes all without a question.
  void CloseAll();
  /// Reads the project anew; asks what becomes of changes. False when it stays as it is.
  bool Reload(int index);
  /// Reads projects anew whose files were changed by others; where there are changes it asks, once
  /// for each change of the file. A project whose file was renamed goes on under the new name.
  void CheckDisk();

  /// The project on a tab; null for none.
  TOpenProject* ProjectAt(int index) const;
  /// That project or the one that a project of the package stands for; null for none.
  TOpenProject* Find(const deployment::ICustomProject& project) const;
  TFormControls* ControlsOf(const TOpenProject& project) const;
  std::vector<std::filesystem::path> Files() const;
  /// Edits of the project on a tab; null for none.
  TProjectEdits* EditsAt(int index);
  /// The same of a project; null when it is not open.
  const TProjectEdits* EditsOf(const TOpenProject& project) const;
  /// True when the project on the tab has changes of the user's.
  bool IsModified(int index) const;
  /// What changed in the projects since the last call becomes steps of them.
  void EndSteps();
  /// Takes the text of a cell editor over that is open. False when the form refuses it.
  bool CommitEditors();
  /// Does an edit that no command of the list makes, as a step of that name. False when it is not
  /// done, which was said, or when the form refuses the text of a cell editor.
  bool Edit(const TOpenProject& project, const QString& name, const std::function<void()>& edit);
  /// Takes the step back when it is the last one of the project. False when it is not.
  bool UndoStep(const TOpenProject& project, std::uint64_t step);
  /// Why the list of the target that the project shows is what it is. Takes long for long lists;
  /// throws TInputError when the target cannot be computed.
  std::unique_ptr<TChangeReasons> ReasonsOf(TOpenProject& project);
  /// Why the entry is in that list, in sentences without a full stop; the list stays as it is.
  /// Otherwise as ReasonsOf.
  std::vector<std::string> Explain(TOpenProject& project,
                                   const deployment::IProjectDeploymentFile& entry);
  /// Does work on the project that takes long, while its rows stay as they are and the window goes
  /// on painting. Passes on what it throws.
  void Work(const TOpenProject& project, const std::function<void()>& work);
  /// Opens the project and does the edits to it that an earlier run left behind. False when that
  /// fails, which is said.
  bool Recover(const TRecoverable& recoverable);
  /// Brings the marks behind the captions up to date.
  void ShowModified();

signals:
  /// A project was opened, and shows.
  void Opened(TOpenProject* project);
  /// Projects came or went, were saved or renamed.
  void Changed();
  /// A reconcile changed the list of the project, as the package does by itself when a project is
  /// opened or another target is chosen.
  void Reconciled(TOpenProject* project, const TReconciled& done);
  /// Optional files fit the project; nobody was asked yet. The titles are those of the features.
  void FeaturesOffered(TOpenProject* project, const QStringList& titles);
  /// Something happened that the user should know and need not answer.
  void Notice(const QString& text);

private:
  struct TProjectTab {
    TOpenProject* Project = nullptr; // the session's
    TFormControls* Controls = nullptr;
    std::unique_ptr<TProjectEdits> Edits;
    bool WasAsked = false; // whether to reload; until the file is what it was
  };

  TProjectTab* TabAt(int index);
  const TProjectTab* TabOf(const TOpenProject& project) const;
  void EndStep(const TProjectTab& tab);
  bool Offers(const deployment::IFeatureFileForm& form);
  void TellOffered(TOpenProject& project);
  bool FinishEditing(int index);
  TOpenProject& Read(const std::filesystem::path& file,
                     const std::shared_ptr<const TSolution>& solution = nullptr);
  void ShowActive(TOpenProject& project);
  bool OpenMember(const TOpenSolution& solution, const TSolutionMember& member);
  TProjectTab MakeView(TOpenProject& project, const deployment::TDeploymentTarget& target);
  void Show(TOpenProject& project, int index, const deployment::TDeploymentTarget& target);
  bool Write(const TProjectTab& tab, bool force);
  struct TNoForms;
  void RunWith(const TProjectTab& tab, const std::function<void()>& work);
  void ShowSaveError(const std::exception& error);
  bool MayClose(int index);
  void Shut(const TOpenProject& project, bool dropEdits);
  bool ReadAnew(int index, const std::optional<TRecoverable>& edits);
  bool AskAndReload(int index, const QString& question);
  void FileChanged(int index);
  void FileGone(int index);

  TSession& FSession;
  TEditorTabs& FTabs;
  TBackgroundWork& FBackground;
  TModalDialogs& FForms;
  QWidget& FWindow;
  std::vector<TProjectTab> FProjects; // in no order
  QStringList FOffered;               // titles of features, until the project is told of
  std::size_t FAnswers = 0;           // of forms, that belong to steps which are over
};

} // namespace workbench
