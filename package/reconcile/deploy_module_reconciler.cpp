#include "package/reconcile/deploy_module_reconciler.h"

#include "package/reconcile/packages.h"
#include "package/reconcile/project_output.h"
#include "package/reconcile/reconcile_context.h"

#include <string>

namespace deployment {
namespace {

// Puts the modified flag of a project back to what it was, also when a step fails.
class TModifiedFlagKeeper {
public:
  explicit TModifiedFlagKeeper(ICustomProject& project)
      : FProject(project), FModified(project.GetModified()) {}
  TModifiedFlagKeeper(const TModifiedFlagKeeper&) = delete;
  TModifiedFlagKeeper& operator=(const TModifiedFlagKeeper&) = delete;
  ~TModifiedFlagKeeper() {
    if (FProject.GetModified() != FModified)
      FProject.SetModified(FModified);
  }

private:
  ICustomProject& FProject;
  const bool FModified;
};

TRoleConflictHandler WarnOfConflict(const TReconcileTarget& target) {
  return
      [&target](const std::string& localName, const std::string& loser, const std::string& winner) {
        target.Services().GetMessageServices().AddWarning(
            "\"" + localName + "\" has two roles for " + target.Configuration() + ", " +
                target.Platform() + ": \"" + loser + "\" and \"" + winner +
                "\"; one file has one entry, which is that of \"" + winner + "\"",
            {target.Project().GetProjectFileName(), 0});
      };
}

} // namespace

TDeployModuleReconciler::TDeployModuleReconciler(ICustomProject& project, std::string_view platform,
                                                 std::string_view configuration,
                                                 bool reconcileInternally,
                                                 VelmorIDEServices& services,
                                                 IReconcileJournal* journal)
    : FTarget(project, platform, configuration, services),
      FReconcileInternally(reconcileInternally), FJournal(journal) {}

void TDeployModuleReconciler::RecordGate(std::string_view what, TReasonCause cause) const {
  if (FJournal)
    FJournal->Record({TReconcileStep::Packages,
                      TReconcileOutcome::Skipped,
                      {},
                      {},
                      TReasonSource::Gate,
                      std::string(what),
                      {},
                      cause});
}

TReconcileResult TDeployModuleReconciler::Reconcile() {
  IProjectDeployment* deployment = ProjectDeployment();
  if (!deployment) {
    RecordGate("deployment", TReasonCause::ServiceMissing);
    return TReconcileResult::CannotReconcile;
  }
  if (FTarget.Platform() == sAllPlatforms) {
    RecordGate(sAllPlatforms, TReasonCause::WrongPlatform);
    return TReconcileResult::Reconciled;
  }
  if (FTarget.IsPackage() && FTarget.isMobilePlatform(FTarget.Platform())) {
    RecordGate(FTarget.ApplicationKind(), TReasonCause::WrongKind);
    return TReconcileResult::CannotReconcile;
  }
  if (FTarget.Configuration() == BaseConfiguration) {
    RecordGate(BaseConfiguration, TReasonCause::Empty);
    return TReconcileResult::Reconciled;
  }
  if (const std::string nothing =
          FTarget.Project().GetNothingToDeploy(FTarget.Configuration(), FTarget.Platform());
      !nothing.empty()) {
    RecordGate(nothing, TReasonCause::NothingBuilt);
    return TReconcileResult::CannotReconcile;
  }
  const TModifiedFlagKeeper keeper(FTarget.Project());
  return RunSteps(*deployment);
}

TReconcileResult TDeployModuleReconciler::RunSteps(IProjectDeployment& deployment) {
  // Steps take directories from classes: the look-up makes sure of the default ones.
  deployment.FindFile(FTarget.Configuration(), FTarget.Platform(), {});
  TDefaultEntries entries(deployment, FTarget.Configuration(), FTarget.Platform(), FJournal,
                          WarnOfConflict(FTarget));
  TReconcileContext context{FTarget, deployment, entries, FReconcileInternally};
  TReconcileResult result = ReconcilePackages(context);
  if (result == TReconcileResult::Reconciled)
    result = ReconcileProjectOutput(context);
  entries.Finish();
  return result;
}

} // namespace deployment
