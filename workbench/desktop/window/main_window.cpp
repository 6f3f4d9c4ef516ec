#include "workbench/desktop/window/main_window.h"

#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/controls/svg_icon.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/details/details_pane.h"
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"
#include "workbench/desktop/interaction/list_commands.h"
#include "workbench/desktop/interaction/served_session.h"
#include "workbench/desktop/interaction/window_deploys.h"
#include "workbench/desktop/notices/missing_notices.h"
#include "workbench/desktop/notices/project_notices.h"
#include "workbench/desktop/projects/added_rows.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/projects/recovery_question.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/desktop/welcome/welcome_page.h"
#include "workbench/desktop/window/project_panes.h"
#include "workbench/desktop/window/targets_tab.h"
#include "workbench/desktop/window/window_menus.h"
#include "workbench/desktop/window/window_panes.h"
#include "workbench/desktop/window/window_status.h"
#include "workbench/project/cpp/solution.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"
#include "workbench/settings/settings_store.h"

#include <QApplication>
#include <QCloseEvent>
#include <QHeaderView>
#include <QMimeData>
#include <QScreen>
#include <QStackedWidget>
#include <chrono>
#include <string_view>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds RefreshInterval(500);
constexpr QSize FirstSize(1180, 680);
constexpr QSize WideSize(1480, 760); // all columns, and the details beside them

constexpr std::string_view WindowImage = R"(<svg xmlns="http://www.w3.org/2000/svg"
 viewBox="0 0 32 32"><rect x="3" y="13" width="26" height="16" rx="3" fill="#4a6fa5"/>
<path d="M16 3l8 9h-5v8h-6v-8H8z" fill="#e8a33d"/></svg>)";

} // namespace

TMainWindow::TMainWindow(TSession& session)
    : FSession(session), FLayout(TWindowLayout::Read()), FBackground(*this) {
  setWindowTitle(QApplication::applicationName());
  setWindowIcon(SvgIcon(WindowImage));
  setAcceptDrops(true);
  MakePages();
  MakeMenus();
  FStatus = new TWindowStatus(*this, *FProjects, *FTabs);
  FListCommands = new TListCommands(FSession, *this);
  FServed = std::make_unique<TServedSession>(
      FSession, TServingParts{.Tabs = *FTabs,
                              .Projects = *FProjects,
                              .Forms = *FModalForms,
                              .Background = FBackground,
                              .Panel = *FPanel,
                              .Window = *this,
                              .Say = [this](const QString& text) { FStatus->Say(text); },
                              .ConnectionLost =
                                  [this](const std::string& profile, const std::string& reason) {
                                    FProjectPanes->ConnectionLost(profile, reason);
                                  }});
  WatchState();
  if (FLayout.Geometry.isEmpty() || !restoreGeometry(FLayout.Geometry))
    resize(WideSize.boundedTo(screen()->availableSize()).expandedTo(FirstSize));
  ShowState();
}

TMainWindow::~TMainWindow() {
  FPoll.stop();
  FState.stop();
  FTabs->disconnect(this);
  FProjectPanes->Show(nullptr, nullptr);
  FProjects.reset(); // edits that were not saved stay in their journals
  FServed.reset();
}

void TMainWindow::WatchState() {
  FState.setSingleShot(true);
  FState.setInterval(0);
  connect(&FState, &QTimer::timeout, this, &TMainWindow::ShowState);
  FPoll.setInterval(RefreshInterval);
  connect(&FPoll, &QTimer::timeout, this, &TMainWindow::ShowState);
  FPoll.start();
  connect(&FWatcher, &TProjectWatcher::FilesChanged, this, &TMainWindow::CheckDisk);
  WatchFiles();
  connect(FProjects.get(), &TProjectTabs::Notice, FStatus, &TWindowStatus::Say);
  connect(FProjectPanes, &TProjectPanes::ProfilesWanted, this, [this] { FServed->ShowProfiles(); });
  connect(FListCommands, &TListCommands::Done, this, [this] {
    if (!FServed->Deploys().FocusPlan())
      FocusListSoon();
  });
}

void TMainWindow::WatchFiles() {
  std::vector<std::filesystem::path> files = FProjects->Files();
  for (const std::filesystem::path& file :
       {FSession.RemoteProfiles().Profiles().File(), FSession.Settings().File()}) {
    if (!file.empty())
      files.push_back(file);
  }
  FWatcher.Watch(files);
}

