#include "workbench/deploy/deploy_run.h"

#include "workbench/deploy/deploy_executor.h"
#include "workbench/deploy/held_target.h"
#include "workbench/deploy/plan/plan_check.h"
#include "workbench/deploy/record_keeper.h"
#include "workbench/deploy/revision.h"
#include "workbench/deploy/shared_work.h"
#include "workbench/files/runtime_directory.h"
#include "workbench/files/user_name.h"

#include <algorithm>
#include <ctime>
#include <exception>
#include <utility>

namespace workbench {
namespace {

const std::atomic<int> NeverCancelled = 0;

TRecordedRun NewRun(const std::filesystem::path& projectFile, TSharedWork* shared) {
  const std::filesystem::path directory = projectFile.parent_path();
  const std::string now = UtcText(std::time(nullptr));
  std::string id = now.substr(0, now.size() - 1) + "-" + RandomDigits(1).substr(0, 6);
  std::erase(id, ':');
  return {.Id = std::move(id),
          .At = now,
          .By = UserName(),
          .Machine = MachineName(),
          .Revision = shared ? shared->Revision(directory) : RevisionOf(directory),
          .Tool = std::string("deployment-manager ") + DEPLOYMENT_VERSION};
}

} // namespace

TDeployRun::TDeployRun(TRunTerms terms, TRunFacts facts, IDeployObserver& observer,
                       TDeployReport& report)
    : FTerms(std::move(terms)), FFacts(std::move(facts)), FObserver(observer), FReport(report),
      FCancelled(FTerms.Cancelled ? *FTerms.Cancelled : NeverCancelled),
      FConnect([this] { return FFacts.Destinations.Connect(FFacts.Destination, &FCancelled); }) {}

// A lock on a connection that broke goes stale.
TDeployRun::~TDeployRun() {
  try {
    if (FLock && FConnection)
      FLock->Release(*FConnection);
  } catch (const std::exception&) {
    FConnection = nullptr;
  }
}

void TDeployRun::Run() {
  try {
    FTerms.Background([this] {
      FFacts.Given ? TakePlan() : MakePlan();
      Describe();
    });
    if (!MayExecute())
      return;
    FObserver.Planned(FReport.Rows);
    FTerms.Background([this] { Execute(); });
    FReport.WasCarriedOut = true;
    FReport.Signal = FCancelled;
    FReport.End = End();
  } catch (const THeldTarget& held) {
    FReport.End = held.End;
    FReport.Problems = held.Reasons;
  }
}

TPlanOptions TDeployRun::PlanOptions() const {
  const TDeployOptions& wanted = FTerms.Options;
  return {
      .Force = wanted.Force,
      .Checksum = wanted.Checksum,
      .SkipMissing = wanted.SkipMissing,
      .OverwriteChanged = wanted.OverwriteChanged,
      .Prune = wanted.Prune,
      .HashAll = wanted.HashAll,
      .AfterDeploy = FFacts.Destination.Profile ? FFacts.Destination.Profile->AfterDeploy : "",
      .Choices = wanted.Choices,
      .KeepLinks = FFacts.Destination.Profile.has_value(),
      .SourceRoots = FFacts.SourceRoots,
      .RootName = FFacts.Destination.Profile ? FFacts.RootName : "",
      .Places = FFacts.Destinations.RulesOf(FFacts.Destination, FFacts.Target.Platform),
      .Target = FFacts.Target,
      .Cancelled = &FCancelled,
      .Seen = wanted.DryRun ? FTerms.Seen : nullptr,
  };
}

void TDeployRun::MakePlan() {
  FPlan = MakeDeployPlan(
      std::move(FFacts.Files), PlanOptions(),
      [this]() -> IRemoteConnection& {
        FConnection = FConnect();
        BeginRecord();
        return *FConnection;
      },
      [this]() -> const TTargetRecord& { return TakeRecord(); });
}

// A plan that was made earlier is carried out as it stands, or not at all.
void TDeployRun::TakePlan() {
  FPlan = std::move(FFacts.Given->Plan);
  std::vector<std::string> causes = CheckLocalFiles(FPlan, &FCancelled);
  FConnection = FConnect();
  BeginRecord();
  const TTargetRecord& record = TakeRecord();
  const std::vector<std::string> there =
      CheckTargetFiles(*FConnection, record, PlanOptions().Places, FPlan);
  causes.insert(causes.end(), there.begin(), there.end());
  if (!causes.empty())
    throw THeldTarget{TDeployEnd::Unexpected, std::move(causes)};
}

TPlanFile TDeployRun::PlanFile() const {
  return {.Bound = FFacts.Destinations.BindingOf(FFacts.Destination, FCancelled),
          .ProjectFile = FFacts.ProjectFile,
          .RootName = FFacts.RootName,
          .Target = FFacts.Target,
          .Plan = FPlan,
          .BreakLock = FTerms.Options.BreakLock,
          .NoUndo = FTerms.Options.NoUndo,
          .Compress = FTerms.Options.Compress,
          .Jobs = FTerms.Options.Jobs};
}

// What the plan says, for whoever shows it.
void TDeployRun::Describe() {
  FReport.Rows = RowsOf(FPlan);
  FReport.Problems = FPlan.Problems;
  FReport.Commands = FPlan.Commands;
  FReport.Outside = FPlan.Outside;
  FReport.AfterDeploy = FPlan.AfterDeploy;
  FReport.LeftOvers = FPlan.LeftOvers;
  FReport.Warnings.insert(FReport.Warnings.end(), FPlan.Warnings.begin(), FPlan.Warnings.end());
  FReport.Planned = PlannedCommandsOf(FPlan);
  if (!FReading.Record.Runs.empty())
    FReport.LastRun = FReading.Record.Runs.front();
  CollectOwed(FReading.Record);
}

void TDeployRun::CollectOwed(const TTargetRecord& record) {
  FReport.Owed.clear();
  for (const auto& [path, steps] : record.Owed) {
    const std::string name = path.substr(path.find_last_of('/') + 1);
    for (const std::string& step : steps)
      FReport.Owed.push_back({path, OwedText(step, name)});
  }
  if (!record.OwedAfterDeploy.empty())
    FReport.Owed.push_back({{}, record.OwedAfterDeploy});
}

bool TDeployRun::MayExecute() {
  const std::string place = FFacts.Destination.Text();
  if (!FReport.Problems.empty())
    FReport.End = TDeployEnd::Refused;
  else if (FTerms.Options.DryRun)
    FReport.End = End();
  else if (FTerms.MayBegin && !FTerms.MayBegin(FReport))
    FReport.End = TDeployEnd::NotStarted;
  else if (!FPlan.Commands.empty() && !(FTerms.MayRun && FTerms.MayRun(FPlan.Commands, place)))
    FReport.End = TDeployEnd::NoConsent;
  else if (!FPlan.Outside.empty() && !(FTerms.MaySend && FTerms.MaySend(FPlan.Outside)))
    FReport.End = TDeployEnd::NoSourceConsent;
  else
    return true;
  return false;
}

void TDeployRun::Execute() {
  TDeployExecution execution{
      .Connection = *FConnection,
      .Connect = FConnect,
      .Directory = FFacts.ProjectFile.parent_path(),
      .Jobs = FTerms.Options.Jobs,
      .Observer = FObserver,
      .Cancelled = FCancelled,
      .Target = FFacts.Target,
      .Places = FFacts.Destinations.RulesOf(FFacts.Destination, FFacts.Target.Platform),
      .Shared = FTerms.Shared};
  if (!FStore || !HasWork() || !Lock()) {
    ExecuteDeployPlan(FPlan, execution, FReport);
    RunAfterDeploy();
    return;
  }
  const TRecordedRun run = NewRun(FFacts.ProjectFile, FTerms.Shared);
  KeepBefore(run);
  // There may be a hundred thousand files in it: it is handed on, not copied.
  TTargetRecord record = std::move(FReading.Record);
  const std::string project = FFacts.ProjectFile.stem().string();
  const deployment::TDeploymentTarget& target = FFacts.Target;
  const bool isWritten = record.Project == project && record.Platform == target.Platform &&
                         record.Configuration == target.Configuration;
  record.Project = project;
  record.Platform = target.Platform;
  record.Configuration = target.Configuration;
  TRecordKeeper keeper(*FStore, *FLock, std::move(record), isWritten, run, FConnect);
  execution.Keeper = &keeper;
  if (!FPlan.AfterDeploy.empty())
    keeper.OweAfterDeploy(FPlan.AfterDeploy);
  ExecuteDeployPlan(FPlan, execution, FReport);
  FPlan.Files = {}; // the rows say what came of them; the record needs the room
  try {
    if (RunAfterDeploy())
      keeper.OweAfterDeploy({});
    const std::string problem = keeper.End(*FConnection, FCancelled != 0);
    if (!problem.empty())
      FReport.Warnings.push_back("the target cannot remember this deploy: " + problem);
    FLock->Release(*FConnection);
  } catch (const TConnectionError&) {
    // The report says already that the connection broke.
    FReport.Warnings.push_back("the target cannot remember the end of this deploy");
  }
  const TTargetRecord& left = keeper.Record();
  CollectOwed(left);
  if (!left.Runs.empty())
    FReport.LastRun = left.Runs.front();
}

// True when it is not owed any more. All files have to be in place.
bool TDeployRun::RunAfterDeploy() {
  if (FPlan.AfterDeploy.empty())
    return false;
  const std::string text = "the command after the deploy, \"" + FPlan.AfterDeploy + "\", ";
  const auto failed = [](const TDeployRow& row) { return row.Action == TDeployAction::Failed; };
  if (FCancelled != 0 || !FReport.Message.empty() || std::ranges::any_of(FReport.Rows, failed)) {
    FReport.AfterDeployProblem = text + "was not run, since not all files are in place";
    return false;
  }
  try {
    const std::string problem = FConnection->RunCommand(
        FPlan.AfterDeploy, FConnection->Root(),
        [this](std::string_view line) { FObserver.CommandSaid(std::string(line)); }, FCancelled);
    FReport.AfterDeployProblem = problem.empty() ? problem : text + problem;
  } catch (const TConnectionError& error) {
    FReport.AfterDeployProblem = text + "was not run to its end: " + error.what();
  }
  return FReport.AfterDeployProblem.empty();
}

TDeployEnd TDeployRun::End() const {
  const auto has = [this](TDeployAction action) {
    return std::ranges::any_of(FReport.Rows,
                               [action](const TDeployRow& row) { return row.Action == action; });
  };
  if (FReport.Signal != 0)
    return TDeployEnd::Interrupted;
  if (has(TDeployAction::Refused))
    return TDeployEnd::Unexpected;
  return has(TDeployAction::Failed) || !FReport.AfterDeployProblem.empty() ? TDeployEnd::Failed
                                                                           : TDeployEnd::Done;
}

} // namespace workbench
