#include "workbench/ide/view/deployment_view.h"

#include "package/host/api/view_buttons.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/ide/view/new_list_page.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QIcon>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QStackedWidget>
#include <QToolBar>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace workbench {

namespace fs = std::filesystem;
namespace view_button = deployment::view_button;

namespace {

constexpr int IconSize = 16; // as in the tool bar of the list

} // namespace

TDeploymentView::TDeploymentView(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("deploymentView"));
  setWindowTitle(tr("Deployment Manager"));
  MakeCommands();
  MakeBar();
  FPages = new QStackedWidget(this);
  FMessagePage = MakeMessagePage();
  FNewList = new TNewListPage(this);
  connect(FNewList, &TNewListPage::MakeWanted, this, &TDeploymentView::MakeList);
  FPages->addWidget(FMessagePage);
  FPages->addWidget(FNewList);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  layout->addWidget(FBar);
  layout->addWidget(FPages, 1);
  layout->addWidget(MakeStatus());
  FillChooser();
  ShowEntry();
}

TDeploymentView::~TDeploymentView() {
  delete FLists.data(); // while what it tells is still there
}

QAction* TDeploymentView::AddCommand(const QString& text, const char* icon, const char* name,
                                     void (TDeploymentView::*run)()) {
  auto* action = new QAction(QIcon::fromTheme(QLatin1String(icon)), text, this);
  action->setObjectName(QLatin1String(name));
  connect(action, &QAction::triggered, this, [this, run] {
    emit AttentionWanted();
    Guarded([&] {
      if (Load())
        (this->*run)();
    });
    ShowState();
  });
  FCommands.push_back(action);
  return action;
}

void TDeploymentView::MakeCommands() {
  FDeploy = AddCommand(tr("&Deploy"), "run-install", "deployment_deploy", &TDeploymentView::Deploy);
  FReconcile = AddCommand(tr("&Reconcile"), "view-refresh", "deployment_reconcile",
                          &TDeploymentView::Reconcile);
  FCommands.push_back(nullptr);
  FSave =
      AddCommand(tr("&Save List"), "document-save", "deployment_save", &TDeploymentView::SaveList);
  FUndo =
      AddCommand(tr("&Undo in List"), "edit-undo", "deployment_undo", &TDeploymentView::UndoEdit);
  FRedo =
      AddCommand(tr("R&edo in List"), "edit-redo", "deployment_redo", &TDeploymentView::RedoEdit);
  FCommands.push_back(nullptr);
  AddCommand(tr("Remote &Profiles…"), "network-server", "deployment_profiles",
             &TDeploymentView::EditProfiles);
}

// The list has a tool bar of its own, with what is done to its files.
void TDeploymentView::MakeBar() {
  FBar = new QToolBar(this);
  FBar->setIconSize(QSize(IconSize, IconSize));
  FChooser = new QComboBox(FBar);
  FChooser->setObjectName(QStringLiteral("projectChooser"));
  FChooser->setAccessibleName(tr("Project"));
  FChooser->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  connect(FChooser, QOverload<int>::of(&QComboBox::activated), this, &TDeploymentView::ShowEntry);
  FBar->addWidget(FChooser);
  for (QAction* action : FCommands) {
    if (action && action != FDeploy && action != FReconcile)
      FBar->addAction(action);
  }
}

QWidget* TDeploymentView::MakeMessagePage() {
  auto* page = new QWidget(this);
  FMessage = new QLabel(page);
  FMessage->setObjectName(QStringLiteral("deploymentMessage"));
  FMessage->setTextFormat(Qt::PlainText);
  FMessage->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  FMessage->setWordWrap(true);
  FMessage->setAlignment(Qt::AlignCenter);
  FTryAgain = new QPushButton(tr("Try &Again"), page);
  connect(FTryAgain, &QPushButton::clicked, this, &TDeploymentView::TryAgain);
  auto* layout = new QVBoxLayout(page);
  layout->addStretch();
  layout->addWidget(FMessage);
  layout->addWidget(FTryAgain, 0, Qt::AlignHCenter);
  layout->addStretch();
  return page;
}

QWidget* TDeploymentView::MakeStatus() {
  auto* status = new QWidget(this);
  FStatus = new QLabel(status);
  FStatus->setTextFormat(Qt::PlainText);
  FStatus->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
  FWarnings = new QToolButton(status);
  FWarnings->setAutoRaise(true);
  FWarnings->hide();
  connect(FWarnings, &QToolButton::clicked, this, &TDeploymentView::ShowWarnings);
  auto* layout = new QHBoxLayout(status);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(FStatus, 1);
  layout->addWidget(FWarnings);
  return status;
}

