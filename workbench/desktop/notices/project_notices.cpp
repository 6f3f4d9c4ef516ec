#include "workbench/desktop/notices/project_notices.h"

#include "package/host/api/view_buttons.h"
#include "workbench/desktop/notices/difference_dialog.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/desktop/projects/project_tabs.h"
#include "workbench/explain/change_reasons.h"
#include "workbench/session/session.h"
#include "workbench/settings/settings_store.h"

#include <QStringList>
#include <algorithm>

namespace workbench {
namespace {

constexpr const char* ReconcileSubject = "reconcile";
constexpr const char* UpgradeSubject = "upgrade";
constexpr const char* FeaturesSubject = "features";
// Projects for which the person said no; the project itself keeps nothing of it.
constexpr const char* DeclinedHistory = "declined-optional-files";

// "3 added, 1 removed"
QString CountsOf(const TTargetChanges& changes) {
  QStringList counts;
  if (!changes.Added.empty())
    counts += TProjectNotices::tr("%n added", nullptr, static_cast<int>(changes.Added.size()));
  if (!changes.Modified.empty())
    counts += TProjectNotices::tr("%n changed", nullptr, static_cast<int>(changes.Modified.size()));
  if (!changes.Removed.empty())
    counts += TProjectNotices::tr("%n removed", nullptr, static_cast<int>(changes.Removed.size()));
  return counts.join(QStringLiteral(", "));
}

std::string NameInHistory(const TOpenProject& project) {
  return CanonicalPath(project.GivenFileName()).string();
}

QString UndoText() {
  return TProjectNotices::tr("&Undo");
}

} // namespace

TProjectNotices::TProjectNotices(TProjectTabs& projects, TSettings& settings, QWidget& window)
    : QObject(&window), FProjects(projects), FSettings(settings), FWindow(window) {
  connect(&projects, &TProjectTabs::Opened, this,
          [this](TOpenProject* project) { Opened(*project); });
  connect(&projects, &TProjectTabs::Reconciled, this,
          [this](TOpenProject* project, const TReconciled& done) { Reconciled(*project, done); });
  connect(&projects, &TProjectTabs::FeaturesOffered, this,
          [this](TOpenProject* project, const QStringList& titles) {
            FeaturesOffered(*project, titles);
          });
}

TProjectNotices::TShown* TProjectNotices::Find(const TOpenProject& project) {
  std::erase_if(FShown, [](const TShown& shown) { return !shown.Box; });
  const auto found = std::ranges::find(FShown, &project, &TShown::Project);
  return found == FShown.end() ? nullptr : &*found;
}

TNoticeBox* TProjectNotices::BoxOf(const TOpenProject& project) const {
  const TShown* shown = const_cast<TProjectNotices*>(this)->Find(project);
  return shown ? shown->Box.data() : nullptr;
}

void TProjectNotices::Opened(TOpenProject& project) {
  TFormControls* controls = FProjects.ControlsOf(project);
  if (!controls)
    return;
  auto* box = new TNoticeBox(controls->Page());
  controls->AddAboveRows(box);
  FShown.push_back({&project, box});
  if (project.WasUpgraded())
    box->Show(UpgradeSubject,
              {tr("The file holds a list of an older version. It is shown as one of today's; the "
                  "next save writes it so."),
               {}});
}

void TProjectNotices::Reconciled(TOpenProject& project, const TReconciled& done) {
  TShown* shown = Find(project);
  if (!shown)
    return;
  shown->Step = 0;
  const QString counts = CountsOf(done.Changes);
  if (counts.isEmpty())
    return shown->Box->Remove(ReconcileSubject);
  shown->Step = done.Step;
  shown->Box->Show(
      ReconcileSubject,
      {tr("Reconciled for %1: %2").arg(done.Target, counts),
       {{tr("&Show"), [this, &project, done] { ShowDifference(project, done); }},
        {UndoText(), [this, &project, step = done.Step] { FProjects.UndoStep(project, step); }}}});
  Update();
}

void TProjectNotices::FeaturesOffered(TOpenProject& project, const QStringList& titles) {
  TShown* shown = Find(project);
  const std::vector<std::string> declined = FSettings.ReadHistory(DeclinedHistory);
  if (!shown || std::ranges::find(declined, NameInHistory(project)) != declined.end())
    return;
  shown->Box->Show(FeaturesSubject,
                   {tr("Optional files of the installation fit this project: %1. They are left "
                       "out unless you choose some.")
                        .arg(titles.join(QStringLiteral(", "))),
                    {{tr("&Choose…"), [this, &project] { ChooseFeatures(project); }},
                     {tr("&Not Now"), [this, &project] { DeclineFeatures(project); }}}});
}

// The command asks for the files of all features, so that afterwards nothing is left to be asked.
void TProjectNotices::ChooseFeatures(TOpenProject& project) {
  const TFormControls* controls = FProjects.ControlsOf(project);
  QAction* add =
      controls ? controls->ToolBar()->Find(deployment::view_button::AddFeature) : nullptr;
  if (!add || !add->isEnabled())
    return;
  DeclineFeatures(project);
  add->trigger();
}

void TProjectNotices::DeclineFeatures(const TOpenProject& project) {
  FSettings.AddToHistory(DeclinedHistory, NameInHistory(project));
  if (TNoticeBox* box = BoxOf(project))
    box->Remove(FeaturesSubject);
}

void TProjectNotices::ShowDifference(TOpenProject& project, const TReconciled& done) {
  const auto reasons = FProjects.ReasonsOf(project);
  if (!reasons)
    return;
  TDifferenceDialog(tr("Reconciled for %1").arg(done.Target),
                    DifferenceRows(done.Changes, *reasons), &FWindow)
      .exec();
}

void TProjectNotices::Update() {
  for (TShown& shown : FShown) {
    if (!shown.Box || shown.Step == 0)
      continue;
    const TProjectEdits* edits = FProjects.EditsOf(*shown.Project);
    TNoticeStrip* strip = shown.Box->Find(ReconcileSubject);
    if (!edits || !strip || !edits->History().IsDone(shown.Step)) {
      shown.Step = 0;
      shown.Box->Remove(ReconcileSubject);
    } else if (edits->History().LastStep() == shown.Step) {
      strip->SetWhyNot(UndoText(), {});
    } else {
      strip->SetWhyNot(UndoText(), tr("Other steps were done since; undo them first."));
    }
  }
}

} // namespace workbench
