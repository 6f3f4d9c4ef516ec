// Brings the default entries of one project, platform and configuration in line with its settings.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/ideservices.h"

#include <string>
#include <string_view>

namespace deployment {

/// Made for one request, asked once, then dropped. The deployment is reached through the project.
class TDeployModuleReconciler {
public:
  /// Empty names mean the project's current ones. Project and services must outlive the object.
  TDeployModuleReconciler(ICustomProject& project, std::string_view platform,
                          std::string_view configuration, bool reconcileInternally,
                          VelmorIDEServices& services);

  /// Runs the steps in order; the first one that does not answer Reconciled ends the chain, and
  /// its answer is the result. Errors of a step come through.
  TReconcileResult Reconcile();

  ICustomProject& Project() const { return FProject; }
  const std::string& Platform() const { return FPlatform; }
  const std::string& Configuration() const { return FConfiguration; }
  /// True when the package list counts as empty.
  bool ReconcilesInternally() const { return FReconcileInternally; }
  VelmorIDEServices& Services() const { return FServices; }

private:
  ICustomProject& FProject;
  std::string FPlatform;
  std::string FConfiguration;
  bool FReconcileInternally;
  VelmorIDEServices& FServices;
};

} // namespace deployment
