#include "workbench/desktop/deploy/deploy_flow.h"

#include "workbench/desktop/deploy/deploy_page.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/deploy/options_button.h"
#include "workbench/files/machine_path.h"

#include <algorithm>
#include <atomic>
#include <utility>

namespace workbench {
namespace {

bool HasConflicts(const TDeployReport& planned) {
  return std::ranges::any_of(planned.Rows, [](const TDeployRow& row) {
    return row.Action == TDeployAction::Refused || row.Action == TDeployAction::Failed;
  });
}

// The panel hears of the end also of a deploy that could not even begin.
struct TShownRun {
  ~TShownRun() {
    if (Page.IsRunning())
      Page.End(std::move(Report));
  }
  TDeployPage& Page;
  TDeployReport Report = {};
};

} // namespace

TDeployReport TDeployFlow::Deploy(const TDeployService& service, const TDeployRequest& request) {
  TDeployPage& page = FPanel.Page();
  const TDeployKey key{ToMachinePath(request.Project.GetProjectFileName()), request.Target};
  const bool isConfirmed = !FPlansOnly && page.isVisible() && page.IsConfirmed(key);
  bool isAsked = false; // the plan was made, and nobody said yes to it
  std::atomic<int> cancelled = 0;
  TDeployRequest completed = request;
  completed.Options = page.Options().Options();
  completed.Options.Undo = FTerms.UndoLimits();
  if (isConfirmed)
    completed.Options.Choices = page.Choices();
  completed.MayRun = FTerms.MayRun;
  completed.MaySend = FTerms.MaySend;
  if (page.Options().AllowsOutside())
    completed.MaySend = [](const auto&) { return true; };
  completed.Cancelled = &cancelled;
  completed.MayBegin = [&](const TDeployReport& planned) {
    if (cancelled != 0)
      return false;
    const bool begins = isConfirmed ? page.Rows().Confirms(planned.Rows)
                                    : !FPlansOnly && FTerms.GoesUnasked() && !HasConflicts(planned);
    isAsked = !begins;
    return begins;
  };
  TShownRun shown{page};
  page.Begin(key, cancelled);
  FPanel.ShowPage();
  shown.Report = service.Deploy(completed, page.Observer());
  if (isAsked && isConfirmed) {
    // The rows of this plan have the choices in them, which are to be seen as choices.
    completed.Options.Choices.clear();
    completed.MayBegin = [](const TDeployReport&) { return false; };
    shown.Report = service.Deploy(completed, page.Observer());
    isAsked = shown.Report.End == TDeployEnd::NotStarted;
  }
  // A plan that was made to its end all the same is not what was asked for any more.
  if (cancelled != 0 && !isAsked && shown.Report.End == TDeployEnd::NotStarted) {
    shown.Report.End = TDeployEnd::Interrupted;
    shown.Report.Signal = cancelled;
    shown.Report.Rows.clear();
  }
  TDeployReport told;
  told.End = shown.Report.End;
  told.Signal = shown.Report.Signal;
  told.Message = shown.Report.Message;
  told.WasCarriedOut = shown.Report.WasCarriedOut;
  if (isAsked)
    page.ShowPlan(std::move(shown.Report), isConfirmed);
  return told;
}

} // namespace workbench
