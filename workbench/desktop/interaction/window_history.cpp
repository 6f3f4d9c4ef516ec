#include "workbench/desktop/interaction/window_history.h"

#include "package/host/api/view_buttons.h"
#include "workbench/desktop/controls/background_work.h"
#include "workbench/desktop/controls/form_controls.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/deploy/history_page.h"
#include "workbench/desktop/text/engine_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/session/session.h"
#include "workbench/text/visible_text.h"

#include <QAction>
#include <atomic>
#include <iterator>
#include <utility>

namespace workbench {
namespace {

// The page leaves its busy state whatever happens.
struct TShownWork {
  ~TShownWork() { Page.End(Summary); }
  THistoryPage& Page;
  QString Summary = {};
};

QString Sentence(const std::exception& error) {
  return EngineText(error.what()) + QLatin1Char('.');
}

void Add(TUndoReport next, TUndoReport& all) {
  all.End = next.End;
  all.Signal = next.Signal;
  all.Message = std::move(next.Message);
  all.Problems = std::move(next.Problems);
  std::move(next.Runs.begin(), next.Runs.end(), std::back_inserter(all.Runs));
  std::move(next.Rows.begin(), next.Rows.end(), std::back_inserter(all.Rows));
}

} // namespace

TWindowHistory::TWindowHistory(const TFrontList& front, TDeployPanel& panel,
                               TBackgroundWork& background, TSession& session)
    : FFront(front), FPanel(panel), FPage(panel.History()), FBackground(background),
      FSession(session) {
  connect(&FPanel, &TDeployPanel::HistoryShown, this, &TWindowHistory::Show);
  connect(&FPage, &THistoryPage::RunsWanted, this, [this] { Guarded([this] { Read(); }); });
  connect(&FPage, &THistoryPage::UndoWanted, this,
          [this](int steps) { Guarded([&] { Undo(steps); }); });
}

std::optional<TDeployKey> TWindowHistory::KeyInFront() const {
  const TOpenProject* project = FFront.Project();
  const TFormControls* controls = FFront.Controls();
  if (!project || !controls || !controls->TargetsComboBox())
    return std::nullopt;
  return TDeployKey{project->GivenFileName(),
                    {controls->TargetsComboBox()->GetSelectedConfiguration(),
                     controls->TargetsComboBox()->GetSelectedPlatform()}};
}

void TWindowHistory::Show() {
  FPanel.ShowHistory();
  Guarded([this] { Read(); });
  FPage.FocusRuns();
}

// The reason when there is no place that remembers deploys; else an empty text.
QString TWindowHistory::FindPlace(const TDeployKey& key) {
  FPlace.reset();
  TOpenProject* project = FFront.Project();
  if (!project || key.Target.Platform.empty())
    return tr("Choose a single platform: each has a history of its own.");
  try {
    TDestination destination =
        FSession.RemoteProfiles().Destinations().Find(project->Project(), key.Target);
    if (!destination.Profile || destination.Profile->Stateless)
      return tr("The target keeps no record of deploys.");
    TDeploySubject subject{.HasDeployment = true,
                           .Target = key.Target,
                           .RootName = project->Deployment().GetRemoteBaseDir(key.Target.Platform)};
    FPlace = TPlace{key, std::move(subject), *std::move(destination.Profile)};
  } catch (const TConnectionError& error) {
    return Sentence(error);
  }
  return {};
}

void TWindowHistory::Read() {
  const auto key = KeyInFront();
  if (!key || FPanel.IsRunning())
    return;
  FPage.ShowRuns({});
  std::atomic<int> cancelled = 0;
  TShownWork shown{FPage};
  FPage.Begin(*key, tr("Reading the record of the target…"), cancelled);
  shown.Summary = FindPlace(*key);
  if (!FPlace)
    return;
  shown.Summary = ReadRuns(cancelled);
}

// The reason when there is nothing to show; else an empty text.
QString TWindowHistory::ReadRuns(const std::atomic<int>& cancelled) {
  TRecordReading reading;
  try {
    FBackground.Run([&] {
      reading = FSession.RemoteProfiles().Deploys().ReadRecord(FPlace->Subject, FPlace->Profile,
                                                               &cancelled);
    });
  } catch (const TConnectionError& error) {
    return tr("No connection to %1: %2")
        .arg(ToQString(Visible(FPlace->Profile.Name)), Sentence(error));
  }
  const bool isEmpty = reading.Record.Runs.empty();
  FPage.ShowRuns(std::move(reading.Record.Runs));
  if (reading.State == TRecordState::Newer)
    return tr("The record on the target is of a newer version of this program.");
  if (reading.State == TRecordState::Damaged)
    return tr("The record on the target is damaged: %1.").arg(EngineText(reading.Problem));
  return isEmpty ? tr("The target remembers no deploys of this project yet.") : QString();
}

TUndoReport TWindowHistory::TakeBack(int steps, const std::atomic<int>& cancelled) {
  TUndoReport all;
  for (int step = 0; step < steps && cancelled == 0; ++step) {
    TUndoRequest request;
    request.Cancelled = &cancelled;
    request.Progress = [this](std::size_t done, std::size_t files) { FPage.Progress(done, files); };
    Add(FSession.RemoteProfiles().Deploys().Undo(FPlace->Subject, FPlace->Profile, request), all);
    if (all.End != TDeployEnd::Done)
      break;
  }
  return all;
}

void TWindowHistory::Undo(int steps) {
  if (!FPlace || FPanel.IsRunning())
    return;
  TUndoReport report;
  std::atomic<int> cancelled = 0;
  {
    TShownWork shown{FPage};
    FPage.Begin(FPlace->Key, tr("Taking back…"), cancelled);
    FBackground.Run([&] { report = TakeBack(steps, cancelled); });
    shown.Summary = UndoSummary(report);
    if (report.End != TDeployEnd::NoConnection) {
      cancelled = 0;
      const QString problem = ReadRuns(cancelled);
      shown.Summary += problem.isEmpty() ? QString() : QLatin1Char(' ') + problem;
    }
  }
  FPanel.Page().Withdraw();
  RefreshList();
}

// What the list says of the target is asked anew: its button, released and pressed, does that.
void TWindowHistory::RefreshList() {
  const TFormControls* controls = FFront.Controls();
  QAction* connect = controls && controls->ToolBar()
                         ? controls->ToolBar()->Find(deployment::view_button::Connect)
                         : nullptr;
  if (!connect || !connect->isChecked())
    return;
  connect->trigger();
  connect->trigger();
}

} // namespace workbench
