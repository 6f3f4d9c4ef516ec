#include "workbench/ide/view/project_lists.h"

#include "workbench/deploy/deploy_report.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/interaction/list_commands.h"
#include "workbench/desktop/interaction/served_session.h"
#include "workbench/desktop/notices/project_notices.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/projects/recovery_question.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/project/build_import/build_directory.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/settings/settings_store.h"

#include <QAction>
#include <QApplication>
#include <QSplitter>
#include <QTabBar>
#include <QVBoxLayout>
#include <chrono>

namespace workbench {
namespace {

namespace fs = std::filesystem;

constexpr std::chrono::milliseconds LookInterval(500);

std::vector<TListProblem> WarningsOf(const TOpenProject& project) {
  std::vector<TListProblem> problems;
  for (const TWarning& warning : project.Warnings()) {
    if (warning.IsRemark)
      continue;
    problems.push_back({.File = warning.File.empty()
                                    ? PathToQString(CanonicalPath(project.GivenFileName()))
                                    : ToQString(warning.File),
                        .Line = static_cast<int>(warning.Line),
                        .Text = ToQString(warning.Text)});
  }
  return problems;
}

} // namespace

TProjectLists::TProjectLists(QWidget* parent)
    : QWidget(parent), FSession(TSessionOptions{}), FBackground(*this), FForms(this),
      FTabs(new TEditorTabs(
          FSession.Settings(), [this] { return FBackground.IsBusy(); }, this)),
      FPanel(new TDeployPanel(this)),
      FProjects(std::make_unique<TProjectTabs>(FSession, *FTabs, FBackground, FForms, *this)),
      FServed(std::make_unique<TServedSession>(
          FSession,
          TServingParts{.Tabs = *FTabs,
                        .Projects = *FProjects,
                        .Forms = FForms,
                        .Background = FBackground,
                        .Panel = *FPanel,
                        .Window = *this,
                        .Say = [this](const QString& text) { emit Notice(text); },
                        .Deployed = [this](const TDeployReport& report) { Deployed(report); }})),
      FCommands(new TListCommands(FSession, *this, TKeyReach::List)),
      FNotices(new TProjectNotices(*FProjects, FSession.Settings(), *this)) {
  FTabs->tabBar()->hide(); // the IDE says which project is in front
  FPanel->hide();
  FBackground.Allow(FPanel);
  auto* splitter = new QSplitter(Qt::Vertical, this);
  splitter->addWidget(FTabs);
  splitter->addWidget(FPanel);
  splitter->setStretchFactor(0, 1);
  splitter->setChildrenCollapsible(false);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(splitter);
  FState.setSingleShot(true);
  FState.setInterval(0);
  FPoll.setInterval(LookInterval);
  connect(&FState, &QTimer::timeout, this, &TProjectLists::ShowState);
  connect(&FPoll, &QTimer::timeout, this, &TProjectLists::ShowState);
  connect(&FWatcher, &TProjectWatcher::FilesChanged, this, &TProjectLists::CheckDisk);
  connect(&FBackground, &TBackgroundWork::BusyChanged, this, &TProjectLists::BusyChanged);
  connect(FCommands, &TListCommands::Done, &FState, QOverload<>::of(&QTimer::start));
  connect(FTabs, &QTabWidget::currentChanged, &FState, QOverload<>::of(&QTimer::start));
  connect(FProjects.get(), &TProjectTabs::Notice, this, &TProjectLists::Notice);
  connect(FProjects.get(), &TProjectTabs::Opened, this,
          [this](TOpenProject* project) { Opened(*project); });
  connect(FProjects.get(), &TProjectTabs::Changed, this, &TProjectLists::WatchFiles);
  FPoll.start();
}

TProjectLists::~TProjectLists() {
  FPoll.stop();
  FState.stop();
  FTabs->disconnect(this);
  FTabs->disconnect(&FState);
  FProjects.reset(); // edits that were not saved stay in their journals
  FServed.reset();
  delete FTabs; // views and settings are the session's, which goes before the children of the
                // widget
}

int TProjectLists::IndexOf(const fs::path& file) {
  const TOpenProject* project = FSession.FindOpen(file);
  const TFormControls* controls = project ? FProjects->ControlsOf(*project) : nullptr;
  return controls ? FTabs->IndexOf(*controls) : -1;
}

bool TProjectLists::Open(const fs::path& file) {
  if (const int index = IndexOf(file); index >= 0) {
    FTabs->setCurrentIndex(index);
    return true;
  }
  if (IsBusy() || !FProjects->Open(file))
    return false;
  Guarded([&] { OfferRecovery(*FProjects, this, file); });
  return true;
}

bool TProjectLists::Make(const fs::path& file, const TBuildSource& source) {
  try {
    TInstallPlan plan;
    FBackground.Run(
        [&] { plan = ReadBuildDirectory(source.Directory, source.Components, /*mayRun=*/true); });
    FSession.Close(CreateFromBuild(FSession, file, source, plan).Project);
  } catch (const std::exception& error) {
    ShowError(tr("Deployment List"), tr("The list was not made.\n\n%1").arg(ErrorText(error)),
              this);
    return false;
  }
  return Open(file);
}

void TProjectLists::Close(const fs::path& file, TUnsavedEdits edits) {
  const int index = IndexOf(file);
  if (index < 0)
    return;
  FFailures.erase(CanonicalPath(file));
  if (edits == TUnsavedEdits::Keep || !FProjects->Close(index))
    FProjects->Leave(IndexOf(file));
  FState.start();
}

void TProjectLists::Save() {
  FProjects->Save(FTabs->currentIndex());
  ShowState();
}

void TProjectLists::Step(void (TEditHistory::*step)()) {
  if (IsBusy() || !FProjects->CommitEditors())
    return;
  FProjects->EndSteps();
  if (TProjectEdits* edits = FProjects->EditsAt(FTabs->currentIndex()))
    Guarded([&] { (edits->History().*step)(); });
  ShowState();
}

bool TProjectLists::CanUndo() {
  TProjectEdits* edits = FProjects->EditsAt(FTabs->currentIndex());
  return edits && edits->History().CanUndo();
}

bool TProjectLists::CanRedo() {
  TProjectEdits* edits = FProjects->EditsAt(FTabs->currentIndex());
  return edits && edits->History().CanRedo();
}

void TProjectLists::ShowProfiles() {
  FServed->ShowProfiles();
}

void TProjectLists::Press(std::string_view button) {
  const TFormControls* controls = FTabs->ControlsAt(FTabs->currentIndex());
  QAction* action =
      controls && controls->ToolBar() && !IsBusy() ? controls->ToolBar()->Find(button) : nullptr;
  if (action)
    action->trigger();
}

std::vector<std::string> TProjectLists::Platforms() const {
  return FSession.Platforms().Names();
}

std::vector<TListProblem> TProjectLists::Problems() const {
  std::vector<TListProblem> problems;
  for (int i = 0; i < FTabs->count(); ++i) {
    const TOpenProject* project = FProjects->ProjectAt(i);
    if (!project)
      continue;
    const std::vector<TListProblem> warnings = WarningsOf(*project);
    problems.insert(problems.end(), warnings.begin(), warnings.end());
    const auto failures = FFailures.find(CanonicalPath(project->GivenFileName()));
    if (failures != FFailures.end())
      problems.insert(problems.end(), failures->second.begin(), failures->second.end());
  }
  return problems;
}

void TProjectLists::Opened(TOpenProject& project) {
  TFormControls* controls = FProjects->ControlsOf(project);
  if (!controls || !controls->Tree())
    return;
  FCommands->Attach(project, *controls);
  TTreeView& view = controls->Tree()->View();
  view.setAccessibleName(tr("Files of %1").arg(PathToQString(project.GivenFileName().stem())));
  connect(controls, &TFormControls::StateChanged, &FState, QOverload<>::of(&QTimer::start));
  connect(&view, &TTreeView::FilesDropped, this, &TProjectLists::AddDropped);
}

// Only the list in front is deployed.
void TProjectLists::Deployed(const TDeployReport& report) {
  const TOpenProject* project = CurrentProject();
  if (!project)
    return;
  const fs::path file = CanonicalPath(project->GivenFileName());
  std::vector<TListProblem> failures;
  const auto add = [&](const std::string& text) {
    failures.push_back(
        {.File = PathToQString(file), .Line = 0, .Text = ToQString(text), .IsError = true});
  };
  if (!report.Message.empty())
    add(report.Message);
  for (const std::string& problem : report.Problems)
    add(problem);
  for (const TDeployRow& row : report.Rows) {
    if (!row.Error.empty())
      add(row.LocalName + ": " + row.Error);
  }
  FFailures[file] = std::move(failures);
}

void TProjectLists::AddDropped(const QStringList& files) {
  std::vector<std::string> added;
  for (const QString& file : files) {
    if (std::error_code ignored; fs::is_regular_file(ToPathText(file), ignored))
      added.push_back(ToPathText(file));
  }
  if (TFormControls* controls = FTabs->ControlsAt(FTabs->currentIndex()))
    controls->AddFiles(std::move(added));
}

void TProjectLists::WatchFiles() {
  std::vector<fs::path> files = FProjects->Files();
  const fs::path& profiles = FSession.RemoteProfiles().Profiles().File();
  if (!profiles.empty())
    files.push_back(profiles);
  FWatcher.Watch(files);
  FState.start();
}

// Other programs, such as the command line, change lists and profiles.
void TProjectLists::CheckDisk() {
  if (IsBusy() || QApplication::activeModalWidget())
    return;
  Guarded([this] { FSession.RemoteProfiles().ReadProfilesAnew(); });
  FProjects->CheckDisk();
}

void TProjectLists::ShowState() {
  if (!IsBusy()) {
    FProjects->EndSteps();
    FProjects->ShowModified();
    FNotices->Update();
  }
  emit StateChanged();
}

} // namespace workbench
