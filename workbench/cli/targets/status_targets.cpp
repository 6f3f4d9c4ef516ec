#include "workbench/cli/targets/status_targets.h"

#include "package/host/api/file_columns.h"
#include "workbench/cli/targets/targets_run.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/cli/view/known_states.h"
#include "workbench/cli/view/list_json.h"
#include "workbench/cli/view/status_table.h"
#include "workbench/services/remote_profile_services.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace workbench {
namespace {

constexpr std::string_view RemoteStatus = "remoteStatus";
constexpr std::string_view LocalStatus = "localStatus";

// The words of the view.
struct TWords {
  std::string_view Here;
  std::string_view There;
};

TWords WordsOf(TTimeComparison here) {
  switch (here) {
  case TTimeComparison::Same:
    return {"Same", "Same"};
  case TTimeComparison::Older:
    return {"Older", "Newer"};
  case TTimeComparison::Newer:
    return {"Newer", "Older"};
  case TTimeComparison::NotFound:
    return {"Not Found", "Not Found"};
  default:
    return {"Unknown", "Unknown"};
  }
}

std::size_t ColumnOf(std::string_view key) {
  const auto& columns = deployment::FileColumns;
  return static_cast<std::size_t>(std::ranges::find(columns, key, &deployment::TFileColumn::Key) -
                                  columns.begin());
}

// What a target said.
struct TSeenTarget {
  std::vector<TTimeComparison> Times;
  TDeployReport Report;
};

class TTargetsStatusRun {
public:
  TTargetsStatusRun(TCommandContext& context, TOpenProject& project, const TTarget& target,
                    const TTargetsStatus& wanted)
      : FContext(context), FProject(project), FTarget(target), FWanted(wanted),
        FDeploys(context.Session.RemoteProfiles().Deploys()) {}

  int Run() {
    std::vector<TProfile> profiles =
        ChooseTargets(FContext, FProject, FWanted.Targets, FTarget.Platform);
    ReadRows();
    TTargetsRun run(FContext, std::move(profiles), FWanted.Targets.Hosts);
    run.OmitTable();
    std::vector<std::string> names;
    names.reserve(run.Profiles().size());
    for (const TProfile& profile : run.Profiles())
      names.push_back(Visible(profile.Name));
    TStatusTable table(FRows, std::move(names));
    std::vector<TSeenTarget> seen(run.Profiles().size());
    const auto ask = [&](std::size_t i) {
      seen[i] = Ask(run.Profiles()[i], run.Cancelled(), run.ObserverOf(i));
    };
    const auto tell = [&](std::size_t i, TCommandContext& part) {
      const TKnownTarget known = KnownTargetOf(run.Profiles()[i]);
      Tell(part, FWanted.Offline ? Recall(known) : Found(part, known, std::move(seen[i].Report)),
           RowsOf(std::exchange(seen[i].Times, {})), table, i);
      return static_cast<int>(exit_status::Done);
    };
    const int status =
        run.Run({FWanted.Offline ? nullptr : std::function<void(std::size_t)>(ask), tell});
    for (std::size_t i = 0; i < run.Profiles().size(); ++i) {
      if (run.ExitOf(i) != exit_status::Done)
        table.SetFailure(i, run.TextOf(i));
    }
    if (!FContext.Output.IsJson())
      table.Print(FContext.Output, FWanted.Differences);
    return status;
  }

private:
  // What is the same for all targets.
  void ReadRows() {
    const std::size_t told = FProject.Warnings().size();
    TDeploymentView view(FContext);
    view.Open(FProject, FTarget);
    if (!FWanted.SortKey.empty())
      view.Sort(FWanted.SortKey, FWanted.SortsDown);
    WarnOfNothingBuilt(FContext, FProject, FTarget);
    WarnSince(FContext, FProject, told);
    FRows = view.Rows();
    const deployment::TDeploymentTarget place{FTarget.Configuration, FTarget.Platform};
    FSubject = FDeploys.SubjectOf(FProject.Project(), place);
    FPairs = FDeploys.FilePairsOf(FProject.Project(), place);
  }

