#include "workbench/deploy/deploy_service.h"

#include "package/host/api/target_entries.h"
#include "workbench/deploy/deploy_run.h"
#include "workbench/deploy/plan/plan_check.h"
#include "workbench/deploy/plan/source_roots.h"
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

// What a run that is to be kept is planned with.
TRunTerms PlanTerms(TRunTerms terms) {
  terms.Options.DryRun = true;
  terms.Options.HashAll = true;
  return terms;
}

std::optional<TPlanFile> PlanOf(const TRunTerms& terms, TRunFacts facts, TDeployReport& report) {
  TSilentObserver nobody;
  TDeployRun run(terms, std::move(facts), nobody, report);
  run.Run();
  return report.Problems.empty() ? std::optional(run.PlanFile()) : std::nullopt;
}

} // namespace

TDeploySubject TDeployService::SubjectOf(deployment::ICustomProject& project,
                                         const deployment::TDeploymentTarget& target,
                                         const TDestination& destination,
                                         const TPause& pause) const {
  TDeploySubject subject{.Target = target,
                         .ProjectFile = ToMachinePath(project.GetProjectFileName())};
  auto* deployment = project.GetProjectDeployment();
  if (!deployment)
    return subject;
  const auto base =
      destination.Profile ? deployment::TRemoteBase::ProjectRoot : deployment::TRemoteBase::None;
  subject.HasDeployment = true;
  subject.SourceRoots = FUserDirectories();
  subject.SourceRoots.push_back(SourceTreeOf(subject.ProjectFile));
  subject.Files = CollectDeployFiles(project, *deployment, target, FServices, base, pause);
  subject.RootName = deployment->GetRemoteBaseDir(target.Platform);
  return subject;
}

TDeploySubject TDeployService::SubjectOf(deployment::ICustomProject& project,
                                         const deployment::TDeploymentTarget& target) const {
  return SubjectOf(project, target, {.Profile = TProfile()}, nullptr);
}

TRunFacts TDeployService::FactsOf(TDeploySubject subject, TDestination destination,
                                  const TDeployOptions& options) const {
  if (options.Compress && destination.Profile)
    destination.Profile->Compress = true;
  return {.Destinations = FDestinations,
          .Destination = std::move(destination),
          .Target = std::move(subject.Target),
          .Files = std::move(subject.Files),
          .RootName = std::move(subject.RootName),
          .ProjectFile = std::move(subject.ProjectFile),
          .SourceRoots = std::move(subject.SourceRoots)};
}