// False where the package cannot be loaded, and says why.
bool TDeploymentView::Load() {
  if (FLists)
    return true;
  try {
    FLists = new TProjectLists(this);
  } catch (const std::exception& error) {
    ShowMessage(tr("The Deployment Manager cannot be started.\n\n%1\n\nThis plug-in and the "
                   "package \"deploymgr\" go together in one version.")
                    .arg(ErrorText(error)),
                true);
    return false;
  }
  FPages->addWidget(FLists);
  FNewList->SetPlatforms(FLists->Platforms());
  connect(FLists, &TProjectLists::StateChanged, this, &TDeploymentView::ShowState);
  connect(FLists, &TProjectLists::Notice, FStatus, &QLabel::setText);
  connect(FLists, &TProjectLists::BusyChanged, this, [this](bool busy) {
    if (!busy)
      QMetaObject::invokeMethod(this, &TDeploymentView::Finish, Qt::QueuedConnection);
  });
  ShowEntry();
  return true;
}

void TDeploymentView::AddProject(const TIdeProject& project) {
  const auto isOfProject = [&project](const TEntry& entry) {
    return entry.Project.Directory == project.Directory;
  };
  const auto leaving =
      std::ranges::find(FLeaving, project.Directory, [](const auto& pair) { return pair.first; });
  if (leaving != FLeaving.end())
    FLeaving.erase(leaving); // it comes back before it is gone
  const TEntry* current = Current();
  const TEntry before = current ? *current : TEntry();
  const auto first = std::ranges::find_if(FEntries, isOfProject);
  const auto place = first - FEntries.begin();
  std::erase_if(FEntries, isOfProject);
  std::vector<TEntry> entries;
  for (const fs::path& file : ListFilesOf(project))
    entries.push_back({project, file, before.HasFailed && before.File == file});
  if (entries.empty())
    entries.push_back({project, {}, false});
  FEntries.insert(FEntries.begin() + place, entries.begin(), entries.end());
  FillChooser();
  const auto shown = std::ranges::find_if(FEntries, [&before](const TEntry& entry) {
    return entry.Project.Directory == before.Project.Directory && entry.File == before.File;
  });
  FChooser->setCurrentIndex(shown == FEntries.end() ? static_cast<int>(place)
                                                    : static_cast<int>(shown - FEntries.begin()));
  ShowEntry();
}

void TDeploymentView::RemoveProject(const fs::path& directory, TUnsavedEdits edits) {
  if (IsBusy()) {
    FLeaving.emplace_back(directory, edits);
    return;
  }
  std::vector<fs::path> files;
  for (const TEntry& entry : FEntries) {
    if (entry.Project.Directory == directory && !entry.File.empty())
      files.push_back(entry.File);
  }
  for (const fs::path& file : files) {
    if (FLists)
      FLists->Close(file, edits);
  }
  std::erase_if(FEntries,
                [&directory](const TEntry& entry) { return entry.Project.Directory == directory; });
  FillChooser();
  ShowEntry();
}

void TDeploymentView::Dismiss() {
  hide();
  setParent(nullptr);
  FIsDismissed = true;
  if (!IsBusy())
    delete this;
}

void TDeploymentView::Finish() {
  if (IsBusy())
    return;
  if (FIsDismissed)
    return deleteLater();
  for (const auto& [directory, edits] : std::exchange(FLeaving, {}))
    RemoveProject(directory, edits);
  ShowEntry();
}

void TDeploymentView::ShowProject(const fs::path& directory) {
  const TEntry* current = Current();
  if (current && current->Project.Directory == directory)
    return;
  const auto found = std::ranges::find(FEntries, directory,
                                       [](const TEntry& entry) { return entry.Project.Directory; });
  if (found == FEntries.end())
    return;
  FChooser->setCurrentIndex(static_cast<int>(found - FEntries.begin()));
  ShowEntry();
}