// Other programs, such as the command line, change projects and profiles.
void TMainWindow::CheckDisk() {
  if (FBackground.IsBusy() || QApplication::activeModalWidget())
    return;
  Guarded([this] {
    FSession.RemoteProfiles().ReadProfilesAnew();
    FSession.Settings().ReadAnew();
  });
  FProjects->CheckDisk();
  FMissing->Look(CurrentProject());
}

void TMainWindow::MakePages() {
  FModalForms = std::make_unique<TModalDialogs>(this);
  FTabs = new TEditorTabs(
      FSession.Settings(), [this] { return FBackground.IsBusy(); }, this);
  FProjects = std::make_unique<TProjectTabs>(FSession, *FTabs, FBackground, *FModalForms, *this);
  FNotices = new TProjectNotices(*FProjects, FSession.Settings(), *this);
  FMissing = new TMissingNotices(
      FSession, *FProjects, *FNotices, [this] { FServed->ShowProfiles(); }, *this);
  FPanel = new TDeployPanel(this);
  FPanel->hide();
  FBackground.Allow(FPanel);
  FTargets = new TTargetsTab(FSession, {*FProjects, *FTabs}, *FPanel, FBackground);
  MakeWelcome();
  FPages = new QStackedWidget(this);
  FPages->addWidget(FWelcome);
  FPages->addWidget(FTabs);
  FPanes = new TWindowPanes(FPages, this);
  FProjectPanes = new TProjectPanes(FSession, *FProjects, FLayout.HasDetails, *this);
  FPanes->AddBeside(&FProjectPanes->Details());
  FPanes->AddBelow(FPanel);
  FPanes->Restore(FLayout.Split, FLayout.Widths);
  setCentralWidget(FPanes);
  connect(FTabs, &QTabWidget::tabCloseRequested, this,
          [this](int index) { FProjects->Close(index); });
  FTabs->SetMayLeave([this] { return FProjects->CommitEditors(); });
  connect(FTabs, &QTabWidget::currentChanged, this, &TMainWindow::ShowPage);
  connect(FProjects.get(), &TProjectTabs::Opened, this,
          [this](TOpenProject* project) { Opened(*project); });
  connect(FProjects.get(), &TProjectTabs::Changed, this, [this] {
    WatchFiles();
    ShowPage();
  });
}

TFormControls* TMainWindow::CurrentControls() const {
  return FTabs->ControlsAt(FTabs->currentIndex());
}

TOpenProject* TMainWindow::CurrentProject() const {
  return FProjects->ProjectAt(FTabs->currentIndex());
}

bool TMainWindow::Open(const std::filesystem::path& file) {
  if (!(IsSolutionName(file) ? FProjects->OpenSolution(file) : FProjects->Open(file)))
    return false;
  Guarded([&] {
    FSession.Settings().AddToHistory(RecentProjects, std::filesystem::absolute(file).string());
  });
  return true;
}

void TMainWindow::ChooseTarget(const std::string& configuration, const std::string& platform) {
  TFormControls* controls = CurrentControls();
  if (controls && controls->TargetsComboBox())
    controls->TargetsComboBox()->Choose(configuration, platform);
}

void TMainWindow::Restore() {
  for (const QString& file : FLayout.Projects) {
    if (QFile::exists(file))
      Open(ToPathText(file));
  }
  if (FLayout.Current >= 0)
    FTabs->setCurrentIndex(FLayout.Current);
}

void TMainWindow::OfferRecovery() {
  workbench::OfferRecovery(*FProjects, this);
}

void TMainWindow::Opened(TOpenProject& project) {
  TFormControls* controls = FProjects->ControlsOf(project);
  if (!controls || !controls->Tree())
    return;
  FListCommands->Attach(project, *controls);
  FProjectPanes->Attach(project, *controls);
  TTreeView& view = controls->Tree()->View();
  view.setAccessibleName(tr("Files of %1").arg(PathToQString(project.GivenFileName().stem())));
  if (!FLayout.Columns.isEmpty()) {
    view.header()->restoreState(FLayout.Columns);
    view.header()->setSortIndicator(-1, Qt::AscendingOrder);
  }
  connect(controls, &TFormControls::StateChanged, this, &TMainWindow::ShowStateSoon);
  connect(&view, &TTreeView::FilesDropped, this, &TMainWindow::AddDropped);
}

