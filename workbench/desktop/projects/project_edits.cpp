#include "workbench/desktop/projects/project_edits.h"

#include "package/host/api/view_buttons.h"
#include "workbench/desktop/projects/step_name.h"

#include <QCoreApplication>
#include <string>

namespace workbench {

namespace view_button = deployment::view_button;

TProjectEdits::TProjectEdits(TOpenProject& project)
    : FProject(project), FJournal(project.GivenFileName()), FHistory(project) {}

// It comes back by itself, so the journal does without.
std::optional<TReconciled> TProjectEdits::Opened(const QString& target, bool wasAsked) {
  auto done = EndReconcile(ReconcileName(target), target, TLook::Notified,
                           wasAsked ? TStepKind::Edit : TStepKind::Computed);
  FHistory.SetOnStep([this](const TListChange& change) { FJournal.Append(change); });
  return done;
}

std::optional<TReconciled> TProjectEdits::EndReconcile(const QString& name, const QString& target,
                                                       TLook look, TStepKind kind) {
  TReconciled done;
  done.Target = target;
  const auto naming = [&](const TListChange& change) {
    done.Changes = ChangesOf(change);
    return name.toStdString();
  };
  if (!FHistory.EndStepNamed(naming, look, kind))
    return std::nullopt;
  done.Step = FHistory.LastStep();
  return done;
}

std::optional<TReconciled> TProjectEdits::EndStep(const TFormCommand& command,
                                                  const QString& target) {
  deployment::IOTAProject& project = FProject.Project();
  const bool wasEdited = project.GetModified();
  std::optional<TReconciled> reconciled;
  if (command.ChoosesTarget)
    reconciled = EndReconcile(ReconcileName(command.Text), command.Text, TLook::Everywhere,
                              command.WasAsked ? TStepKind::Edit : TStepKind::Computed);
  else if (command.Button == view_button::Reconcile)
    reconciled = EndReconcile(ReconcileName(target), target, TLook::Everywhere, TStepKind::Edit);
  else
    EndEdit(command, target, wasEdited);
  if (wasEdited)
    project.SetModified(false);
  if (command.Button == view_button::Reconcile && FProject.HasChanges())
    FIsMarked = true; // who asks for the default entries wants them in the file
  return reconciled;
}

// The package says when the user edited something. Where the listeners heard nothing of it, a
// record was made with default values. Looking at a target makes none, so that a long list is not
// read through once more behind each plan and deploy.
void TProjectEdits::EndEdit(const TFormCommand& command, const QString& target, bool wasEdited) {
  const bool looks =
      command.Button == view_button::Deploy || command.Button == view_button::Connect;
  const auto end = [&](TLook look) {
    return FHistory.EndStepNamed(
        [&](const TListChange& change) { return StepName(command, target, change).toStdString(); },
        look, looks ? TStepKind::Computed : TStepKind::Edit);
  };
  const bool listens = looks || command.Text.isEmpty();
  if (!end(listens ? TLook::Notified : TLook::Everywhere) && wasEdited)
    end(TLook::Everywhere);
}

bool TProjectEdits::IsModified() const {
  return FIsMarked || FProject.HasPropertyChanges() || !FHistory.IsAtSavedStep();
}

void TProjectEdits::MarkModified() {
  FProject.MarkChanged();
  FIsMarked = true;
}

void TProjectEdits::Saved() {
  FIsMarked = false;
  FHistory.MarkSaved();
  FJournal.Remove();
}

// What others wrote is no base of these edits.
void TProjectEdits::FileWritten() {
  if (!FProject.IsChangedOnDisk())
    FJournal.ProjectFileWritten();
}

std::optional<TRecoverable> TProjectEdits::Kept() const {
  if (FJournal.File().empty() || !FJournal.Problem().empty())
    return std::nullopt;
  TRecoverable kept;
  kept.Journal = FJournal.File();
  kept.Project = std::filesystem::absolute(FProject.GivenFileName()).lexically_normal();
  return kept;
}

void TProjectEdits::Recover(const TRecoverable& recoverable) {
  workbench::Recover(recoverable, FProject);
  FHistory.EndStep(QCoreApplication::translate("TProjectEdits", "Recovered Edits").toStdString(),
                   TLook::Everywhere);
  Discard(recoverable);
}

} // namespace workbench
