#include "workbench/deploy/deploy_run.h"

#include "workbench/deploy/deploy_executor.h"
#include "workbench/deploy/record_keeper.h"
#include "workbench/deploy/revision.h"
#include "workbench/files/runtime_directory.h"
#include "workbench/files/user_name.h"

#include <algorithm>
#include <array>
#include <ctime>
#include <stdexcept>
#include <utility>

namespace workbench {
namespace {

const std::atomic<int> NeverCancelled = 0;

// Why the target is left alone before anything was planned.
struct THeldTarget {
  TDeployEnd End;
  std::string Reason;
};

std::string TimeText(std::time_t time) {
  std::tm parts{};
  std::array<char, 32> text{};
  ::gmtime_r(&time, &parts);
  std::strftime(text.data(), text.size(), "%Y-%m-%dT%H:%M:%SZ", &parts);
  return text.data();
}

TRecordedRun NewRun(const std::filesystem::path& projectFile) {
  const std::string now = TimeText(std::time(nullptr));
  std::string id = now.substr(0, now.size() - 1) + "-" + RandomDigits(1).substr(0, 6);
  std::erase(id, ':');
  return {.Id = std::move(id),
          .At = now,
          .By = UserName(),
          .Machine = MachineName(),
          .Revision = RevisionOf(projectFile.parent_path()),
          .Tool = std::string("deployment-manager ") + DEPLOYMENT_VERSION};
}

} // namespace

TDeployRun::TDeployRun(const TDeployRequest& request, TRunFacts facts, IDeployObserver& observer,
                       TDeployReport& report)
    : FRequest(request), FFacts(std::move(facts)), FObserver(observer), FReport(report),
      FCancelled(request.Cancelled ? *request.Cancelled : NeverCancelled),
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
    FRequest.Background([this] { MakePlan(); });
    Describe();
    if (!MayExecute())
      return;
    FObserver.Planned(FReport.Rows);
    FRequest.Background([this] { Execute(); });
    FReport.Signal = FCancelled;
    FReport.End = End();
  } catch (const THeldTarget& held) {
    FReport.End = held.End;
    FReport.Problems = {held.Reason};
  }
}

bool TDeployRun::IsRecorded() const {
  return FFacts.Destination.Profile && !FFacts.Destination.Profile->Stateless;
}

void TDeployRun::MakePlan() {
  const TDeployOptions& wanted = FRequest.Options;
  const TPlanOptions options{
      .Force = wanted.Force,
      .Checksum = wanted.Checksum,
      .SkipMissing = wanted.SkipMissing,
      .OverwriteChanged = wanted.OverwriteChanged,
      .Prune = wanted.Prune,
      .KeepLinks = FFacts.Destination.Profile.has_value(),
      .Places = FFacts.Destinations.RulesOf(FFacts.Destination, FRequest.Target.Platform),
      .Target = FRequest.Target,
  };
  FPlan = MakeDeployPlan(
      std::move(FFacts.Files), options,
      [this]() -> IRemoteConnection& {
        FConnection = FConnect();
        return *FConnection;
      },
      [this] { return ReadRecord(); });
}

TTargetRecord TDeployRun::ReadRecord() {
  if (!IsRecorded())
    return {};
  FStore.emplace(*FConnection, FFacts.RootName);
  FLock.emplace(FStore->Directory());
  if (!FStore->Problem().empty()) {
    FReport.Warnings.push_back("the target cannot remember deploys: " + FStore->Problem());
    FStore.reset();
    return {};
  }
  if (!FRequest.Options.DryRun && !FRequest.Options.BreakLock) {
    if (const auto holder = FLock->Holder(*FConnection))
      throw THeldTarget{TDeployEnd::Refused, "somebody else deploys there: " + holder->Text() +
                                                 "; --break-lock goes on all the same"};
  }
  FReading = FStore->Read(*FConnection);
  if (FReading.State == TRecordState::Newer)
    throw THeldTarget{TDeployEnd::Unexpected,
                      "the record on the target is of a newer version of this program"};
  if (FReading.State == TRecordState::Damaged)
    FReport.Warnings.push_back("the record on the target is damaged and counts as none: " +
                               FReading.Problem);
  return FReading.Record;
}

// What the plan says, for whoever shows it.
void TDeployRun::Describe() {
  FReport.Rows = RowsOf(FPlan);
  FReport.Problems = FPlan.Problems;
  FReport.Commands = FPlan.Commands;
  FReport.LeftOvers = FPlan.LeftOvers;
  FReport.Warnings.insert(FReport.Warnings.end(), FPlan.Warnings.begin(), FPlan.Warnings.end());
  for (const TPlannedFile& file : FPlan.Files) {
    if (file.Action != TDeployAction::Copied)
      continue;
    for (const std::string& command : file.File.LocalCommands)
      FReport.Planned.push_back({true, command, file.RemoteFile()});
  }
  for (const TPlannedFile& file : FPlan.Files) {
    for (const TAfterStep& step : file.Steps)
      FReport.Planned.push_back({false, step.Text(file.Target.Name), file.RemoteFile()});
  }
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
}

