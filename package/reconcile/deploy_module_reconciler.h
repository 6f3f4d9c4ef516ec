// Brings the default entries of one project, platform and configuration in line with its settings.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/reconcilejournal.h"
#include "package/reconcile/reconcile_plan.h"
#include "package/reconcile/reconcile_target.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// Made for one request, asked once, then dropped.
class TDeployModuleReconciler {
public:
  /// Empty names mean the project's current ones. With `reconcileInternally` the package list
  /// counts as empty. Project, services and journal (which may be null) must outlive the object.
  TDeployModuleReconciler(ICustomProject& project, std::string_view platform,
                          std::string_view configuration, bool reconcileInternally,
                          VelmorIDEServices& services, IReconcileJournal* journal = nullptr);

  /// Plans all steps in their order, then brings the list in line. CannotReconcile when the project
  /// has no deployment, is a package for a mobile platform, or its personality has no package
  /// service. The root configuration and "All Platforms" are no targets: nothing changes for them.
  /// Errors of the host come through, and then the list is as it was, but for what the user chose
  /// in a dialog; the project's modified flag is what it was in any case.
  TReconcileResult Reconcile();

  const TReconcileTarget& Target() const { return FTarget; }
  /// The project's deployment; null when it offers none.
  IProjectDeployment* ProjectDeployment() const { return FTarget.Project().GetProjectDeployment(); }

private:
  struct TPlannedRun {
    std::unique_ptr<TReconcilePlan> Plan;
    std::vector<std::string> Extensions; ///< of the project's files
  };

  void RecordGate(TReasonSource source, std::string_view what, TReasonCause cause) const;
  void RunSteps(IProjectDeployment& deployment);
  TPlannedRun Plan(IProjectDeployment& deployment) const;

  const TReconcileTarget FTarget;
  const bool FReconcileInternally;
  IReconcileJournal* FJournal;
};

} // namespace deployment
