#include "workbench/desktop/window/project_edits.h"

#include <QCoreApplication>

namespace workbench {

TProjectEdits::TProjectEdits(TOpenProject& project)
    : FProject(project), FJournal(project.GivenFileName()), FHistory(project) {
  FHistory.SetOnStep([this](const TListChange& change) { FJournal.Append(change); });
}

void TProjectEdits::Saved() {
  FHistory.MarkSaved();
  FJournal.Remove();
}

void TProjectEdits::Recover(const TRecoverable& recoverable) {
  workbench::Recover(recoverable, FProject);
  FHistory.EndStep(QCoreApplication::translate("TProjectEdits", "Recovered Edits").toStdString(),
                   TLook::Everywhere);
  Discard(recoverable);
}

} // namespace workbench
