#include "workbench/desktop/projects/project_tabs.h"

#include "package/common/errors.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/dialogs/forms/modal_dialogs.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/projects/project_questions.h"
#include "workbench/desktop/projects/shown_target.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/project/project_settings.h"

#include <QApplication>
#include <QTabBar>
#include <algorithm>
#include <utility>

namespace workbench {
namespace {

namespace fs = std::filesystem;

// Nothing is drawn and no row is asked for: a save uses the project in a thread of its own, and so
// would the rows. Layout and accessibility ask for them although nothing is drawn.
struct TPausedRows {
  TPausedRows(QWidget& tabs, TTreeModel& rows) : Tabs(tabs), Rows(rows) {
    Tabs.setUpdatesEnabled(false);
    Rows.SetPaused(true);
  }
  ~TPausedRows() {
    Rows.SetPaused(false);
    Tabs.setUpdatesEnabled(true);
  }
  TPausedRows(const TPausedRows&) = delete;
  TPausedRows& operator=(const TPausedRows&) = delete;
  QWidget& Tabs;
  TTreeModel& Rows;
};

struct TBusyCursor {
  TBusyCursor() { QApplication::setOverrideCursor(Qt::WaitCursor); }
  ~TBusyCursor() { QApplication::restoreOverrideCursor(); }
  TBusyCursor(const TBusyCursor&) = delete;
  TBusyCursor& operator=(const TBusyCursor&) = delete;
};

} // namespace

TProjectTabs::TProjectTabs(TSession& session, TEditorTabs& tabs, TBackgroundWork& background,
                           TModalDialogs& forms, QWidget& window)
    : FSession(session), FTabs(tabs), FBackground(background), FForms(forms), FWindow(window) {
  FForms.SetOffers([this](const deployment::IFeatureFileForm& form) { return Offers(form); });
}

TProjectTabs::~TProjectTabs() {
  FForms.SetOffers(nullptr);
}

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

const TProjectTabs::TProjectTab* TProjectTabs::TabOf(const TOpenProject& project) const {
  const auto found = std::ranges::find(FProjects, &project, &TProjectTab::Project);
  return found == FProjects.end() ? nullptr : &*found;
}

TFormControls* TProjectTabs::ControlsOf(const TOpenProject& project) const {
  const TProjectTab* tab = TabOf(project);
  return tab ? tab->Controls : nullptr;
}

// In the order of the tabs.
std::vector<fs::path> TProjectTabs::Files() const {
  std::vector<fs::path> files;
  files.reserve(FProjects.size());
  for (int i = 0; i < FTabs.count(); ++i) {
    if (const TOpenProject* project = ProjectAt(i))
      files.push_back(CanonicalPath(project->GivenFileName()));
  }
  return files;
}

bool TProjectTabs::IsModified(int index) const {
  const TProjectTab* tab = const_cast<TProjectTabs*>(this)->TabAt(index);
  return tab && tab->Edits->IsModified();
}

TProjectEdits* TProjectTabs::EditsAt(int index) {
  const TProjectTab* tab = TabAt(index);
  return tab ? tab->Edits.get() : nullptr;
}

const TProjectEdits* TProjectTabs::EditsOf(const TOpenProject& project) const {
  const TProjectTab* tab = TabOf(project);
  return tab ? tab->Edits.get() : nullptr;
}

bool TProjectTabs::Open(const fs::path& file) {
  try {
    if (const TOpenProject* open = FSession.FindOpen(file)) {
      FTabs.setCurrentIndex(FTabs.IndexOf(*ControlsOf(*open)));
      return true;
    }
    if (IsSideFile(file))
      throw deployment::TInputError("it is made from a project by each save; open the project");
    ShowActive(Read(file));
    return true;
  } catch (const std::exception& error) {
    ShowError(tr("Open Project"),
              tr("%1 cannot be opened.\n\n%2").arg(PathToQString(file), ErrorText(error)),
              &FWindow);
    return false;
  }
}

TOpenProject& TProjectTabs::Read(const fs::path& file,
                                 const std::shared_ptr<const TSolution>& solution) {
  const TBusyCursor busy;
  return FSession.Open(file, TOpenPurpose::Look, solution);
}

void TProjectTabs::ShowActive(TOpenProject& project) {
  Show(project, -1,
       {project.Settings().ActiveConfiguration(), project.Settings().ActivePlatform()});
}

// What fails here leaves no project without a tab behind.
TProjectTabs::TProjectTab TProjectTabs::MakeView(TOpenProject& project,
                                                 const deployment::TDeploymentTarget& target) {
  std::unique_ptr<TProjectEdits> edits;
  TFormControls* controls = nullptr;
  const auto added = connect(&FTabs, &TEditorTabs::Added, this,
                             [&controls](TFormControls* made) { controls = made; });
  try {
    edits = std::make_unique<TProjectEdits>(project);
    // A target that cannot be computed is no reason to keep the project closed: the view says it.
    FSession.ShowDeployment(project, {target});
    if (!controls)
      throw deployment::TInputError("the package shows no Deployment Manager for it");
  } catch (const std::exception&) {
    disconnect(added);
    FSession.Close(project);
    throw;
  }
  disconnect(added);
  return {.Project = &project, .Controls = controls, .Edits = std::move(edits)};
}

void TProjectTabs::Show(TOpenProject& project, int index,
                        const deployment::TDeploymentTarget& target) {
  const std::size_t answers = FForms.AnswerCount();
  FProjects.push_back(MakeView(project, target));
  TFormControls& controls = *FProjects.back().Controls;
  controls.TakeCommand();
  FAnswers = FForms.AnswerCount();
  const auto reconciled = FProjects.back().Edits->Opened(TargetName(controls), FAnswers != answers);
  if (FAnswers != answers)
    FProjects.back().Edits->MarkModified();
  connect(&controls, &TFormControls::CommandStarts, this, &TProjectTabs::EndSteps);
  connect(&controls, &TFormControls::CommandDone, this, &TProjectTabs::EndSteps);
  const int shown = FTabs.IndexOf(controls);
  if (index >= 0 && index != shown)
    FTabs.tabBar()->moveTab(shown, index);
  FTabs.setTabToolTip(FTabs.IndexOf(controls),
                      PathToQString(CanonicalPath(project.GivenFileName())).toHtmlEscaped());
  emit Opened(&project);
  if (reconciled)
    emit Reconciled(&project, *reconciled);
  TellOffered(project);
  ShowModified();
  emit Changed();
}

bool TProjectTabs::CommitEditors() {
  return std::ranges::all_of(FProjects,
                             [](const TProjectTab& tab) { return tab.Controls->CommitEditor(); });
}

bool TProjectTabs::Save(int index) {
  const TProjectTab* tab = TabAt(index);
  if (!tab)
    return true;
  if (!FinishEditing(index))
    return false;
  const bool force = tab->Project->HasChanges() && tab->Project->IsChangedOnDisk();
  if (force && !AskOverwrite(NameOf(*tab->Project), &FWindow))
    return false;
  return Write(*tab, force);
}

// The work has the project for itself.
void TProjectTabs::RunWith(const TProjectTab& tab, const std::function<void()>& work) {
  const TPausedRows still(FTabs, tab.Controls->Tree()->Model());
  FBackground.Run(work);
}

bool TProjectTabs::Write(const TProjectTab& tab, bool force) {
  bool saved = false;
  try {
    RunWith(tab, [&project = *tab.Project, force] {
      project.Save(force);
      project.HasChanges(); // takes what was written as the new text, which is work too
    });
    saved = true;
    tab.Edits->Saved();
  } catch (const std::exception& error) {
    ShowSaveError(error);
    tab.Edits->FileWritten(); // perhaps all but the side file
  }
  ShowModified();
  emit Changed();
  return saved;
}

void TProjectTabs::ShowSaveError(const std::exception& error) {
  ShowError(tr("Save Project"),
            tr("%1\n\nNothing is lost: the changes are still here. Mend what stands in the way, "
               "then save again.")
                .arg(ErrorText(error)),
            &FWindow);
}

// The dialog in which the name was chosen has asked whether a file of that name may be replaced.
bool TProjectTabs::SaveAs(int index, const fs::path& file) {
  const TProjectTab* tab = TabAt(index);
  if (!tab || !FinishEditing(index))
    return false;
  if (FSession.FindOpen(file) == tab->Project)
    return Save(index);
  const fs::path before = tab->Project->GivenFileName();
  bool saved = false;
  try {
    const TBusyCursor busy;
    FSession.SaveAs(*tab->Project, file, true);
    saved = true;
  } catch (const std::exception& error) {
    ShowSaveError(error);
  }
  if (tab->Project->GivenFileName() != before) {
    if (saved)
      tab->Edits->Saved();
    tab->Edits->Renamed();
    FTabs.setTabToolTip(index, PathToQString(CanonicalPath(file)).toHtmlEscaped());
  }
  ShowModified();
  emit Changed();
  return saved;
}

bool TProjectTabs::SaveAll() {
  bool saved = true;
  for (int i = 0; i < FTabs.count(); ++i) {
    if (!FinishEditing(i) || IsModified(i))
      saved = Save(i) && saved;
  }
  return saved;
}

bool TProjectTabs::MayClose(int index) {
  if (!TabAt(index))
    return true;
  if (!FinishEditing(index))
    return false;
  if (!IsModified(index))
    return true;
  FTabs.setCurrentIndex(index);
  const TCloseAnswer answer = AskClose(NameOf(*TabAt(index)->Project), &FWindow);
  return answer == TCloseAnswer::Save ? Save(index) : answer == TCloseAnswer::Discard;
}

bool TProjectTabs::Close(int index) {
  if (!MayClose(index))
    return false;
  if (const TProjectTab* tab = TabAt(index))
    Shut(*tab->Project, /*dropEdits=*/true);
  emit Changed();
  return true;
}

void TProjectTabs::Leave(int index) {
  const TProjectTab* tab = TabAt(index);
  if (!tab)
    return;
  FinishEditing(index);
  Shut(*tab->Project, /*dropEdits=*/!IsModified(index));
  emit Changed();
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
    Shut(*FProjects.back().Project, /*dropEdits=*/true);
  emit Changed();
}

void TProjectTabs::Shut(const TOpenProject& project, bool dropEdits) {
  const auto found = std::ranges::find(FProjects, &project, &TProjectTab::Project);
  TOpenProject& open = *found->Project;
  if (dropEdits)
    found->Edits->Dropped();
  FProjects.erase(found); // with the edits, which listen to the project
  Guarded([&] { FSession.Close(open); });
}

void TProjectTabs::ShowModified() {
  for (const TProjectTab& tab : FProjects)
    FTabs.SetModified(FTabs.IndexOf(*tab.Controls), tab.Edits->IsModified());
}

} // namespace workbench
