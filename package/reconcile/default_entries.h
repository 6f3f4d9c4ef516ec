// The rule by which every step adds, updates and removes default entries of one target.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/reconcilejournal.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace deployment {

/// Why a step does what it does about an entry.
struct TEntryReason {
  TReconcileStep Step = TReconcileStep::ProjectOutput;
  TReasonSource Source = TReasonSource::Gate;
  std::string SourceName = {};
  std::string SourceValue = {};
  TReasonCause Cause = TReasonCause::None;
};

/// A default entry as a step wants it. The configuration and platform are those of the target.
struct TDefaultEntry {
  std::string ClassName;
  std::string LocalName;
  TEntryReason Reason;
  /// Written when the entry is made; one that exists stays as the user left it.
  bool EnabledOnCreation = true;
  /// Written when the entry is made; one that exists keeps the name that the user may have given.
  std::optional<std::string> RemoteNameOnCreation = std::nullopt;
  std::optional<std::string> RemoteDirOnCreation = std::nullopt;
  /// Written in any case.
  std::optional<std::string> RemoteName = std::nullopt;
  std::optional<std::string> RemoteDir = std::nullopt;
};

/// Hears of a file that two classes want: local name, class that loses it, class that has it.
using TRoleConflictHandler = std::function<void(
    const std::string& localName, const std::string& loser, const std::string& winner)>;

/// The default entries of one target during one reconcile. One file has one entry: when steps want
/// it for several classes, the last one has it.
class TDefaultEntries {
public:
  /// Deployment and journal (which may be null) must outlive the object.
  TDefaultEntries(IProjectDeployment& deployment, std::string configuration, std::string platform,
                  IReconcileJournal* journal, TRoleConflictHandler conflict);

  /// The entries of a class that belong to the target.
  TDeploymentFiles OfClass(std::string_view className) const;

  /// Makes the entry of that class, or gives the first one that exists its local name. Null when
  /// the file is the entry of another class so far; Finish decides then.
  std::shared_ptr<IProjectDeploymentFile> AddOrUpdate(const TDefaultEntry& wanted);
  /// The same for a class with many files: an entry is the one wanted when its local name is.
  std::shared_ptr<IProjectDeploymentFile> AddOrUpdateFile(const TDefaultEntry& wanted);
  /// Makes an entry whether or not the class has one; null as above.
  std::shared_ptr<IProjectDeploymentFile> Add(const TDefaultEntry& wanted);
  /// Says that an existing entry is wanted as it is.
  void Keep(const std::shared_ptr<IProjectDeploymentFile>& entry, const TEntryReason& reason);
  void Remove(const std::shared_ptr<IProjectDeploymentFile>& entry, const TEntryReason& reason);
  /// Removes the entries of a class, of every configuration and platform.
  void RemoveClass(std::string_view className, const TEntryReason& reason);
  /// True when somebody wants to know of every decision.
  bool HasJournal() const { return FJournal != nullptr; }
  /// Tells the journal of a file that gets no entry.
  void Skip(std::string_view className, std::string_view localName, const TEntryReason& reason);

  /// To be called when all steps have run: makes the entries that AddOrUpdate and Add put off,
  /// unless a later step wanted the file for another class.
  void Finish();

private:
  struct TClaim {
    std::string ClassName;
    std::weak_ptr<IProjectDeploymentFile> Entry;
  };

  std::shared_ptr<IProjectDeploymentFile>
  Update(const std::shared_ptr<IProjectDeploymentFile>& entry, const TDefaultEntry& wanted);
  std::shared_ptr<IProjectDeploymentFile> Make(const TDefaultEntry& wanted);
  std::shared_ptr<IProjectDeploymentFile> Holder(const std::string& localName) const;
  void FreeKey(std::string_view configuration, std::string_view platform,
               std::string_view localName);
  void Claim(const TDefaultEntry& wanted, const std::shared_ptr<IProjectDeploymentFile>& entry);
  void DropEarlierClaim(const TDefaultEntry& wanted);
  // True when a value changed.
  bool WriteTargetValues(const TDefaultEntry& wanted, IProjectDeploymentFile& entry) const;
  void Record(const TEntryReason& reason, TReconcileOutcome outcome, std::string_view className,
              std::string_view localName) const;

  IProjectDeployment& FDeployment;
  const std::string FConfiguration;
  const std::string FPlatform;
  IReconcileJournal* FJournal;
  TRoleConflictHandler FConflict;
  // By local name: what the steps wanted so far.
  std::unordered_map<std::string, TClaim> FClaims;
  std::vector<TDefaultEntry> FPutOff;
  std::unordered_set<std::string> FPutOffNames;
};

} // namespace deployment
