// A second copy of what a deployment holds, by which changes are found and taken back.
#pragma once

#include "workbench/list/entry_record.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace workbench {

/// Where changes are looked for.
enum class TLook {
  Notified,  ///< at what listeners heard of
  Everywhere ///< at every entry, since a record that is made with default values notifies nobody
};

/// Which way a change is followed.
enum class TDirection { Back, Forth };

/// What happened to one entry. Nothing before: it is new. Nothing after: it went.
struct TEntryDifference {
  std::optional<TEntryRecord> Before;
  std::optional<TEntryRecord> After;
  std::optional<std::size_t> Position; ///< in the list afterwards; of new and moved entries alone
};

/// What happened to a list, in terms that outlive the program.
struct TListChange {
  std::string Name;
  bool IsComputed = false;               ///< by the program, so that it comes back by itself
  std::vector<TEntryDifference> Entries; ///< those with a position in its order, behind the others
  std::shared_ptr<const TClassRecords> Classes; ///< all of them afterwards; null when unchanged
};

/// An entry at one time.
struct TEntryState {
  std::string Packed;                   ///< see Pack
  std::shared_ptr<const TEntryKey> Key; ///< null while it is what the names in the record are

  bool operator==(const TEntryState& other) const { return Packed == other.Packed; }
};

/// What happened to entries that are still at hand.
struct TSnapshotChange {
  struct TEntry {
    std::shared_ptr<deployment::IProjectDeploymentFile> File;
    std::optional<TEntryState> Before;
    std::optional<TEntryState> After;
  };
  /// Places of entries that left or came, ascending.
  using TPlaces =
      std::vector<std::pair<std::size_t, std::shared_ptr<deployment::IProjectDeploymentFile>>>;

  std::vector<TEntry> Entries;
  TPlaces Taken;                                      ///< by place in the list before
  TPlaces Put;                                        ///< by place in the list after
  std::shared_ptr<const TClassRecords> ClassesBefore; ///< null when the classes are the same
  std::shared_ptr<const TClassRecords> ClassesAfter;

  bool IsEmpty() const { return Entries.empty() && !ClassesBefore; }
};

/// The change seen from the state where `direction` starts, in full records.
TListChange ListChangeOf(const TSnapshotChange& change, TDirection direction);

/// Listens to a deployment, which must outlive it, and shares its entries.
class TListSnapshot {
public:
  /// Takes down the whole list. Throws what reading the default deployment throws.
  explicit TListSnapshot(deployment::IProjectDeployment& deployment);
  ~TListSnapshot();
  TListSnapshot(const TListSnapshot&) = delete;
  TListSnapshot& operator=(const TListSnapshot&) = delete;

  /// What is different now; from here on that is how it is.
  TSnapshotChange Collect(TLook look);
  /// Brings the deployment from one side of the change to the other, while it is as this object
  /// knows it. Listeners hear nothing. Returns an entry that was concerned and is held now, or
  /// null.
  deployment::IProjectDeploymentFile* Restore(const TSnapshotChange& change, TDirection direction);
  /// How many entries the last Collect looked at.
  std::size_t LookedAt() const { return FLookedAt; }

private:
  using TFile = deployment::IProjectDeploymentFile;
  struct TNode {
    std::shared_ptr<TFile> File;
    TEntryState State;
  };
  class TListener;

  void CollectOrder(TSnapshotChange& change);
  void CollectValues(TSnapshotChange& change, const deployment::TDeploymentFiles& concerned);
  deployment::TDeploymentFiles Modified() const;
  void CollectClasses(TSnapshotChange& change);
  TEntryState NewState(TFile& file, const TEntryState* before);
  TEntryKey KeyOf(const TFile& file) const;
  TFile* RestoreEntries(const TSnapshotChange& change, TDirection direction);
  void RestoreOrder(const TSnapshotChange& change, TDirection direction);

  deployment::IProjectDeployment& FDeployment;
  std::shared_ptr<TListener> FListener;
  int FListenerIndex;
  deployment::TDeploymentFiles FOrder;
  std::unordered_map<const TFile*, TNode> FNodes;
  deployment::TDeploymentClasses FClasses;
  std::shared_ptr<const TClassRecords> FClassRecords;
  std::size_t FLookedAt = 0;
};

} // namespace workbench
