#include "workbench/desktop/projects/project_edits.h"

#include "package/host/api/view_buttons.h"

#include <QCoreApplication>
#include <string>
#include <string_view>

namespace workbench {

namespace view_button = deployment::view_button;

namespace {

std::string EditText() {
  return QCoreApplication::translate("TProjectEdits", "Edit").toStdString();
}

} // namespace

TProjectEdits::TProjectEdits(TOpenProject& project)
    : FProject(project), FJournal(project.GivenFileName()), FHistory(project) {
  FHistory.SetOnStep([this](const TListChange& change) { FJournal.Append(change); });
}

// The package says when the user edited something. Where the listeners heard nothing of it, a
// record was made with default values.
void TProjectEdits::EndStep(const TFormCommand& command) {
  deployment::IOTAProject& project = FProject.Project();
  const bool wasEdited = project.GetModified();
  if (!EndNamedStep(command) && wasEdited)
    FHistory.EndStep(EditText(), TLook::Everywhere);
  if (wasEdited)
    project.SetModified(false);
  if (command.Button == view_button::Reconcile && FProject.HasChanges())
    FIsMarked = true; // who asks for the default entries wants them in the file
}

bool TProjectEdits::EndNamedStep(const TFormCommand& command) {
  const bool looks =
      command.Button == view_button::Deploy || command.Button == view_button::Connect;
  if (looks)
    return FHistory.EndStep(command.Text.toStdString(), TLook::Everywhere, TStepKind::Computed);
  if (command.ChoosesTarget)
    return FHistory.EndStep(QCoreApplication::translate("TProjectEdits", "Reconcile for %1")
                                .arg(command.Text)
                                .toStdString(),
                            TLook::Everywhere, TStepKind::Computed);
  return command.Text.isEmpty() ? FHistory.EndStep(EditText())
                                : FHistory.EndStep(command.Text.toStdString(), TLook::Everywhere);
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
