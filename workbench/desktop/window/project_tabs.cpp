#include "workbench/desktop/window/project_tabs.h"

#include "package/common/errors.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/project/project_settings.h"

#include <QApplication>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <algorithm>
#include <utility>

namespace workbench {
namespace {

namespace fs = std::filesystem;

fs::path Canonical(const fs::path& file) {
  std::error_code error;
  fs::path full = fs::canonical(file, error);
  return error ? fs::absolute(file).lexically_normal() : full;
}

QString NameOf(const TOpenProject& project) {
  return PathToQString(project.GivenFileName().filename());
}

// A view begins without a configuration, and would deploy the files of all configurations alone.
void ChooseActiveTarget(const TOpenProject& project, TFormControls& controls) {
  if (controls.TargetsComboBox())
    controls.TargetsComboBox()->Choose(project.Settings().ActiveConfiguration(),
                                       project.Settings().ActivePlatform());
}

// Nothing is drawn: a save uses the package, and so would the drawing of rows.
struct TPausedPainting {
  explicit TPausedPainting(QWidget& tabs) : Tabs(tabs) { Tabs.setUpdatesEnabled(false); }
  ~TPausedPainting() { Tabs.setUpdatesEnabled(true); }
  TPausedPainting(const TPausedPainting&) = delete;
  TPausedPainting& operator=(const TPausedPainting&) = delete;
  QWidget& Tabs;
};

struct TBusyCursor {
  TBusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~TBusyCursor() { QApplication::restoreOverrideCursor(); }
  TBusyCursor(const TBusyCursor&) = delete;
  TBusyCursor& operator=(const TBusyCursor&) = delete;
};

} // namespace

TProjectTabs::TProjectTabs(TSession& session, TEditorTabs& tabs, TBackgroundWork& background,
                           QWidget& window)
    : FSession(session), FTabs(tabs), FBackground(background), FWindow(window) {}

TProjectTabs::TProjectTab* TProjectTabs::TabAt(int index) {
  const TFormControls* controls = FTabs.ControlsAt(index);
  const auto found = std::ranges::find_if(FProjects, [controls](const TProjectTab& tab) {
    return controls && tab.Controls == controls;
  });
  return found == FProjects.end() ? nullptr : &*found;
}

TOpenProject* TProjectTabs::ProjectAt(int index) const {
  const TProjectTab* tab = const_cast<TProjectTabs*>(this)->TabAt(index);
  return tab ? tab->Project : nullptr;
}

TOpenProject* TProjectTabs::Find(const deployment::ICustomProject& project) const {
  const auto found = std::ranges::find_if(FProjects, [&](const TProjectTab& tab) {
    return static_cast<deployment::ICustomProject*>(&tab.Project->Project()) == &project;
  });
  return found == FProjects.end() ? nullptr : found->Project;
}

TFormControls* TProjectTabs::ControlsOf(const TOpenProject& project) const {
  const auto found = std::ranges::find(FProjects, &project, &TProjectTab::Project);
  return found == FProjects.end() ? nullptr : found->Controls;
}

// In the order of the tabs.
std::vector<fs::path> TProjectTabs::Files() const {
  std::vector<fs::path> files;
  files.reserve(FProjects.size());
  for (int i = 0; i < FTabs.count(); ++i) {
    if (const TOpenProject* project = ProjectAt(i))
      files.push_back(Canonical(project->GivenFileName()));
  }
  return files;
}

bool TProjectTabs::Open(const fs::path& file) {
  try {
    if (const TOpenProject* open = FSession.FindOpen(file)) {
      FTabs.setCurrentIndex(FTabs.IndexOf(*ControlsOf(*open)));
      return true;
    }
    Show(Read(file), -1);
    return true;
  } catch (const std::exception& error) {
    ShowError(tr("Open Project"),
              tr("%1 cannot be opened.\n\n%2").arg(PathToQString(file), ErrorText(error)),
              &FWindow);
    return false;
  }
}

TOpenProject& TProjectTabs::Read(const fs::path& file) {
  const TBusyCursor busy;
  return FSession.Open(file, TOpenPurpose::Look);
}

// What fails here leaves no project without a tab behind.
void TProjectTabs::Show(TOpenProject& project, int index) {
  TFormControls* controls = nullptr;
  const auto added = connect(&FTabs, &TEditorTabs::Added, this,
                             [&controls](TFormControls* made) { controls = made; });
  try {
    project.Deployment();
    FSession.ShowDeployment(project);
    if (!controls)
      throw deployment::TInputError("the package shows no Deployment Manager for it");
  } catch (const std::exception&) {
    disconnect(added);
    FSession.Close(project);
    throw;
  }
  disconnect(added);
  ChooseActiveTarget(project, *controls);
  FProjects.push_back({&project, controls, std::make_unique<TProjectEdits>(project)});
  const int shown = FTabs.IndexOf(*controls);
  if (index >= 0 && index != shown)
    FTabs.tabBar()->moveTab(shown, index);
  FTabs.setTabToolTip(FTabs.IndexOf(*controls),
                      PathToQString(Canonical(project.GivenFileName())).toHtmlEscaped());
  emit Opened(&project);
  ShowModified();
  emit Changed();
}

bool TProjectTabs::Save(int index) {
  TProjectTab* tab = TabAt(index);
  if (!tab)
    return true;
  bool force = false;
  if (tab->Project->HasChanges() && tab->Project->IsChangedOnDisk()) {
    QMessageBox box(
        QMessageBox::Warning, tr("Save Project"),
        tr("%1 was changed by another program since it was read here.").arg(NameOf(*tab->Project)),
        QMessageBox::Cancel, &FWindow);
    box.setTextFormat(Qt::PlainText);
    box.setInformativeText(tr("Saving replaces what the other program wrote. A copy of it is "
                              "kept beside the other backups."));
    QPushButton* overwrite = box.addButton(tr("&Overwrite"), QMessageBox::DestructiveRole);
    box.setDefaultButton(QMessageBox::Cancel);
    box.exec();
    if (box.clickedButton() != overwrite)
      return false;
    force = true;
  }
  return Write(*tab, force);
}

bool TProjectTabs::Write(const TProjectTab& tab, bool force) {
  bool saved = false;
  try {
    tab.Edits->EndStep(tab.Controls->TakeCommand());
    const TPausedPainting still(FTabs);
    FBackground.Run([&project = *tab.Project, force] {
      project.Save(force);
      project.HasChanges(); // takes what was written as the new text, which is work too
    });
    saved = true;
    tab.Edits->Saved();
  } catch (const std::exception& error) {
    ShowError(tr("Save Project"),
              tr("%1\n\nNothing is lost: the changes are still here. Mend what stands in the way, "
                 "then save again.")
                  .arg(ErrorText(error)),
              &FWindow);
    tab.Edits->FileWritten(); // perhaps all but the side file
  }
  ShowModified();
  emit Changed();
  return saved;
}

bool TProjectTabs::SaveAll() {
  bool saved = true;
  for (int i = 0; i < FTabs.count(); ++i)
    saved = Save(i) && saved;
  return saved;
}

bool TProjectTabs::MayClose(int index) {
  const TProjectTab* tab = TabAt(index);
  if (!tab || !tab->Project->HasChanges())
    return true;
  FTabs.setCurrentIndex(index);
  QMessageBox box(QMessageBox::Question, tr("Close Project"),
                  tr("Save the changes to %1?").arg(NameOf(*tab->Project)), QMessageBox::NoButton,
                  &FWindow);
  box.setTextFormat(Qt::PlainText);
  QPushButton* save = box.addButton(tr("&Save"), QMessageBox::AcceptRole);
  QPushButton* discard = box.addButton(tr("&Discard"), QMessageBox::DestructiveRole);
  box.addButton(tr("Cancel"), QMessageBox::RejectRole);
  box.setDefaultButton(save);
  box.exec();
  return box.clickedButton() == save ? Save(index) : box.clickedButton() == discard;
}

bool TProjectTabs::Close(int index) {
  if (!MayClose(index))
    return false;
  if (const TProjectTab* tab = TabAt(index))
    Shut(*tab->Project);
  emit Changed();
  return true;
}

bool TProjectTabs::MayCloseAll() {
  for (int i = 0; i < FTabs.count(); ++i) {
    if (!MayClose(i))
      return false;
  }
  return true;
}

void TProjectTabs::CloseAll() {
  while (!FProjects.empty())
    Shut(*FProjects.back().Project);
  emit Changed();
}

void TProjectTabs::Shut(const TOpenProject& project) {
  const auto found = std::ranges::find(FProjects, &project, &TProjectTab::Project);
  TOpenProject& open = *found->Project;
  found->Edits->Dropped();
  FProjects.erase(found); // with the edits, which listen to the project
  Guarded([&] { FSession.Close(open); });
}

bool TProjectTabs::MayLose(const TProjectTab& tab, const QString& question) {
  QMessageBox box(QMessageBox::Question, tr("Reload Project"), question, QMessageBox::NoButton,
                  &FWindow);
  box.setTextFormat(Qt::PlainText);
  if (tab.Project->HasChanges())
    box.setInformativeText(tr("The changes that were not saved are lost then."));
  QPushButton* reload = box.addButton(tr("&Reload"), QMessageBox::AcceptRole);
  QPushButton* keep = box.addButton(tr("&Keep"), QMessageBox::RejectRole);
  box.setDefaultButton(tab.Project->HasChanges() ? keep : reload);
  box.setEscapeButton(keep);
  box.exec();
  return box.clickedButton() == reload;
}

bool TProjectTabs::Reload(int index) {
  const TProjectTab* tab = TabAt(index);
  return tab &&
         (!tab->Project->HasChanges() ||
          MayLose(*tab, tr("Read %1 again from disk?").arg(NameOf(*tab->Project)))) &&
         ReadAnew(index);
}

bool TProjectTabs::ReadAnew(int index) {
  const TOpenProject& project = *TabAt(index)->Project;
  const fs::path file = project.GivenFileName();
  try {
    Shut(project);
    Show(Read(file), index);
    return true;
  } catch (const std::exception& error) {
    ShowError(tr("Reload Project"),
              tr("%1 cannot be read any more and was closed. Mend the file, then open it "
                 "again.\n\n%2")
                  .arg(PathToQString(file), ErrorText(error)),
              &FWindow);
    emit Changed();
    return false;
  }
}

void TProjectTabs::CheckDisk() {
  if (FBackground.IsBusy() || QApplication::activeModalWidget())
    return;
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
    const QString name = NameOf(*tab->Project);
    std::error_code error;
    if (!fs::exists(tab->Project->GivenFileName(), error)) {
      ShowError(tr("Project File"),
                tr("%1 is gone. Save writes it again; its content is still here.").arg(name),
                &FWindow);
      tab->Project->MarkChanged();
      ShowModified();
      continue;
    }
    FTabs.setCurrentIndex(i);
    if (MayLose(*tab, tr("%1 was changed by another program. Reload it?").arg(name)))
      ReadAnew(i);
  }
}

TProjectEdits* TProjectTabs::EditsAt(int index) {
  const TProjectTab* tab = TabAt(index);
  return tab ? tab->Edits.get() : nullptr;
}

// A dialog may be open in the middle of a command.
void TProjectTabs::EndSteps() {
  if (FBackground.IsBusy() || QApplication::activeModalWidget())
    return;
  for (const TProjectTab& tab : FProjects) {
    Guarded([&] { tab.Edits->EndStep(tab.Controls->TakeCommand()); });
  }
}

bool TProjectTabs::Recover(const TRecoverable& recoverable) {
  if (!Open(recoverable.Project))
    return false;
  TProjectEdits* edits = EditsAt(FTabs.currentIndex());
  const bool done = edits && Guarded([&] { edits->Recover(recoverable); });
  ShowModified();
  return done;
}

void TProjectTabs::ShowModified() {
  for (const TProjectTab& tab : FProjects)
    FTabs.SetModified(FTabs.IndexOf(*tab.Controls), tab.Project->HasChanges());
}

} // namespace workbench
