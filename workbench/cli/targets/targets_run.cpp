#include "workbench/cli/targets/targets_run.h"

#include "workbench/cli/context/failure_report.h"
#include "workbench/deploy/parallel_runs.h"
#include "workbench/remote/target/remote_connection.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/text/utf8.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

constexpr int FirstSignal = 128; // exit statuses of signals, from this one on

std::size_t WidthOf(const std::vector<std::string>& names) {
  std::size_t width = 0;
  for (const std::string& name : names)
    width = std::max(width, CodePointCount(name));
  return width;
}

std::string Filled(const std::string& text, std::size_t width) {
  return text + std::string(width - std::min(width, CodePointCount(text)), ' ');
}

// Closes what is open to a target, however its work ends.
struct TLeaving {
  const TDestinations* Destinations; // null: it stays open
  const TProfile& Profile;
  ~TLeaving() {
    if (Destinations)
      Destinations->Leave(Profile);
  }
};

} // namespace

void CheckNotInterrupted(const std::atomic<int>& cancelled) {
  if (const int signal = cancelled)
    throw TExitError(FirstSignal + signal, "the run was interrupted");
}

std::vector<std::string> TTargetsRun::NamesOf(const TCommandContext& context,
                                              const std::vector<TProfile>& profiles) {
  std::vector<std::string> names;
  names.reserve(profiles.size());
  for (const TProfile& profile : profiles)
    names.push_back((context.PartName.empty() ? "" : context.PartName + "  ") +
                    Visible(profile.Name));
  return names;
}

TTargetsRun::TTargetsRun(TCommandContext& context, std::vector<TProfile> profiles, unsigned hosts)
    : FContext(context), FProfiles(std::move(profiles)), FNames(NamesOf(context, FProfiles)),
      FHosts(hosts), FWatch(FCancelled), FProgress(context.Output, FNames),
      FOutcomes(FProfiles.size()) {}

// Where a person can be asked, all machines are reached before the first file is sent. Others are
// connected to, asking nobody, while the answer to one is waited for.
std::vector<std::string> TTargetsRun::Settle() {
  std::vector<std::string> problems(FProfiles.size());
  std::vector<std::size_t> far;
  for (std::size_t i = 0; i < FProfiles.size(); ++i) {
    if (FProfiles[i].Kind == TProfileKind::Ssh)
      far.push_back(i);
  }
  if (!FContext.Output.CanAsk())
    return problems;
  const TDestinations& destinations = FContext.Session.RemoteProfiles().Destinations();
  std::size_t prepared = 0;
  for (std::size_t i = 0; i < far.size() && FCancelled == 0; ++i) {
    for (; prepared < std::min<std::size_t>(far.size(), i + FHosts); ++prepared)
      destinations.Prepare(FProfiles[far[prepared]]);
    try {
      destinations.Connect({.Profile = FProfiles[far[i]]}, &FCancelled);
    } catch (const TConnectionError& error) {
      problems[far[i]] = error.what();
    }
  }
  return problems;
}

TTargetsRun::TOutcome TTargetsRun::OutcomeOf(std::size_t target,
                                             const std::function<int(TCommandContext&)>& tell) {
  FProgress.Clear();
  TOutput output(FContext.Output, FNames[target], WidthOf(FNames));
  TCommandContext part{FContext.Options, FContext.Session, output, FContext.Interaction,
                       FNames[target]};
  TOutcome outcome;
  outcome.Exit = Reported(output, [&]() -> int {
    try {
      return tell(part);
    } catch (const TConnectionError& error) {
      CheckNotInterrupted(FCancelled);
      throw TExitError(exit_status::NoConnection, error.what());
    }
  });
  outcome.Document = output.TakeDocument();
  outcome.Text = output.LastSaid();
  return outcome;
}

int TTargetsRun::Run(const TTargetsWork& work) {
  std::vector<bool> isTold(FProfiles.size(), false);
  const auto take = [&](std::size_t target, const std::function<int(TCommandContext&)>& tell) {
    isTold[target] = true;
    FOutcomes[target] = OutcomeOf(target, tell);
  };
  const std::vector<std::string> problems =
      work.Do ? Settle() : std::vector<std::string>(FProfiles.size());
  const TDestinations& destinations = FContext.Session.RemoteProfiles().Destinations();
  // Projects of a solution go to the same places, one after the other.
  const bool leaves = FContext.PartName.empty() || FProfiles.size() > FHosts;
  if (work.Do)
    RunParallel({.Count = FProfiles.size(),
                 .AtOnce = FHosts,
                 .Work =
                     [&](std::size_t target) {
                       FProgress.Begin(target);
                       const TLeaving leaving{leaves ? &destinations : nullptr, FProfiles[target]};
                       if (problems[target].empty())
                         work.Do(target);
                     },
                 .Ended =
                     [&](std::size_t target, const std::exception_ptr& error) {
                       FProgress.End(target);
                       take(target, [&](TCommandContext& part) {
                         if (error)
                           std::rethrow_exception(error);
                         if (!problems[target].empty())
                           throw TConnectionError(problems[target]);
                         return work.Tell(target, part);
                       });
                     },
                 .Meanwhile = [this] { FProgress.Draw(); },
                 .Cancelled = FCancelled});
  int status = exit_status::Done;
  for (std::size_t i = 0; i < FProfiles.size(); ++i) {
    if (!isTold[i])
      take(i, [&](TCommandContext& part) {
        if (!work.Do)
          return work.Tell(i, part);
        throw TExitError(FirstSignal + FCancelled,
                         "the run was interrupted before this target was begun");
      });
    status = std::max(status, FOutcomes[i].Exit);
  }
  Print();
  return status;
}

void TTargetsRun::Print() const {
  if (FContext.Output.IsJson()) {
    TJson targets = TJson::Array();
    for (std::size_t i = 0; i < FProfiles.size(); ++i)
      targets.Append({{"profile", FProfiles[i].Name},
                      {"exit", FOutcomes[i].Exit},
                      {"document", FOutcomes[i].Document}});
    FContext.Output.Document({{"targets", std::move(targets)}});
    return;
  }
  if (!FHasTable)
    return;
  constexpr std::string_view Title = "target";
  std::size_t width = Title.size();
  for (const TProfile& profile : FProfiles)
    width = std::max(width, CodePointCount(Visible(profile.Name)));
  FContext.Output.Line(FContext.Output.Bold(Filled(std::string(Title), width) + "  exit  result"));
  for (std::size_t i = 0; i < FProfiles.size(); ++i)
    FContext.Output.Line(Filled(Visible(FProfiles[i].Name), width) + "  " +
                         Filled(std::to_string(FOutcomes[i].Exit), 4) + "  " + FOutcomes[i].Text);
}

} // namespace workbench
