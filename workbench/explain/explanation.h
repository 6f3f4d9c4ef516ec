// Why a file is in the list of a target, or is not, and where it lands: the answer as plain values.
#pragma once

#include "package/host/api/deployment_target.h"
#include "package/host/api/deploymentapi.h"
#include "package/host/api/entry_paths.h"
#include "package/host/api/reconcilejournal.h"
#include "package/host/api/target_entries.h"
#include "workbench/session/session.h"

#include <memory>
#include <string>
#include <unordered_set>
#include <utility>
#include <vector>

namespace workbench {

/// One entry of the target's list.
struct TExplainedEntry {
  std::shared_ptr<deployment::IProjectDeploymentFile> File;
  bool IsSaved = false;             ///< the project file has it under these names for the target
  bool IsDeployed = false;          ///< a deploy to the target takes it
  std::string LocalFile;            ///< full path on this machine
  bool IsThere = false;             ///< that file
  std::vector<std::string> Reasons; ///< sentences without a full stop
  std::vector<std::pair<std::string, std::string>>
      Landings; ///< platform, stored path on its target
};

/// The names of an entry as the project file has them.
struct TSavedEntry {
  std::string LocalName;
  std::string ClassName;
  std::string Configuration;
};

/// Everything that was found out about one name.
struct TExplanation {
  std::string Name;
  std::vector<TExplainedEntry> Entries;
  std::vector<TSavedEntry> Leaving;       ///< in the project file, but taken out by a reconcile
  deployment::TDeploymentFiles Elsewhere; ///< entries of other targets
  std::vector<deployment::TReconcileReason> Journal; ///< decisions about the name
  std::vector<std::string> Reasons;                  ///< sentences about what is not in the list
};

/// Answers for one target of one project, by the same rules as list and deploy. Reconciles the
/// target in memory, once.
class TExplainer {
public:
  /// Session and project must outlive the object, and the list must stay as it is.
  TExplainer(TSession& session, TOpenProject& project, const deployment::TDeploymentTarget& target);

  /// What holds for a local name ("\" and "/" alike, ignoring case), for every entry of a class, or
  /// for what an option names.
  TExplanation Explain(const std::string& name);

private:
  bool IsNoTarget() const;
  void TakeSaved();
  void FindEntries(TExplanation& explanation);
  void FindLeaving(TExplanation& explanation) const;
  TExplainedEntry ExplainEntry(const std::shared_ptr<deployment::IProjectDeploymentFile>& file,
                               const TExplanation& explanation);
  void AddReasons(const deployment::IProjectDeploymentFile& file, const TExplanation& explanation,
                  TExplainedEntry& entry) const;
  std::string WithoutReason(const deployment::IProjectDeploymentFile& file) const;
  std::string OfConfiguration(const deployment::IProjectDeploymentFile& file) const;
  const deployment::TEntryPaths& PathsOf(const std::string& platform);
  void AddLandings(const deployment::IProjectDeploymentFile& file, TExplainedEntry& entry);
  void ExplainAbsence(TExplanation& explanation) const;

  TSession& FSession;
  TOpenProject& FProject;
  deployment::IProjectDeployment& FDeployment;
  const deployment::TDeploymentTarget FTarget;
  deployment::TTargetEntries FEntries;
  std::vector<TSavedEntry> FSaved; ///< of the target
  std::unordered_set<std::string> FSavedKeys;
  std::vector<deployment::TReconcileReason> FJournal;
  deployment::TReconcileResult FResult = deployment::TReconcileResult::Reconciled;
  std::vector<std::pair<std::string, deployment::TEntryPaths>> FPaths; ///< by platform
};

} // namespace workbench
