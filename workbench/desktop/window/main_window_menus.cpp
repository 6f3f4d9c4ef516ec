// The menus of the window and what stands behind their commands.
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/dialogs/profiles/profile_manager_dialog.h"
#include "workbench/desktop/dialogs/settings/settings_dialog.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/desktop/window/main_window.h"
#include "workbench/desktop/window/row_text.h"
#include "workbench/session/session.h"
#include "workbench/settings/settings_store.h"

#include <QApplication>
#include <QClipboard>
#include <QFileDialog>
#include <QMenuBar>
#include <QMessageBox>

namespace workbench {
namespace {

constexpr std::size_t RecentShown = 10;

} // namespace

bool IsProjectFile(const std::filesystem::path& file) {
  const std::string extension = file.extension().string();
  return extension.size() > 4 && extension.ends_with("proj") && extension != ".deployproj";
}

QAction* TMainWindow::AddAction(QMenu& menu, const QString& text, const QKeySequence& keys,
                                const std::function<void()>& run) {
  QAction* action = menu.addAction(text);
  action->setShortcut(keys);
  connect(action, &QAction::triggered, this, [run] { Guarded(run); });
  return action;
}

void TMainWindow::MakeMenus() {
  MakeFileMenu();
  MakeEditMenu();
  MakeDeploymentMenu();
  MakeToolsMenu();
  MakeHelpMenu();
}

void TMainWindow::MakeFileMenu() {
  QMenu& file = *menuBar()->addMenu(tr("&File"));
  AddAction(file, tr("&Open…"), QKeySequence::Open, [this] { AskForProject(); });
  FRecent = file.addMenu(tr("Open &Recent"));
  connect(FRecent, &QMenu::aboutToShow, this, &TMainWindow::FillRecent);
  file.addSeparator();
  FProjectActions = {
      AddAction(file, tr("&Save"), QKeySequence::Save,
                [this] { FProjects->Save(FTabs->currentIndex()); }),
      AddAction(file, tr("Save &All"), QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_S),
                [this] { FProjects->SaveAll(); }),
      AddAction(file, tr("Re&load"), QKeySequence::Refresh,
                [this] { FProjects->Reload(FTabs->currentIndex()); }),
      AddAction(file, tr("&Close"), QKeySequence::Close,
                [this] { FProjects->Close(FTabs->currentIndex()); }),
  };
  file.addSeparator();
  AddAction(file, tr("&Quit"), QKeySequence::Quit, [this] { close(); });
}

void TMainWindow::MakeEditMenu() {
  QMenu& edit = *menuBar()->addMenu(tr("&Edit"));
  FUndo = AddAction(edit, tr("&Undo"), QKeySequence::Undo, [this] { Undo(); });
  FRedo = AddAction(edit, tr("&Redo"), QKeySequence::Redo, [this] { Redo(); });
  edit.addSeparator();
  FProjectActions.push_back(
      AddAction(edit, tr("&Copy Rows"), QKeySequence::Copy, [this] { Copy(); }));
  FProjectActions.push_back(
      AddAction(edit, tr("Select &All"), QKeySequence::SelectAll, [this] { SelectAll(); }));
}

// The commands of the tool bar in front.
void TMainWindow::MakeDeploymentMenu() {
  FDeployment = menuBar()->addMenu(tr("&Deployment"));
  connect(FDeployment, &QMenu::aboutToShow, this, [this] {
    FDeployment->clear();
    const TFormControls* controls = CurrentControls();
    if (!controls || !controls->ToolBar())
      return;
    for (QAction* action : controls->ToolBar()->Actions()) {
      if (action->isSeparator() || !action->text().isEmpty())
        FDeployment->addAction(action);
    }
  });
}

void TMainWindow::MakeToolsMenu() {
  QMenu& tools = *menuBar()->addMenu(tr("&Tools"));
  AddAction(tools, tr("Remote &Profiles…"), QKeySequence(Qt::CTRL | Qt::Key_P),
            [this] { ShowProfiles(); });
  AddAction(tools, tr("&Settings…"), QKeySequence::Preferences, [this] { ShowSettings(); });
}

void TMainWindow::MakeHelpMenu() {
  QMenu& help = *menuBar()->addMenu(tr("&Help"));
  AddAction(help, tr("&About"), {}, [this] { ShowAbout(); });
}

void TMainWindow::FillRecent() {
  FRecent->clear();
  std::vector<std::string> files = FSession.Settings().ReadHistory(RecentProjects);
  files.resize(std::min(files.size(), RecentShown));
  for (const std::string& file : files) {
    QString text = PathToQString(file);
    text.replace(u'&', QStringLiteral("&&"));
    AddAction(*FRecent, text, {}, [this, file] { Open(file); });
  }
  if (files.empty())
    FRecent->addAction(tr("None yet"))->setEnabled(false);
}

void TMainWindow::AskForProject() {
  const TOpenProject* project = CurrentProject();
  const QString directory =
      project ? PathToQString(std::filesystem::absolute(project->GivenFileName()).parent_path())
              : QString();
  const QStringList files = QFileDialog::getOpenFileNames(this, tr("Open Project"), directory,
                                                          tr("Projects (*.*proj);;All files (*)"));
  for (const QString& file : files)
    Open(ToPathText(file));
}

void TMainWindow::Undo() {
  FProjects->EndSteps();
  if (TProjectEdits* edits = FProjects->EditsAt(FTabs->currentIndex()))
    edits->History().Undo();
  ShowState();
}

void TMainWindow::Redo() {
  FProjects->EndSteps();
  if (TProjectEdits* edits = FProjects->EditsAt(FTabs->currentIndex()))
    edits->History().Redo();
  ShowState();
}

void TMainWindow::ShowUndo() {
  TProjectEdits* edits = FProjects->EditsAt(FTabs->currentIndex());
  FUndo->setEnabled(edits && edits->History().CanUndo());
  FRedo->setEnabled(edits && edits->History().CanRedo());
  FUndo->setText(FUndo->isEnabled() ? tr("&Undo: %1").arg(ToQString(edits->History().UndoName()))
                                    : tr("&Undo"));
  FRedo->setText(FRedo->isEnabled() ? tr("&Redo: %1").arg(ToQString(edits->History().RedoName()))
                                    : tr("&Redo"));
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

void TMainWindow::ShowSettings() {
  TSettingsDialog(FSession, this).exec();
}

void TMainWindow::ShowWarnings() {
  const TOpenProject* project = CurrentProject();
  if (!project)
    return;
  QStringList lines;
  for (const TWarning& warning : project->Warnings()) {
    QString place = ToQString(warning.File);
    if (warning.Line > 0)
      place += QStringLiteral(":%1").arg(warning.Line);
    lines += (place.isEmpty() ? QString() : place + ": ") + ToQString(warning.Text);
  }
  QMessageBox box(QMessageBox::Warning, tr("Warnings"), lines.join(QStringLiteral("\n\n")),
                  QMessageBox::Ok, this);
  box.setTextFormat(Qt::PlainText);
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  box.exec();
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