  TSeenTarget Ask(const TProfile& profile, const std::atomic<int>& cancelled,
                  IDeployObserver& observer) const {
    TSeenTarget seen;
    TSeenFiles files; // both ask about the same ones
    seen.Times = FDeploys.Compare(FPairs, profile, &cancelled, files);
    // A plan that is not carried out knows every state.
    seen.Report = FDeploys.Deploy(
        FSubject, profile,
        {.Options = {.DryRun = true, .SkipMissing = true}, .Cancelled = &cancelled, .Seen = &files},
        observer);
    CheckNotInterrupted(cancelled);
    return seen;
  }

  TKnownTarget KnownTargetOf(const TProfile& profile) const {
    return {FProject.GivenFileName(), FTarget.Platform, FTarget.Configuration,
            TDestination{.Profile = profile}.Text()};
  }

  static TTargetStatus Recall(const TKnownTarget& target) {
    TKnownStates known = ReadKnownStates(target);
    return TTargetStatus(std::move(known.Report), std::move(known.AsOf));
  }

  TTargetStatus Found(TCommandContext& part, const TKnownTarget& target,
                      TDeployReport report) const {
    if (report.End == TDeployEnd::NoConnection)
      throw TExitError(exit_status::NoConnection, report.Message);
    if (report.End == TDeployEnd::Done || report.End == TDeployEnd::Unexpected)
      KeepKnownStates(target, report);
    for (const std::string& warning : report.Warnings)
      part.Output.Warn({warning, FProject.GivenFileName().string(), 0});
    for (const std::string& problem : report.Problems)
      part.Output.Warn({problem, FProject.GivenFileName().string(), 0});
    return TTargetStatus(std::move(report));
  }

  // The rows with what the times say; as they are when nobody was asked.
  std::vector<TViewRow> RowsOf(const std::vector<TTimeComparison>& times) const {
    std::vector<TViewRow> rows = FRows;
    if (FWanted.Offline)
      return rows;
    std::unordered_map<std::string_view, TTimeComparison> known;
    for (std::size_t i = 0; i < times.size(); ++i)
      known[FPairs[i].LocalName] = times[i];
    for (TViewRow& row : rows) {
      const auto found = known.find(row.StoredName());
      const TWords words = WordsOf(found == known.end() ? TTimeComparison::Unknown : found->second);
      row.Texts[ColumnOf(LocalStatus)] = words.Here;
      row.Texts[ColumnOf(RemoteStatus)] = words.There;
    }
    if (FWanted.SortKey == RemoteStatus || FWanted.SortKey == LocalStatus) {
      const std::size_t column = ColumnOf(FWanted.SortKey);
      std::ranges::stable_sort(rows, [&](const TViewRow& left, const TViewRow& right) {
        return FWanted.SortsDown ? right.Texts[column] < left.Texts[column]
                                 : left.Texts[column] < right.Texts[column];
      });
    }
    return rows;
  }

  void Tell(TCommandContext& part, const TTargetStatus& status, const std::vector<TViewRow>& rows,
            TStatusTable& table, std::size_t target) const {
    if (part.Output.IsJson())
      part.Output.Document(ListJson({.Project = FProject.GivenFileName().string(),
                                     .Target = FTarget,
                                     .IsConnected = !FWanted.Offline,
                                     .HasAge = FWanted.Offline},
                                    rows, &status));
    else
      table.Set(target, FRows, status);
  }

  TCommandContext& FContext;
  TOpenProject& FProject;
  const TTarget& FTarget;
  const TTargetsStatus& FWanted;
  const TDeployService& FDeploys;
  std::vector<TViewRow> FRows;
  TDeploySubject FSubject;
  std::vector<TFilePair> FPairs;
};

} // namespace

int StatusOfTargets(TCommandContext& context, TOpenProject& project, const TTarget& target,
                    const TTargetsStatus& wanted) {
  return TTargetsStatusRun(context, project, target, wanted).Run();
}

} // namespace workbench