void TDeploymentView::FillChooser() {
  const QSignalBlocker quiet(FChooser);
  const int current = FChooser->currentIndex();
  FChooser->clear();
  for (const TEntry& entry : FEntries) {
    const auto ofProject =
        std::ranges::count(FEntries, entry.Project.Directory,
                           [](const TEntry& each) { return each.Project.Directory; });
    FChooser->addItem(ofProject > 1 ? QStringLiteral("%1 – %2").arg(
                                          entry.Project.Name, PathToQString(entry.File.filename()))
                                    : entry.Project.Name);
  }
  FChooser->setCurrentIndex(std::min(std::max(current, 0), FChooser->count() - 1));
  FChooser->setEnabled(!FEntries.empty());
}

TDeploymentView::TEntry* TDeploymentView::Current() {
  const int index = FChooser->currentIndex();
  return index >= 0 && index < static_cast<int>(FEntries.size())
             ? &FEntries[static_cast<std::size_t>(index)]
             : nullptr;
}

// Nothing is opened that nobody sees.
void TDeploymentView::ShowEntry() {
  TEntry* entry = Current();
  if (!entry) {
    ShowMessage(tr("Open a project to see which of its files go to which platform."), false);
  } else if (FLists && !IsBusy()) {
    if (entry->File.empty()) {
      FNewList->SetProject(entry->Project);
      FPages->setCurrentWidget(FNewList);
    } else {
      OpenList(*entry);
    }
  }
  ShowState();
}

// While questions are asked, the IDE may open and close projects.
void TDeploymentView::OpenList(const TEntry& entry) {
  const fs::path file = entry.File;
  const bool isOpen = !entry.HasFailed && FLists->Open(file);
  TEntry* current = Current();
  if (!current || current->File != file)
    return;
  current->HasFailed = !isOpen;
  if (isOpen)
    FPages->setCurrentWidget(FLists);
  else
    ShowMessage(tr("%1 is not open.").arg(PathToQString(file)), true);
}

void TDeploymentView::ShowMessage(const QString& text, bool canTryAgain) {
  FMessage->setText(text);
  FTryAgain->setVisible(canTryAgain);
  FPages->setCurrentWidget(FMessagePage);
}

void TDeploymentView::TryAgain() {
  TEntry* entry = Current();
  if (entry)
    entry->HasFailed = false;
  if (FLists)
    ShowEntry();
  else
    Load();
}

void TDeploymentView::MakeList(const TBuildSource& source) {
  const TEntry* entry = Current();
  if (!entry || !FLists || IsBusy())
    return;
  const TIdeProject project = entry->Project;
  if (FLists->Make(FirstListFileOf(project), source))
    AddProject(project);
}

void TDeploymentView::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  Load();
}

void TDeploymentView::ShowState() {
  const bool isOpen = FLists && FPages->currentWidget() == FLists && !FLists->IsBusy();
  // Before the package is loaded a command loads it, and then says what is missing.
  const bool mayTry = isOpen || (!FLists && Current());
  FDeploy->setEnabled(mayTry);
  FReconcile->setEnabled(mayTry);
  FSave->setEnabled(isOpen && FLists->IsModified());
  FUndo->setEnabled(isOpen && FLists->CanUndo());
  FRedo->setEnabled(isOpen && FLists->CanRedo());
  if (!FLists || FLists->IsBusy())
    return;
  std::vector<TListProblem> problems = FLists->Problems();
  if (problems == FProblems)
    return;
  FProblems = std::move(problems);
  FWarnings->setText(tr("%n problem(s)", nullptr, static_cast<int>(FProblems.size())));
  FWarnings->setVisible(!FProblems.empty());
  emit ProblemsChanged(FProblems);
}

void TDeploymentView::ShowWarnings() {
  QStringList lines;
  for (const TListProblem& problem : FProblems) {
    const QString line = problem.Line > 0 ? QStringLiteral(":%1").arg(problem.Line) : QString();
    lines += problem.File + line + QStringLiteral(": ") + problem.Text;
  }
  ShowError(tr("Problems"), lines.join(QStringLiteral("\n\n")), this);
}

void TDeploymentView::SaveList() {
  if (FLists->HasList())
    FLists->Save();
}

void TDeploymentView::UndoEdit() {
  FLists->Undo();
}

void TDeploymentView::RedoEdit() {
  FLists->Redo();
}

void TDeploymentView::Deploy() {
  if (FPages->currentWidget() == FLists)
    FLists->Press(view_button::Deploy);
}

void TDeploymentView::Reconcile() {
  if (FPages->currentWidget() == FLists)
    FLists->Press(view_button::Reconcile);
}

void TDeploymentView::EditProfiles() {
  FLists->ShowProfiles();
}

} // namespace workbench
