// Deploys projects. The button of the view and the command line come here with the same request.
#pragma once

#include "package/host/api/entry_paths.h"
#include "workbench/deploy/deploy_observer.h"
#include "workbench/deploy/deploy_request.h"
#include "workbench/deploy/deploy_run.h"
#include "workbench/deploy/deploy_subject.h"
#include "workbench/deploy/destination.h"
#include "workbench/deploy/plan_file.h"
#include "workbench/deploy/time_comparison.h"
#include "workbench/deploy/undo_run.h"

#include <filesystem>
#include <functional>
#include <utility>
#include <vector>

namespace workbench {

class TDeployService {
public:
  /// Everything must outlive the object.
  /// `userDirectories` tells the directories that the user named: their files need no consent.
  TDeployService(const TDestinations& destinations, const deployment::TEntryPathServices& services,
                 std::function<std::vector<std::filesystem::path>()> userDirectories)
      : FDestinations(destinations), FServices(services),
        FUserDirectories(std::move(userDirectories)) {}

  /// Plans the deploy and, unless it is a dry run, carries the plan out. What hinders or fails
  /// stands in the report. Throws TInputError for damaged profiles. Called on the main thread.
  TDeployReport Deploy(const TDeployRequest& request, IDeployObserver& observer) const;
  /// Plans the deploy and carries nothing out. The plan, with the hash of every local file, to be
  /// kept; nothing where there is none, which the report says. Otherwise as Deploy.
  std::optional<TPlanFile> Plan(const TDeployRequest& request, TDeployReport& report) const;
  /// Carries out a plan that was made before, if everything is still what it was then. Otherwise as
  /// Deploy.
  TDeployReport Apply(const TPlanFile& file, const TRunTerms& terms,
                      IDeployObserver& observer) const;
  /// Takes back what the last deploy did, or the last ones. What hinders or fails stands in the
  /// report. Throws TInputError for damaged profiles.
  TUndoReport Undo(deployment::ICustomProject& project, const deployment::TDeploymentTarget& target,
                   const TUndoRequest& request) const;
  /// The record of the project on the target; none where no record is kept. Throws
  /// TConnectionError and TInputError.
  TRecordReading ReadRecord(deployment::ICustomProject& project,
                            const deployment::TDeploymentTarget& target,
                            const std::atomic<int>* cancelled) const;

  /// What of the project goes to the place of any profile. Called on the main thread.
  TDeploySubject SubjectOf(deployment::ICustomProject& project,
                           const deployment::TDeploymentTarget& target) const;

  /// Every file of the project for the platform of the target, whether a deploy takes it or not,
  /// at the place of any profile. Called on the main thread.
  std::vector<TFilePair> FilePairsOf(deployment::ICustomProject& project,
                                     const deployment::TDeploymentTarget& target) const;

  // The same for a profile, whichever one the project assigns. Several threads may call these at
  // once, each for a profile of its own, but not while the profiles of the user change.

  TDeployReport Deploy(const TDeploySubject& subject, const TProfile& profile,
                       const TRunTerms& terms, IDeployObserver& observer) const;
  std::optional<TPlanFile> Plan(const TDeploySubject& subject, const TProfile& profile,
                                const TRunTerms& terms, TDeployReport& report) const;
  TUndoReport Undo(const TDeploySubject& subject, const TProfile& profile,
                   const TUndoRequest& request) const;
  TRecordReading ReadRecord(const TDeploySubject& subject, const TProfile& profile,
                            const std::atomic<int>* cancelled) const;
  /// The files beside those at the place of the profile, in their order; `seen` hears what the
  /// target answers. Throws TConnectionError.
  std::vector<TTimeComparison> Compare(const std::vector<TFilePair>& files, const TProfile& profile,
                                       const std::atomic<int>* cancelled, TSeenFiles& seen) const;
  /// What a deploy knows besides its request: the destination and the files. Throws
  /// TConnectionError when there is no profile. The project must have a deployment.
  TRunFacts FactsOf(const TDeployRequest& request) const;

private:
  TDeploySubject SubjectOf(deployment::ICustomProject& project,
                           const deployment::TDeploymentTarget& target,
                           const TDestination& destination, const TPause& pause) const;
  TRunFacts FactsOf(TDeploySubject subject, TDestination destination,
                    const TDeployOptions& options) const;
  TUndoReport Undo(const TDestination& destination, const std::string* rootName,
                   const TUndoRequest& request) const;
  TRecordReading ReadRecord(const TDestination& destination, const std::string* rootName,
                            const std::atomic<int>* cancelled) const;

  const TDestinations& FDestinations;
  deployment::TEntryPathServices FServices;
  std::function<std::vector<std::filesystem::path>()> FUserDirectories;
};

} // namespace workbench
