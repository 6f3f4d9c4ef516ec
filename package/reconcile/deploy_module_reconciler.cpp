#include "package/reconcile/deploy_module_reconciler.h"

#include "package/featured/modify_featured_files.h"
#include "package/reconcile/apply_plan.h"
#include "package/reconcile/reconcile_steps.h"

#include <exception>
#include <string>
#include <vector>

namespace deployment {
namespace {

// Offers what goes with each type of file; true when the user chose something. A catalog that
// cannot be understood is warned of.
bool OfferFeaturedFiles(const TReconcileTarget& target,
                        const std::vector<std::string>& extensions) {
  bool chosen = false;
  try {
    for (const std::string& extension : extensions)
      chosen = AskForFeaturedFiles(target.Project(), extension, target.Services()) || chosen;
  } catch (const TInputError& error) {
    target.Services().GetMessageServices().AddWarning(
        std::string("no optional files are offered: ") + error.what(), error.Place());
  }
  return chosen;
}

// Puts the modified flag of a project back; an error of the host on this way is passed over, since
// it comes behind the one that is on its way to the caller.
void RestoreQuietly(ICustomProject& project, bool modified) {
  try {
    project.SetModified(modified);
  } catch (const std::exception&) {
    return;
  }
}

} // namespace

TDeployModuleReconciler::TDeployModuleReconciler(ICustomProject& project, std::string_view platform,
                                                 std::string_view configuration,
                                                 bool reconcileInternally,
                                                 VelmorIDEServices& services,
                                                 IReconcileJournal* journal)
    : FTarget(project, platform, configuration, services),
      FReconcileInternally(reconcileInternally), FJournal(journal) {}

void TDeployModuleReconciler::RecordGate(TReasonSource source, std::string_view what,
                                         TReasonCause cause) const {
  if (FJournal)
    FJournal->Record({TReconcileStep::Packages,
                      TReconcileOutcome::Skipped,
                      {},
                      {},
                      source,
                      std::string(what),
                      {},
                      cause});
}

TReconcileResult TDeployModuleReconciler::Reconcile() {
  IProjectDeployment* deployment = ProjectDeployment();
  if (!deployment) {
    RecordGate(TReasonSource::Gate, "deployment", TReasonCause::ServiceMissing);
    return TReconcileResult::CannotReconcile;
  }
  if (FTarget.Platform() == sAllPlatforms) {
    RecordGate(TReasonSource::Gate, sAllPlatforms, TReasonCause::WrongPlatform);
    return TReconcileResult::Reconciled;
  }
  if (FTarget.IsPackage() && FTarget.isMobilePlatform(FTarget.Platform())) {
    RecordGate(TReasonSource::Gate, FTarget.ApplicationKind(), TReasonCause::WrongKind);
    return TReconcileResult::CannotReconcile;
  }
  if (FTarget.Configuration() == BaseConfiguration) {
    RecordGate(TReasonSource::Gate, BaseConfiguration, TReasonCause::Empty);
    return TReconcileResult::Reconciled;
  }
  if (const std::string nothing =
          FTarget.Project().GetNothingToDeploy(FTarget.Configuration(), FTarget.Platform());
      !nothing.empty()) {
    RecordGate(TReasonSource::Gate, nothing, TReasonCause::NothingBuilt);
    return TReconcileResult::CannotReconcile;
  }
  if (!FTarget.PackageService()) {
    RecordGate(TReasonSource::PackageService, FTarget.Personality(), TReasonCause::ServiceMissing);
    return TReconcileResult::CannotReconcile;
  }
  const bool modified = FTarget.Project().GetModified();
  try {
    RunSteps(*deployment);
  } catch (...) {
    RestoreQuietly(FTarget.Project(), modified);
    throw;
  }
  if (FTarget.Project().GetModified() != modified)
    FTarget.Project().SetModified(modified);
  return TReconcileResult::Reconciled;
}

void TDeployModuleReconciler::RunSteps(IProjectDeployment& deployment) {
  // Steps take directories from classes: the look-up makes sure of the default ones.
  deployment.FindFile(FTarget.Configuration(), FTarget.Platform(), {});
  TPlannedRun run = Plan(deployment);
  // A choice of the user changes the list that was planned for.
  if (OfferFeaturedFiles(FTarget, run.Extensions))
    run = Plan(deployment);
  // Everything that may fail comes before the first change.
  for (const std::string& warning : run.Plan->Warnings())
    FTarget.Services().GetMessageServices().AddWarning(warning,
                                                       {FTarget.Project().GetProjectFileName(), 0});
  if (FJournal) {
    for (const TReconcileReason& decision : run.Plan->Decisions())
      FJournal->Record(decision);
  }
  ApplyPlan(deployment, *run.Plan);
}

TDeployModuleReconciler::TPlannedRun
TDeployModuleReconciler::Plan(IProjectDeployment& deployment) const {
  TPlannedRun run{std::make_unique<TReconcilePlan>(deployment, FTarget.Configuration(),
                                                   FTarget.Platform(), FJournal != nullptr),
                  {}};
  TReconcileContext context{FTarget, deployment, *run.Plan, FReconcileInternally};
  PlanReconcile(context);
  run.Extensions = std::move(context.Extensions);
  return run;
}

} // namespace deployment
