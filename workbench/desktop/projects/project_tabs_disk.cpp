// What happens to open projects when their files change on disk.
#include "package/host/api/deployment_target.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/projects/project_questions.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/desktop/projects/shown_target.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"

#include <QApplication>
#include <string>

namespace workbench {

namespace fs = std::filesystem;

bool TProjectTabs::Reload(int index) {
  if (!TabAt(index) || !FinishEditing(index))
    return false;
  return AskAndReload(index, tr("Read %1 again from disk?").arg(NameOf(*TabAt(index)->Project)));
}

bool TProjectTabs::AskAndReload(int index, const QString& question) {
  if (!IsModified(index))
    return ReadAnew(index, std::nullopt);
  const std::optional<TRecoverable> edits = TabAt(index)->Edits->Kept();
  switch (AskReload(question, edits.has_value(), &FWindow)) {
  case TReloadAnswer::Reload:
    return ReadAnew(index, std::nullopt);
  case TReloadAnswer::Merge:
    return ReadAnew(index, edits);
  case TReloadAnswer::Keep:
    break;
  }
  return false;
}

// The target stays, and another tab that is in front.
bool TProjectTabs::ReadAnew(int index, const std::optional<TRecoverable>& edits) {
  const TProjectTab& tab = *TabAt(index);
  const fs::path file = tab.Project->GivenFileName();
  const std::shared_ptr<const TSolution> solution = tab.Project->Solution();
  const deployment::TDeploymentTarget target = ShownTarget(*tab.Controls);
  const int current = FTabs.currentIndex();
  try {
    Shut(*tab.Project, /*dropEdits=*/!edits);
    Show(Read(file, solution), index, target);
    if (edits)
      Guarded([&] { EditsAt(index)->Recover(*edits); });
  } catch (const std::exception& error) {
    ShowError(tr("Reload Project"),
              tr("%1 cannot be read any more and was closed. Mend the file, then open it "
                 "again.\n\n%2")
                  .arg(PathToQString(file), ErrorText(error)),
              &FWindow);
    emit Changed();
    return false;
  }
  FTabs.setCurrentIndex(current);
  ShowModified();
  return true;
}

void TProjectTabs::CheckDisk() {
  if (FBackground.IsBusy() || QApplication::activeModalWidget())
    return;
  EndSteps();
  for (int i = 0; i < FTabs.count(); ++i) {
    TProjectTab* tab = TabAt(i);
    if (!tab)
      continue;
    const bool changed = tab->Project->IsChangedOnDisk();
    if (!changed || tab->WasAsked) {
      tab->WasAsked = tab->WasAsked && changed;
      continue;
    }
    tab->WasAsked = true;
    std::error_code error;
    if (fs::exists(tab->Project->GivenFileName(), error))
      FileChanged(i);
    else
      FileGone(i);
  }
}

void TProjectTabs::FileChanged(int index) {
  const QString name = NameOf(*TabAt(index)->Project);
  FinishEditing(index); // a text that is being typed is an edit
  if (IsModified(index)) {
    FTabs.setCurrentIndex(index);
    AskAndReload(index, tr("%1 was changed by another program. Reload it?").arg(name));
  } else if (ReadAnew(index, std::nullopt)) {
    emit Notice(tr("%1 was changed by another program and read again.").arg(name));
  }
}

void TProjectTabs::FileGone(int index) {
  TProjectTab& tab = *TabAt(index);
  const QString name = NameOf(*tab.Project);
  const auto renamed = tab.Project->FindRenamed();
  if (renamed && !FSession.FindOpen(*renamed) && !IsSideFile(*renamed)) {
    if (!Guarded([&] { FSession.Rename(*tab.Project, *renamed); }))
      return;
    tab.WasAsked = false;
    tab.Edits->Renamed();
    FTabs.setTabToolTip(index, PathToQString(CanonicalPath(*renamed)).toHtmlEscaped());
    emit Notice(tr("%1 was renamed to %2.").arg(name, NameOf(*tab.Project)));
    emit Changed();
  } else {
    ShowError(tr("Project File"),
              tr("%1 is gone. Save writes it again; its content is still here.").arg(name),
              &FWindow);
    tab.Edits->MarkModified();
  }
  ShowModified();
}

bool TProjectTabs::Recover(const TRecoverable& recoverable) {
  if (!Open(recoverable.Project))
    return false;
  TProjectEdits* edits = EditsAt(FTabs.currentIndex());
  const bool done = edits && Guarded([&] { edits->Recover(recoverable); });
  ShowModified();
  return done;
}

} // namespace workbench
