// What a reconcile is going to do to the list of one target, worked out before anything changes.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/reconcile/default_entry.h"

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace deployment {

/// Number of a want in its plan.
using TWantId = std::size_t;

/// What is to become of one entry that a step wants.
struct TPlannedEntry {
  /// Where the entry comes from.
  enum class TOrigin {
    Present,   ///< it is one of the target's
    Reclaimed, ///< it is one of the class that lost the platform
    New
  };

  TDefaultEntry Wanted;
  TOrigin Origin = TOrigin::New;
  std::shared_ptr<IProjectDeploymentFile> Entry = nullptr; ///< null for a new one
  bool IsOnlyOne = false;                                  ///< its class has one entry for a target
  bool IsRebuilt = false; ///< made anew unless it would come out the same
  bool IsLost = false;    ///< the file is another one's
  bool IsRight = false;   ///< nothing of the entry is to change
};

/// An entry that leaves the target.
struct TLeavingEntry {
  std::shared_ptr<IProjectDeploymentFile> Entry;
  bool FromEveryTarget = false; ///< otherwise it stays for its other platforms
};

/// Collects what the steps want, in their order: one file has one entry, and when several classes
/// want it, the last one has it. Reads the deployment, never changes it.
class TReconcilePlan {
public:
  /// The deployment must outlive the plan. With `isExplained` every decision is kept.
  TReconcilePlan(IProjectDeployment& deployment, std::string configuration, std::string platform,
                 bool isExplained);

  /// The entries of a class that belong to the target.
  TDeploymentFiles OfClass(std::string_view className) const;

  /// Wants the one entry of its class; the first one that exists gets the local name.
  TWantId Want(TDefaultEntry wanted);
  /// Wants an entry of a class with many files; one that exists is the one wanted when its local
  /// name is, ignoring case. For the last step alone.
  void WantFile(const TDefaultEntry& wanted);
  /// Wants a new entry.
  TWantId WantNew(TDefaultEntry wanted);
  /// Wants an entry that exists as it is.
  TWantId Keep(std::shared_ptr<IProjectDeploymentFile> entry, const TEntryReason& reason);
  /// Takes an entry away from the target.
  void Leave(std::shared_ptr<IProjectDeploymentFile> entry, const TEntryReason& reason);
  /// Takes an entry out of the list, for every target.
  void Remove(std::shared_ptr<IProjectDeploymentFile> entry, const TEntryReason& reason);
  /// Takes the entries of a class out of the list, for every target. `localName` is what an entry
  /// of this target would be called.
  void RemoveClass(std::string_view className, std::string_view localName,
                   const TEntryReason& reason);
  /// Notes that a file gets no entry.
  void Skip(std::string_view className, std::string_view localName, const TEntryReason& reason);
  /// Something that the user should know about what the steps want.
  void Warn(std::string text) { FWarnings.push_back(std::move(text)); }
  bool IsExplained() const { return FIsExplained; }

  // Behind the last step that wants files: what depends on what became of them.

  /// False when a later step has the file.
  bool IsLive(TWantId want) const { return !FWants[want].IsLost; }
  const TDefaultEntry& Wanted(TWantId want) const { return FWants[want].Wanted; }
  /// Settings that the entry will have on the target.
  std::string RemoteDirOf(TWantId want) const;
  std::string RemoteNameOf(TWantId want) const;
  bool IsEnabled(TWantId want) const;
  void SetRemoteDir(TWantId want, std::string directory);
  /// Brings the present entries to what taking them all away and adding the wanted ones would
  /// leave; one that would come out the same stays as it is. Files that another class wants
  /// are left to it.
  void Rebuild(const std::vector<TLeavingEntry>& present, const std::vector<TDefaultEntry>& wanted);

  /// Decides about every entry that stands in the way of a wanted one. To be called once, when
  /// nothing more is wanted.
  void Settle();

  // What was decided.
  const std::vector<TPlannedEntry>& Wants() const { return FWants; }
  const std::vector<TLeavingEntry>& Leaving() const { return FLeaving; }
  /// Sentences for the user.
  const std::vector<std::string>& Warnings() const { return FWarnings; }
  const std::vector<TReconcileReason>& Decisions() const { return FDecisions; }
  const std::string& Configuration() const { return FConfiguration; }
  const std::string& Platform() const { return FPlatform; }

private:
  TDeploymentFiles WithName(std::string_view localName, std::string_view className) const;
  TWantId AddWant(TPlannedEntry want);
  void Lose(TWantId loser, const std::string& winnerClass);
  void WarnOfRoles(const std::string& localName, const std::string& loser,
                   const std::string& winner, std::string_view consequence = {});
  std::string ClassThatHas(const std::string& localName);
  void Reclaim(TPlannedEntry& want) const;
  bool IsRight(IProjectDeploymentFile& entry, const TDefaultEntry& wanted) const;
  bool IsAsMade(IProjectDeploymentFile& entry, const TDefaultEntry& wanted) const;
  void DropEntriesOf(const TPlannedEntry& lost);
  void ClearWay(const TPlannedEntry& want);
  void TakeLeave(std::shared_ptr<IProjectDeploymentFile> entry, bool fromEveryTarget,
                 const TEntryReason& reason);
  void NoteOutcome(TWantId id);
  void Note(const TEntryReason& reason, TReconcileOutcome outcome, std::string_view className,
            std::string_view localName);

  IProjectDeployment& FDeployment;
  const std::string FConfiguration;
  const std::string FPlatform;
  const bool FIsExplained;
  std::vector<TPlannedEntry> FWants;
  std::vector<std::size_t> FDecisionOf;             // of FWants; empty when nothing is explained
  std::unordered_map<std::string, TWantId> FClaims; // by local name
  // Entries of WantFile that are right; they have no want. The set is made when it is asked for.
  std::vector<const IProjectDeploymentFile*> FRightFiles;
  std::unordered_set<const IProjectDeploymentFile*> FRightSet;
  std::vector<TLeavingEntry> FLeaving;
  std::unordered_set<const IProjectDeploymentFile*> FLeavingSet;
  std::unordered_set<const IProjectDeploymentFile*> FPlaced; // entries of live wants
  std::vector<std::string> FWarnings;
  std::vector<TReconcileReason> FDecisions;
};

} // namespace deployment
