// The steps of open projects: where they end, what they did, taking them back.
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/projects/shown_target.h"
#include "workbench/explain/change_reasons.h"

#include <QApplication>
#include <utility>

namespace workbench {

void TProjectTabs::EndStep(const TProjectTab& tab) {
  TFormCommand command = tab.Controls->TakeCommand();
  command.WasAsked = FForms.AnswerCount() != std::exchange(FAnswers, FForms.AnswerCount());
  if (const auto reconciled = tab.Edits->EndStep(command, TargetName(*tab.Controls)))
    emit Reconciled(tab.Project, *reconciled);
}

// A dialog may be open in the middle of a command.
void TProjectTabs::EndSteps() {
  if (FBackground.IsBusy() || QApplication::activeModalWidget())
    return;
  for (const TProjectTab& tab : FProjects)
    Guarded([&] { EndStep(tab); });
}

// Whatever the user has begun in the tab is done, and a step. False when the form refuses it.
bool TProjectTabs::FinishEditing(int index) {
  const TProjectTab* tab = TabAt(index);
  return tab && tab->Controls->CommitEditor() && Guarded([&] { EndStep(*tab); });
}

bool TProjectTabs::Edit(const TOpenProject& project, const QString& name,
                        const std::function<void()>& edit) {
  const TFormControls* controls = ControlsOf(project);
  if (!controls || !FinishEditing(FTabs.IndexOf(*controls)))
    return false;
  const bool done = Guarded(edit);
  if (TProjectEdits* edits = EditsAt(FTabs.IndexOf(*controls)))
    Guarded([&] { edits->EndStep({.Text = name, .Button = {}}, TargetName(*controls)); });
  ShowModified();
  return done;
}

bool TProjectTabs::UndoStep(const TOpenProject& project, std::uint64_t step) {
  const TProjectTab* tab = TabOf(project);
  if (!tab || !FinishEditing(FTabs.IndexOf(*tab->Controls)) ||
      tab->Edits->History().LastStep() != step)
    return false;
  tab->Edits->History().Undo();
  ShowModified();
  return true;
}

// The reconcile that tells the reasons would ask for optional files again.
std::unique_ptr<TChangeReasons> TProjectTabs::ReasonsOf(TOpenProject& project) {
  struct TNoForms {
    explicit TNoForms(TSession& session, TModalDialogs& forms) : Session(session), Forms(forms) {
      Session.SetModalForms(nullptr);
    }
    ~TNoForms() { Session.SetModalForms(&Forms); }
    TNoForms(const TNoForms&) = delete;
    TNoForms& operator=(const TNoForms&) = delete;
    TSession& Session;
    TModalDialogs& Forms;
  };
  const TProjectTab* tab = TabOf(project);
  if (!tab)
    return nullptr;
  const TNoForms unasked(FSession, FForms);
  std::unique_ptr<TChangeReasons> reasons;
  RunWith(*tab, [&reasons, &project, target = ShownTarget(*tab->Controls)] {
    reasons = std::make_unique<TChangeReasons>(project.Deployment(), target);
  });
  return reasons;
}

} // namespace workbench
