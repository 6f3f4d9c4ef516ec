#include "workbench/desktop/window/project_edits.h"

#include <QCoreApplication>

namespace workbench {

TProjectEdits::TProjectEdits(TOpenProject& project)
    : FProject(project), FJournal(project.GivenFileName()), FHistory(project) {
  FHistory.SetOnStep([this](const TListChange& change) { FJournal.Append(change); });
}

// Commands may make records with default values, of which nobody is notified.
void TProjectEdits::EndStep(const QString& command) {
  if (command.isEmpty())
    FHistory.EndStep(QCoreApplication::translate("TProjectEdits", "Edit").toStdString());
  else
    FHistory.EndStep(command.toStdString(), TLook::Everywhere);
}

void TProjectEdits::Saved() {
  FHistory.MarkSaved();
  FJournal.Remove();
}

// What others wrote is no base of these edits.
void TProjectEdits::FileWritten() {
  if (!FProject.IsChangedOnDisk())
    FJournal.ProjectFileWritten();
}

void TProjectEdits::Recover(const TRecoverable& recoverable) {
  workbench::Recover(recoverable, FProject);
  FHistory.EndStep(QCoreApplication::translate("TProjectEdits", "Recovered Edits").toStdString(),
                   TLook::Everywhere);
  Discard(recoverable);
}

} // namespace workbench
