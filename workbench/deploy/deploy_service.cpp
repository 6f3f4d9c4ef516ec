#include "workbench/deploy/deploy_service.h"

#include "workbench/deploy/deploy_run.h"
#include "workbench/deploy/plan_check.h"
#include "workbench/deploy/source_roots.h"
#include "workbench/files/machine_path.h"

#include <utility>

namespace workbench {

namespace {

// Runs the work; a connection that fails ends in the report.
template <class TReport, class TWork>
void Reported(const std::atomic<int>* cancelled, TReport& report, TWork work) {
  try {
    work();
  } catch (const TConnectionError& error) {
    report.Signal = cancelled ? cancelled->load() : 0;
    report.End = report.Signal != 0 ? TDeployEnd::Interrupted : TDeployEnd::NoConnection;
    report.Message = error.what();
  }
}

} // namespace

TRunFacts TDeployService::FactsOf(const TDeployRequest& request) const {
  auto& deployment = *request.Project.GetProjectDeployment();
  TDestination destination = FDestinations.Find(request.Project, request.Target);
  if (request.Options.Compress && destination.Profile)
    destination.Profile->Compress = true;
  const auto base =
      destination.Profile ? deployment::TRemoteBase::ProjectRoot : deployment::TRemoteBase::None;
  const std::filesystem::path projectFile = ToMachinePath(request.Project.GetProjectFileName());
  std::vector<std::filesystem::path> roots = FUserDirectories();
  roots.push_back(SourceTreeOf(projectFile));
  return {.Destinations = FDestinations,
          .Destination = std::move(destination),
          .Target = request.Target,
          .Files = CollectDeployFiles(request.Project, deployment, request.Target, FServices, base),
          .RootName = deployment.GetRemoteBaseDir(request.Target.Platform),
          .ProjectFile = projectFile,
          .SourceRoots = std::move(roots)};
}

TDeployReport TDeployService::Deploy(const TDeployRequest& request,
                                     IDeployObserver& observer) const {
  TDeployReport report;
  if (!request.Project.GetProjectDeployment()) {
    report.End = TDeployEnd::Done;
    return report;
  }
  Reported(request.Cancelled, report,
           [&] { TDeployRun(request.Terms(), FactsOf(request), observer, report).Run(); });
  return report;
}

std::optional<TPlanFile> TDeployService::Plan(const TDeployRequest& request,
                                              TDeployReport& report) const {
  std::optional<TPlanFile> file;
  if (!request.Project.GetProjectDeployment()) {
    report.End = TDeployEnd::Done;
    return file;
  }
  TRunTerms terms = request.Terms();
  terms.Options.DryRun = true;
  terms.Options.HashAll = true;
  Reported(request.Cancelled, report, [&] {
    TSilentObserver nobody;
    TDeployRun run(terms, FactsOf(request), nobody, report);
    run.Run();
    if (report.Problems.empty())
      file = run.PlanFile();
  });
  return file;
}

TDeployReport TDeployService::Apply(const TPlanFile& file, const TRunTerms& terms,
                                    IDeployObserver& observer) const {
  static const std::atomic<int> goesOn = 0;
  TDeployReport report;
  Reported(terms.Cancelled, report, [&] {
    std::optional<TDestination> destination = FDestinations.Find(file.Bound, file.Target.Platform);
    if (!destination) {
      report.End = TDeployEnd::Unexpected;
      report.Problems = {"there is no profile \"" + file.Bound.Profile + "\" of the platform \"" +
                         file.Target.Platform + "\" any more"};
      return;
    }
    if (terms.Options.Compress && destination->Profile)
      destination->Profile->Compress = true;
    report.Problems = DifferencesOf(
        file.Bound,
        FDestinations.BindingOf(*destination, terms.Cancelled ? *terms.Cancelled : goesOn));
    if (!report.Problems.empty()) {
      const std::vector<std::string> local = CheckLocalFiles(file.Plan);
      report.Problems.insert(report.Problems.end(), local.begin(), local.end());
      report.End = TDeployEnd::Unexpected;
      return;
    }
    TRunFacts facts{.Destinations = FDestinations,
                    .Destination = std::move(*destination),
                    .Target = file.Target,
                    .RootName = file.RootName,
                    .ProjectFile = file.ProjectFile,
                    .Given = file};
    TDeployRun(terms, std::move(facts), observer, report).Run();
  });
  return report;
}

TUndoReport TDeployService::Undo(deployment::ICustomProject& project,
                                 const deployment::TDeploymentTarget& target,
                                 const TUndoRequest& request) const {
  TUndoReport report;
  Reported(request.Cancelled, report, [&] {
    const TDestination destination = FDestinations.Find(project, target);
    const auto* deployment = project.GetProjectDeployment();
    if (!destination.Profile || destination.Profile->Stateless || !deployment) {
      report.End = TDeployEnd::Refused;
      report.Problems = {"the target keeps no record of deploys, so that none can be taken back"};
      return;
    }
    TUndoRun(request, FDestinations.Connect(destination, request.Cancelled),
             deployment->GetRemoteBaseDir(target.Platform), report)
        .Run();
  });
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
