// Why a reconcile put entries in the list of a target and took others out.
#pragma once

#include "package/host/api/deployment_target.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/reconcilejournal.h"
#include "workbench/explain/list_changes.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace workbench {

/// The reasons of all entries of one target, found at once.
class TChangeReasons {
public:
  /// Reconciles the target once more to hear the reasons: a list that is in line with it stays as
  /// it is. Throws TInputError when the target cannot be computed.
  TChangeReasons(deployment::IProjectDeployment& deployment,
                 const deployment::TDeploymentTarget& target);

  /// Sentences without a full stop, at least one, for an entry to which this happened; for one that
  /// went, what the steps say about its class.
  std::vector<std::string> Of(const TChangedEntry& entry,
                              deployment::TReconcileOutcome happened) const;

private:
  std::vector<std::string> Sentences(const std::string& key,
                                     deployment::TReconcileOutcome happened) const;

  std::vector<deployment::TReconcileReason> FJournal;
  std::unordered_map<std::string, std::vector<std::size_t>> FByKey; ///< places in the journal
};

} // namespace workbench
