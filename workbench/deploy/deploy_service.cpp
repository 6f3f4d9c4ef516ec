#include "workbench/deploy/deploy_service.h"

#include "workbench/deploy/deploy_executor.h"
#include "workbench/files/machine_path.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

const std::atomic<int> NeverCancelled = 0;

TDeployEnd EndOf(const TDeployReport& report) {
  if (report.Signal != 0)
    return TDeployEnd::Interrupted;
  const bool hasFailed = std::ranges::any_of(
      report.Rows, [](const TDeployRow& row) { return row.Action == TDeployAction::Failed; });
  return hasFailed ? TDeployEnd::Failed : TDeployEnd::Done;
}

} // namespace

TDeployReport TDeployService::Deploy(const TDeployRequest& request,
                                     IDeployObserver& observer) const {
  TDeployReport report;
  const std::atomic<int>& cancelled = request.Cancelled ? *request.Cancelled : NeverCancelled;
  try {
    Run(request, FDestinations.Find(request.Project, request.Target), observer, report);
  } catch (const TConnectionError& error) {
    report.Signal = cancelled;
    report.End = report.Signal != 0 ? TDeployEnd::Interrupted : TDeployEnd::NoConnection;
    report.Message = error.what();
  }
  return report;
}

void TDeployService::Run(const TDeployRequest& request, const TDestination& destination,
                         IDeployObserver& observer, TDeployReport& report) const {
  auto* deployment = request.Project.GetProjectDeployment();
  if (!deployment) {
    report.End = TDeployEnd::Done;
    return;
  }
  const std::atomic<int>& cancelled = request.Cancelled ? *request.Cancelled : NeverCancelled;
  const auto base =
      destination.Profile ? deployment::TRemoteBase::ProjectRoot : deployment::TRemoteBase::None;
  const TConnect connect = [&] { return FDestinations.Connect(destination, &cancelled); };
  const TPlanOptions options{
      .Force = request.Options.Force,
      .Checksum = request.Options.Checksum,
      .SkipMissing = request.Options.SkipMissing,
      .Places = FDestinations.RulesOf(destination, request.Target.Platform),
  };
  auto files = CollectDeployFiles(request.Project, *deployment, request.Target, FServices, base);
  std::shared_ptr<IRemoteConnection> connection;
  TDeployPlan plan;
  request.Background([&] {
    plan = MakeDeployPlan(std::move(files), options, [&]() -> IRemoteConnection& {
      connection = connect();
      return *connection;
    });
  });
  report.Rows = RowsOf(plan);
  report.Problems = plan.Problems;
  report.Commands = plan.Commands;
  if (!report.Problems.empty()) {
    report.End = TDeployEnd::Refused;
    return;
  }
  if (request.Options.DryRun) {
    report.End = EndOf(report);
    return;
  }
  if (!plan.Commands.empty() &&
      !(request.MayRun && request.MayRun(plan.Commands, destination.Text()))) {
    report.End = TDeployEnd::NoConsent;
    return;
  }
  observer.Planned(report.Rows);
  const auto projectFile = ToMachinePath(request.Project.GetProjectFileName());
  request.Background([&] {
    ExecuteDeployPlan(plan,
                      {.Connection = *connection,
                       .Connect = connect,
                       .Directory = projectFile.parent_path(),
                       .Jobs = request.Options.Jobs,
                       .Observer = observer,
                       .Cancelled = cancelled},
                      report);
    connection.reset();
  });
  report.Signal = cancelled;
  report.End = EndOf(report);
}

} // namespace workbench