void TMainWindow::ShowPage() {
  FPages->setCurrentWidget(FTabs->count() > 0 ? static_cast<QWidget*>(FTabs)
                                              : static_cast<QWidget*>(FWelcome));
  if (FTabs->count() == 0)
    ShowRecent();
  FMissing->Look(CurrentProject());
  emit ProjectShown(CurrentProject(), CurrentControls());
  FProjectPanes->Show(CurrentProject(), CurrentControls());
  FocusListSoon();
  ShowState();
}

// What is shown only now takes no focus yet.
void TMainWindow::FocusListSoon() {
  QTimer::singleShot(0, this, [this] {
    TFormControls* controls = CurrentControls();
    if (controls && controls->Tree() && !controls->Tree()->View().Delegate().IsEditing())
      controls->Tree()->View().setFocus();
  });
}

void TMainWindow::ShowState() {
  // Said once, and not again by each look.
  const bool shown = FBackground.IsBusy() || Guarded([this] {
                       FProjects->EndSteps();
                       FProjects->ShowModified();
                       FNotices->Update();
                       FMissing->Update(CurrentProject());
                       FMenus->Update();
                       FStatus->Update();
                       FTargets->Update();
                     });
  if (!shown)
    FPoll.stop();
}

void TMainWindow::AddDroppedFolder(const std::filesystem::path& folder) {
  TOpenProject* project = CurrentProject();
  TFormControls* controls = CurrentControls();
  auto* newRows = controls ? controls->findChild<TNewRows*>() : nullptr;
  if (!project || !newRows)
    return;
  newRows->Begin();
  FProjects->Edit(*project, tr("Add %1").arg(PathToQString(folder.filename())),
                  [&] { AddFolder(*project, *controls, FSession.Platforms(), folder); });
  newRows->Select();
}

// Files of projects are opened, others are added to the list in front, folders with what is in
// them.
void TMainWindow::AddDropped(const QStringList& files) {
  std::vector<std::string> added;
  for (const QString& file : files) {
    const std::filesystem::path path = ToPathText(file);
    if (std::error_code ignored; std::filesystem::is_directory(path, ignored))
      AddDroppedFolder(path);
    else if (IsProjectFile(path) || IsSolutionName(path))
      Open(path);
    else
      added.push_back(path.string());
  }
  if (TFormControls* controls = CurrentControls())
    controls->AddFiles(std::move(added));
}

void TMainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls())
    event->acceptProposedAction();
}

void TMainWindow::dropEvent(QDropEvent* event) {
  QStringList files;
  for (const QUrl& url : event->mimeData()->urls()) {
    if (url.isLocalFile())
      files += url.toLocalFile();
  }
  event->acceptProposedAction();
  AddDropped(files);
}

void TMainWindow::changeEvent(QEvent* event) {
  QMainWindow::changeEvent(event);
  if (event->type() == QEvent::ActivationChange && isActiveWindow() && FProjects)
    QTimer::singleShot(0, this, &TMainWindow::CheckDisk);
}

void TMainWindow::KeepLayout() const {
  TWindowLayout layout;
  layout.Geometry = saveGeometry();
  layout.Split = FPanes->Heights();
  layout.Widths = FPanes->Widths();
  layout.HasDetails = FProjectPanes->WantsDetails();
  layout.Columns = FLayout.Columns;
  if (const TFormControls* controls = CurrentControls(); controls && controls->Tree())
    layout.Columns = controls->Tree()->View().header()->saveState();
  for (const std::filesystem::path& file : FProjects->Files())
    layout.Projects += PathToQString(file);
  layout.Current = FTabs->currentIndex();
  layout.Write();
}

void TMainWindow::closeEvent(QCloseEvent* event) {
  if (FBackground.IsBusy()) {
    FStatus->Say(FPanel->IsRunning() ? tr("A deploy is running; cancel it first.")
                                     : tr("Work is going on; it is over soon."));
    return event->ignore();
  }
  if (!FProjects->MayCloseAll())
    return event->ignore();
  KeepLayout();
  FProjects->CloseAll();
  event->accept();
}

} // namespace workbench
