// The table of the window's commands and what stands behind them.
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/details/details_pane.h"
#include "workbench/desktop/dialogs/settings/settings_dialog.h"
#include "workbench/desktop/interaction/served_session.h"
#include "workbench/desktop/interaction/window_deploys.h"
#include "workbench/desktop/interaction/window_history.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/desktop/welcome/guide_dialog.h"
#include "workbench/desktop/welcome/new_project_dialog.h"
#include "workbench/desktop/welcome/welcome_page.h"
#include "workbench/desktop/window/main_window.h"
#include "workbench/desktop/window/project_panes.h"
#include "workbench/desktop/window/row_text.h"
#include "workbench/desktop/window/targets_tab.h"
#include "workbench/desktop/window/window_menus.h"
#include "workbench/project/project_settings.h"
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
  std::vector<TWindowCommand> help;
  if (!FindGuide(FSession.Root()).empty())
    help.push_back({tr("&User Guide"), QKeySequence::HelpContents, [this] { ShowGuide(); }});
  help.push_back({tr("&About"), {}, [this] { ShowAbout(); }});
  FMenus->AddMenu(tr("&Help"), help);
}

std::vector<TWindowCommand> TMainWindow::FileCommands() {
  const auto current = [this] { return FTabs->currentIndex(); };
  return {
      {tr("&New…"), QKeySequence::New, [this] { NewProject(); }},
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
      {},
      {tr("&Find"), QKeySequence::Find,
       [this] {
         if (TFormControls* controls = CurrentControls())
           TProjectPanes::FocusFilter(*controls);
       },
       TCommandKind::Project},
      {tr("&Details"), Qt::CTRL | Qt::Key_D, [this] { FProjectPanes->SwitchDetails(); },
       TCommandKind::Project},
  };
}

std::vector<TWindowCommand> TMainWindow::ToolsCommands() {
  return {
      {tr("Show P&lan of Deploy"), Qt::SHIFT | Qt::Key_F9, [this] { FServed->Deploys().Plan(); },
       TCommandKind::Project},
      {tr("Show &Results of Deploy"), {}, [this] { FPanel->ShowPage(); }, TCommandKind::Project},
      {tr("Deploy &History"), Qt::CTRL | Qt::Key_H, [this] { FServed->History().Show(); },
       TCommandKind::Project},
      {},
      {tr("Remote &Profiles…"), Qt::CTRL | Qt::Key_P, [this] { FServed->ShowProfiles(); }},
      {tr("Compare &Targets"), Qt::CTRL | Qt::Key_T, [this] { FTargets->Show(); },
       TCommandKind::Project},
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

void TMainWindow::NewProject() {
  TNewProjectDialog dialog(FSession, this);
  if (dialog.exec() == QDialog::Accepted)
    Open(dialog.File());
}

void TMainWindow::MakeWelcome() {
  const bool hasGuide = !FindGuide(FSession.Root()).empty();
  FWelcome = new TWelcomePage(FindExamples(FSession.Root()), hasGuide, this);
  connect(FWelcome, &TWelcomePage::OpenWanted, this, &TMainWindow::AskForProject);
  connect(FWelcome, &TWelcomePage::NewWanted, this, &TMainWindow::NewProject);
  connect(FWelcome, &TWelcomePage::GuideWanted, this, &TMainWindow::ShowGuide);
  connect(FWelcome, &TWelcomePage::RecentWanted, this,
          [this](const QString& file) { Open(ToPathText(file)); });
  connect(FWelcome, &TWelcomePage::ExampleWanted, this, [this](const TExampleProject& example) {
    Guarded([&] { Open(WritableExample(example)); });
  });
  ShowRecent();
}

void TMainWindow::ShowRecent() {
  QStringList files;
  for (const std::string& file : FSession.Settings().ReadHistory(RecentProjects))
    files += PathToQString(file);
  FWelcome->SetRecent(files);
}

void TMainWindow::ShowGuide() {
  (new TGuideDialog(FindGuide(FSession.Root()), this))->show();
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