bool TDeployRun::MayExecute() {
  const std::string place = FFacts.Destination.Text();
  if (!FReport.Problems.empty())
    FReport.End = TDeployEnd::Refused;
  else if (FRequest.Options.DryRun)
    FReport.End = End();
  else if (!FPlan.Commands.empty() && !(FRequest.MayRun && FRequest.MayRun(FPlan.Commands, place)))
    FReport.End = TDeployEnd::NoConsent;
  else
    return true;
  return false;
}

// False when the target and its record are what they should be, so that nothing has to be locked.
bool TDeployRun::HasWork() const {
  const auto isRecorded = [this](const TPlannedFile& file) {
    const auto found = FReading.Record.Files.find(file.RecordPath);
    const auto time = std::chrono::floor<std::chrono::seconds>(file.Local.Time);
    return file.RecordPath.empty() || file.State != TFileState::Same ||
           (found != FReading.Record.Files.end() && found->second.Size == file.Local.Size &&
            found->second.Time == std::max<std::int64_t>(time.time_since_epoch().count(), 0) &&
            found->second.Mode == file.Mode && found->second.Link == file.Link &&
            found->second.Class == file.File.Class &&
            found->second.LocalName == file.File.LocalName &&
            found->second.Platform == FRequest.Target.Platform &&
            found->second.Configuration == FRequest.Target.Configuration);
  };
  const auto needsWork = [&](const TPlannedFile& file) {
    return file.Action == TDeployAction::Copied || file.Action == TDeployAction::Removed ||
           file.Action == TDeployAction::Mode || !file.Steps.empty() || file.TimeDiffers ||
           (file.Action == TDeployAction::Unchanged && !isRecorded(file));
  };
  return !FPlan.Forgotten.empty() || FReading.State == TRecordState::Damaged ||
         std::ranges::any_of(FPlan.Files, needsWork);
}

// False where the target cannot remember; the deploy goes on without.
bool TDeployRun::Lock() {
  const auto forget = [this](const std::string& reason) {
    FReport.Warnings.push_back("the target cannot remember this deploy: " + reason);
    return false;
  };
  if (const std::string problem = FStore->MakeDirectory(*FConnection); !problem.empty())
    return forget(problem);
  try {
    const auto holder = FLock->Take(*FConnection, ThisHolder(TimeText(std::time(nullptr))),
                                    FRequest.Options.BreakLock);
    if (holder)
      throw THeldTarget{TDeployEnd::Refused, "somebody else deploys there: " + holder->Text() +
                                                 "; --break-lock goes on all the same"};
  } catch (const TConnectionError&) {
    throw;
  } catch (const std::runtime_error& error) {
    return forget(error.what());
  }
  const TRecordReading now = FStore->Read(*FConnection);
  if (now.State != FReading.State || now.Record != FReading.Record)
    throw THeldTarget{TDeployEnd::Refused, "somebody else deployed there meanwhile; deploy again"};
  if (now.State == TRecordState::Damaged) {
    if (const std::string problem = FStore->SetAside(*FConnection); !problem.empty())
      return forget(problem);
  }
  return true;
}

void TDeployRun::Execute() {
  TDeployExecution execution{
      .Connection = *FConnection,
      .Connect = FConnect,
      .Directory = FFacts.ProjectFile.parent_path(),
      .Jobs = FRequest.Options.Jobs,
      .Observer = FObserver,
      .Cancelled = FCancelled,
      .Target = FRequest.Target,
      .Places = FFacts.Destinations.RulesOf(FFacts.Destination, FRequest.Target.Platform)};
  if (!FStore || !HasWork() || !Lock())
    return ExecuteDeployPlan(FPlan, execution, FReport);
  TTargetRecord record = FReading.Record;
  record.Project = FFacts.ProjectFile.stem().string();
  record.Platform = FRequest.Target.Platform;
  record.Configuration = FRequest.Target.Configuration;
  TRecordKeeper keeper(*FStore, *FLock, FReading.Record, record, NewRun(FFacts.ProjectFile),
                       FConnect);
  execution.Keeper = &keeper;
  ExecuteDeployPlan(FPlan, execution, FReport);
  try {
    const std::string problem = keeper.End(*FConnection, FCancelled != 0);
    if (!problem.empty())
      FReport.Warnings.push_back("the target cannot remember this deploy: " + problem);
    FLock->Release(*FConnection);
  } catch (const TConnectionError&) {
    // The report says already that the connection broke.
    FReport.Warnings.push_back("the target cannot remember the end of this deploy");
  }
  CollectOwed(keeper.Record());
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
  return has(TDeployAction::Failed) ? TDeployEnd::Failed : TDeployEnd::Done;
}

} // namespace workbench
