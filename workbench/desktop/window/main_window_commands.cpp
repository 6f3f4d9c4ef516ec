// The table of the window's commands and what stands behind them.
#include "workbench/desktop/dialogs/profiles/profile_manager_dialog.h"
#include "workbench/desktop/dialogs/settings/settings_dialog.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/desktop/window/main_window.h"
#include "workbench/desktop/window/row_text.h"
#include "workbench/desktop/window/window_menus.h"
#include "workbench/session/session.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMessageBox>

namespace workbench {
namespace {

QString DirectoryOf(const TOpenProject* project) {
  return project ? PathToQString(std::filesystem::absolute(project->GivenFileName()).parent_path())
                 : QString();
}

} // namespace

void TMainWindow::MakeMenus() {
  FMenus = new TWindowMenus(*this, *FProjects, *FTabs, FSession.Settings(),
                            [this](const std::filesystem::path& file) { Open(file); });
  FMenus->AddMenu(tr("&File"), FileCommands());
  FMenus->AddMenu(tr("&Edit"), EditCommands());
  FMenus->AddDeploymentMenu();
  FMenus->AddMenu(tr("&Tools"), ToolsCommands());
  FMenus->AddMenu(tr("&Help"), {{tr("&About"), {}, [this] { ShowAbout(); }}});
}

std::vector<TWindowCommand> TMainWindow::FileCommands() {
  const auto current = [this] { return FTabs->currentIndex(); };
  return {
      {tr("&Open…"), QKeySequence::Open, [this] { AskForProject(); }, TCommandKind::Open},
      {},
      {tr("&Save"), QKeySequence::Save, [=, this] { FProjects->Save(current()); },
       TCommandKind::Project},
      {tr("Save &As…"), {}, [this] { SaveAs(); }, TCommandKind::Project},
      {tr("Sa&ve All"), Qt::CTRL | Qt::SHIFT | Qt::Key_S, [this] { FProjects->SaveAll(); },
       TCommandKind::Project},
      {tr("Re&load"), QKeySequence::Refresh, [=, this] { FProjects->Reload(current()); },
       TCommandKind::Project},
      {tr("&Close"), QKeySequence::Close, [=, this] { FProjects->Close(current()); },
       TCommandKind::Project},
      {},
      {tr("&Quit"), QKeySequence::Quit, [this] { close(); }},
  };
}

std::vector<TWindowCommand> TMainWindow::EditCommands() {
  return {
      {tr("&Undo"), QKeySequence::Undo, [this] { Step(&TEditHistory::Undo); }, TCommandKind::Undo},
      {tr("&Redo"), QKeySequence::Redo, [this] { Step(&TEditHistory::Redo); }, TCommandKind::Redo},
      {},
      {tr("&Copy Rows"), QKeySequence::Copy, [this] { Copy(); }, TCommandKind::Project},
      {tr("Select &All"), QKeySequence::SelectAll, [this] { SelectAll(); }, TCommandKind::Project},
  };
}

std::vector<TWindowCommand> TMainWindow::ToolsCommands() {
  return {
      {tr("Remote &Profiles…"), Qt::CTRL | Qt::Key_P, [this] { ShowProfiles(); }},
      {tr("&Settings…"), QKeySequence::Preferences,
       [this] { TSettingsDialog(FSession, this).exec(); }},
  };
}

void TMainWindow::AskForProject() {
  const QStringList files =
      QFileDialog::getOpenFileNames(this, tr("Open Project"), DirectoryOf(CurrentProject()),
                                    OpenFileFilter(), nullptr, QFileDialog::HideNameFilterDetails);
  for (const QString& file : files)
    Open(ToPathText(file));
}

void TMainWindow::SaveAs() {
  const TOpenProject* project = CurrentProject();
  if (!project)
    return;
  QFileDialog dialog(this, tr("Save Project As"), DirectoryOf(project), ProjectFileFilter());
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setOption(QFileDialog::HideNameFilterDetails);
  dialog.setDefaultSuffix(PathToQString(project->GivenFileName().extension()).mid(1));
  dialog.selectFile(NameOf(*project));
  if (dialog.exec() != QDialog::Accepted)
    return;
  const std::filesystem::path file = ToPathText(dialog.selectedFiles().value(0));
  if (FProjects->SaveAs(FTabs->currentIndex(), file))
    FSession.Settings().AddToHistory(RecentProjects, file.string());
}

void TMainWindow::Step(void (TEditHistory::*step)()) {
  FProjects->EndSteps();
  if (TProjectEdits* edits = FProjects->EditsAt(FTabs->currentIndex()))
    (edits->History().*step)();
  ShowState();
}

void TMainWindow::Copy() {
  const TFormControls* controls = CurrentControls();
  if (!controls || !controls->Tree())
    return;
  const QString text = SelectedRowsAsText(*controls->Tree()->View().selectionModel());
  if (!text.isEmpty())
    QApplication::clipboard()->setText(text);
}

void TMainWindow::SelectAll() {
  if (const TFormControls* controls = CurrentControls(); controls && controls->Tree())
    controls->Tree()->View().selectAll();
}

void TMainWindow::ShowProfiles() {
  TProfileManagerDialog(FSession, CurrentProject(), this).exec();
  if (TProjectEdits* edits = FProjects->EditsAt(FTabs->currentIndex()))
    edits->FileWritten(); // a profile may have been assigned
}

void TMainWindow::ShowAbout() {
  QMessageBox box(QMessageBox::NoIcon, tr("About"),
                  QApplication::applicationName() + QLatin1Char(' ') +
                      QApplication::applicationVersion(),
                  QMessageBox::Ok, this);
  box.setInformativeText(tr("Brings the files of a project to each of its platforms."));
  box.setIconPixmap(windowIcon().pixmap(48));
  box.exec();
}

} // namespace workbench
