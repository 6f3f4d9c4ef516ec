#include "workbench/deploy/deploy_service.h"

#include "workbench/deploy/deploy_run.h"
#include "workbench/files/machine_path.h"

#include <utility>

namespace workbench {

TDeployReport TDeployService::Deploy(const TDeployRequest& request,
                                     IDeployObserver& observer) const {
  TDeployReport report;
  auto* deployment = request.Project.GetProjectDeployment();
  if (!deployment) {
    report.End = TDeployEnd::Done;
    return report;
  }
  try {
    TDestination destination = FDestinations.Find(request.Project, request.Target);
    const auto base =
        destination.Profile ? deployment::TRemoteBase::ProjectRoot : deployment::TRemoteBase::None;
    TRunFacts facts{
        .Destinations = FDestinations,
        .Destination = std::move(destination),
        .Files = CollectDeployFiles(request.Project, *deployment, request.Target, FServices, base),
        .RootName = deployment->GetRemoteBaseDir(request.Target.Platform),
        .ProjectFile = ToMachinePath(request.Project.GetProjectFileName())};
    TDeployRun(request, std::move(facts), observer, report).Run();
  } catch (const TConnectionError& error) {
    report.Signal = request.Cancelled ? request.Cancelled->load() : 0;
    report.End = report.Signal != 0 ? TDeployEnd::Interrupted : TDeployEnd::NoConnection;
    report.Message = error.what();
  }
  return report;
}

TRecordReading TDeployService::ReadRecord(deployment::ICustomProject& project,
                                          const deployment::TDeploymentTarget& target,
                                          const std::atomic<int>* cancelled) const {
  const TDestination destination = FDestinations.Find(project, target);
  const auto* deployment = project.GetProjectDeployment();
  if (!destination.Profile || destination.Profile->Stateless || !deployment)
    return {};
  const auto connection = FDestinations.Connect(destination, cancelled);
  const TRecordStore store(*connection, deployment->GetRemoteBaseDir(target.Platform));
  return store.Read(*connection);
}

} // namespace workbench
