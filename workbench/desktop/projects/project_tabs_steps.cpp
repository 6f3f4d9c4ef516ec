// The steps of open projects: where they end, what they did, taking them back.
#include "package/host/api/view_buttons.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/projects/shown_target.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/explain/change_reasons.h"
#include "workbench/explain/explanation.h"
#include "workbench/list/list_snapshot.h"

#include <QApplication>
#include <algorithm>
#include <utility>

namespace workbench {

void TProjectTabs::EndStep(const TProjectTab& tab) {
  TFormCommand command = tab.Controls->TakeCommand();
  command.WasAsked = FForms.AnswerCount() != std::exchange(FAnswers, FForms.AnswerCount());
  if (const auto reconciled = tab.Edits->EndStep(command, TargetName(*tab.Controls)))
    emit Reconciled(tab.Project, *reconciled);
  if (!command.Text.isEmpty())
    TellOffered(*tab.Project);
}

// A form comes up by itself in the middle of a reconcile, one for each class of files; only a
// person who presses the button wants it at once.
bool TProjectTabs::Offers(const deployment::IFeatureFileForm& form) {
  const bool isWanted = std::ranges::any_of(FProjects, [](const TProjectTab& tab) {
    return tab.Controls->ToolBar() &&
           tab.Controls->ToolBar()->IsRunning(deployment::view_button::AddFeature);
  });
  if (isWanted)
    return false;
  for (const deployment::TNodeId node : form.GetChildren(0)) {
    const QString title = ToQString(form.GetText(node));
    if (!FOffered.contains(title))
      FOffered += title;
  }
  return true;
}

void TProjectTabs::TellOffered(TOpenProject& project) {
  if (const QStringList titles = std::exchange(FOffered, {}); !titles.isEmpty())
    emit FeaturesOffered(&project, titles);
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
struct TProjectTabs::TNoForms {
  TNoForms(TSession& session, TModalDialogs& forms) : Session(session), Forms(forms) {
    Session.SetModalForms(nullptr);
  }
  ~TNoForms() { Session.SetModalForms(&Forms); }
  TNoForms(const TNoForms&) = delete;
  TNoForms& operator=(const TNoForms&) = delete;
  TSession& Session;
  TModalDialogs& Forms;
};

std::unique_ptr<TChangeReasons> TProjectTabs::ReasonsOf(TOpenProject& project) {
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

namespace {

// The list as it is now comes back, and nobody hears of what happened in between.
class TUnchangedList {
public:
  explicit TUnchangedList(deployment::IProjectDeployment& deployment)
      : FDeployment(deployment), FBefore(deployment) {
    FDeployment.SetBlockNotification(true);
  }
  ~TUnchangedList() {
    const TSnapshotChange change = FBefore.Collect(TLook::Everywhere);
    if (!change.IsEmpty())
      FBefore.Restore(change, TDirection::Back);
    FDeployment.SetBlockNotification(false);
  }
  TUnchangedList(const TUnchangedList&) = delete;
  TUnchangedList& operator=(const TUnchangedList&) = delete;

private:
  deployment::IProjectDeployment& FDeployment;
  TListSnapshot FBefore;
};

} // namespace

std::vector<std::string> TProjectTabs::Explain(TOpenProject& project,
                                               const deployment::IProjectDeploymentFile& entry) {
  const TProjectTab* tab = TabOf(project);
  std::vector<std::string> reasons;
  if (!tab)
    return reasons;
  const TNoForms unasked(FSession, FForms);
  RunWith(*tab, [&, target = ShownTarget(*tab->Controls)] {
    const TUnchangedList unchanged(project.Deployment());
    TExplainer explainer(FSession, project, target);
    for (const TExplainedEntry& explained : explainer.Explain(entry.GetLocalName()).Entries) {
      if (explained.File.get() == &entry)
        reasons = explained.Reasons;
    }
  });
  return reasons;
}

void TProjectTabs::Work(const TOpenProject& project, const std::function<void()>& work) {
  if (const TProjectTab* tab = TabOf(project))
    RunWith(*tab, work);
}

} // namespace workbench