TRunFacts TDeployService::FactsOf(const TDeployRequest& request) const {
  TDestination destination = FDestinations.Find(request.Project, request.Target);
  const auto pause = [&request] {
    if (request.Pause)
      request.Pause();
    if (request.Cancelled && *request.Cancelled != 0)
      throw TConnectionError(std::string(InterruptedReason));
  };
  TDeploySubject subject = SubjectOf(request.Project, request.Target, destination, pause);
  return FactsOf(std::move(subject), std::move(destination), request.Options);
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

TDeployReport TDeployService::Deploy(const TDeploySubject& subject, const TProfile& profile,
                                     const TRunTerms& terms, IDeployObserver& observer) const {
  TDeployReport report;
  if (!subject.HasDeployment) {
    report.End = TDeployEnd::Done;
    return report;
  }
  Reported(terms.Cancelled, report, [&] {
    TDeployRun(terms, FactsOf(subject, {.Profile = profile}, terms.Options), observer, report)
        .Run();
  });
  return report;
}

std::optional<TPlanFile> TDeployService::Plan(const TDeployRequest& request,
                                              TDeployReport& report) const {
  std::optional<TPlanFile> file;
  if (!request.Project.GetProjectDeployment()) {
    report.End = TDeployEnd::Done;
    return file;
  }
  Reported(request.Cancelled, report,
           [&] { file = PlanOf(PlanTerms(request.Terms()), FactsOf(request), report); });
  return file;
}

std::optional<TPlanFile> TDeployService::Plan(const TDeploySubject& subject,
                                              const TProfile& profile, const TRunTerms& terms,
                                              TDeployReport& report) const {
  std::optional<TPlanFile> file;
  if (!subject.HasDeployment) {
    report.End = TDeployEnd::Done;
    return file;
  }
  Reported(terms.Cancelled, report, [&] {
    file = PlanOf(PlanTerms(terms), FactsOf(subject, {.Profile = profile}, terms.Options), report);
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
      const std::vector<std::string> local = CheckLocalFiles(file.Plan, terms.Cancelled);
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

TUndoReport TDeployService::Undo(const TDestination& destination, const std::string* rootName,
                                 const TUndoRequest& request) const {
  TUndoReport report;
  Reported(request.Cancelled, report, [&] {
    if (!destination.Profile || destination.Profile->Stateless || !rootName) {
      report.End = TDeployEnd::Refused;
      report.Problems = {"the target keeps no record of deploys, so that none can be taken back"};
      return;
    }
    TUndoRun(request, FDestinations.Connect(destination, request.Cancelled), *rootName, report)
        .Run();
  });
  return report;
}

TUndoReport TDeployService::Undo(deployment::ICustomProject& project,
                                 const deployment::TDeploymentTarget& target,
                                 const TUndoRequest& request) const {
  TDestination destination;
  TUndoReport report;
  Reported(request.Cancelled, report, [&] { destination = FDestinations.Find(project, target); });
  if (report.End != TDeployEnd::NotStarted)
    return report;
  const auto* deployment = project.GetProjectDeployment();
  const std::string rootName = deployment ? deployment->GetRemoteBaseDir(target.Platform) : "";
  return Undo(destination, deployment ? &rootName : nullptr, request);
}

TUndoReport TDeployService::Undo(const TDeploySubject& subject, const TProfile& profile,
                                 const TUndoRequest& request) const {
  return Undo({.Profile = profile}, subject.HasDeployment ? &subject.RootName : nullptr, request);
}

TRecordReading TDeployService::ReadRecord(const TDestination& destination,
                                          const std::string* rootName,
                                          const std::atomic<int>* cancelled) const {
  if (!destination.Profile || destination.Profile->Stateless || !rootName)
    return {};
  const auto connection = FDestinations.Connect(destination, cancelled);
  const TRecordStore store(*connection, *rootName);
  return store.Read(*connection);
}

TRecordReading TDeployService::ReadRecord(deployment::ICustomProject& project,
                                          const deployment::TDeploymentTarget& target,
                                          const std::atomic<int>* cancelled) const {
  const TDestination destination = FDestinations.Find(project, target);
  const auto* deployment = project.GetProjectDeployment();
  const std::string rootName = deployment ? deployment->GetRemoteBaseDir(target.Platform) : "";
  return ReadRecord(destination, deployment ? &rootName : nullptr, cancelled);
}

TRecordReading TDeployService::ReadRecord(const TDeploySubject& subject, const TProfile& profile,
                                          const std::atomic<int>* cancelled) const {
  return ReadRecord({.Profile = profile}, subject.HasDeployment ? &subject.RootName : nullptr,
                    cancelled);
}

std::vector<TFilePair>
TDeployService::FilePairsOf(deployment::ICustomProject& project,
                            const deployment::TDeploymentTarget& target) const {
  std::vector<TFilePair> pairs;
  auto* deployment = project.GetProjectDeployment();
  if (!deployment)
    return pairs;
  const deployment::TEntryPaths paths(project, *deployment, target, FServices);
  for (const auto& file : deployment->GetFiles()) {
    if (deployment::IsFileInPlatform(target.Platform, *file))
      pairs.push_back({file->GetLocalName(), paths.LocalFile(*file), paths.RemoteFile(*file)});
  }
  return pairs;
}

std::vector<TTimeComparison> TDeployService::Compare(const std::vector<TFilePair>& files,
                                                     const TProfile& profile,
                                                     const std::atomic<int>* cancelled,
                                                     TSeenFiles& seen) const {
  const TDestination destination{.Profile = profile};
  return CompareTimes(FDestinations.Connect(destination, cancelled),
                      FDestinations.RulesOf(destination, profile.Platform), files, seen);
}

} // namespace workbench
