// Brings the default entries of one project, platform and configuration in line with its settings.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/reconcilejournal.h"
#include "package/reconcile/reconcile_target.h"

#include <string_view>

namespace deployment {

/// Made for one request, asked once, then dropped.
class TDeployModuleReconciler {
public:
  /// Empty names mean the project's current ones. With `reconcileInternally` the package list
  /// counts as empty. Project, services and journal (which may be null) must outlive the object.
  TDeployModuleReconciler(ICustomProject& project, std::string_view platform,
                          std::string_view configuration, bool reconcileInternally,
                          VelmorIDEServices& services, IReconcileJournal* journal = nullptr);

  /// Runs the steps in order. CannotReconcile when the project has no deployment, is a package for
  /// a mobile platform, or its personality has no package service. The root configuration and "All
  /// Platforms" are no targets: nothing changes for them. Errors of the host come through; the
  /// project's modified flag is what it was in any case.
  TReconcileResult Reconcile();

  const TReconcileTarget& Target() const { return FTarget; }
  /// The project's deployment; null when it offers none.
  IProjectDeployment* ProjectDeployment() const { return FTarget.Project().GetProjectDeployment(); }

private:
  void RecordGate(std::string_view what, TReasonCause cause) const;
  TReconcileResult RunSteps(IProjectDeployment& deployment);

  const TReconcileTarget FTarget;
  const bool FReconcileInternally;
  IReconcileJournal* FJournal;
};

} // namespace deployment
