#include "workbench/explain/list_changes.h"

#include "workbench/list/packed_record.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>
#include <unordered_set>

namespace workbench {
namespace {

using deployment::IProjectDeploymentFile;
using deployment::TDeploymentItemAction;

// One side of a change of one entry.
struct TSide {
  std::size_t Entry; ///< which of the changes it is
  TEntryRecord Record;
};

// What happened to the entries of a list, as a reader of the list sees it.
struct TSortedChanges {
  std::vector<TSide> Added;
  std::vector<TSide> Modified;
  std::vector<TSide> Replaced; ///< made anew under the names of one that went
  std::vector<TSide> Removed;
};

void Append(std::string& text, std::string_view part) {
  text.append(part).push_back('\0');
}

// What tells an entry from others for a reader of the list.
std::string ShownNamesOf(const TEntryRecord& record) {
  std::string text;
  Append(text, record.Names.Configuration);
  Append(text, record.Names.LocalName);
  Append(text, record.Class);
  for (const TFilePlatformRecord& platform : record.Platforms)
    Append(text, platform.Platform);
  return text;
}

// All that is stored of an entry. The platform that it was added for is not.
std::string ContentOf(TEntryRecord record) {
  record.Names.Platform.clear();
  return Pack(record);
}

TChangedEntry ToldOf(const TEntryRecord& record) {
  const std::string& configuration = record.Names.Configuration;
  std::string target =
      configuration.empty() ? std::string(deployment::BaseConfiguration) : configuration;
  const char* separator = ", ";
  for (const TFilePlatformRecord& platform : record.Platforms)
    target += separator + platform.Platform;
  return {record.Names.LocalName, record.Class, target};
}

// Takes pairs out of both lists that have the same key; tells of each.
template <class TKey, class TPaired>
void TakePairs(std::vector<TSide>& added, std::vector<TSide>& removed, TKey key, TPaired paired) {
  std::unordered_multimap<std::string, std::size_t> byKey;
  for (const TSide& side : removed)
    byKey.emplace(key(side.Record), side.Entry);
  std::erase_if(added, [&](const TSide& side) {
    const auto found = byKey.find(key(side.Record));
    if (found == byKey.end())
      return false;
    paired(side);
    byKey.erase(found);
    return true;
  });
  std::unordered_set<std::size_t> left;
  for (const auto& [ignored, entry] : byKey)
    left.insert(entry);
  std::erase_if(removed, [&](const TSide& side) { return !left.contains(side.Entry); });
}

// `side` gives the record of an entry before or after, or nothing.
template <class TSideOf>
TSortedChanges Sort(std::size_t count, TSideOf sideOf) {
  TSortedChanges sorted;
  for (std::size_t i = 0; i < count; ++i) {
    std::optional<TEntryRecord> before = sideOf(i, /*after=*/false);
    std::optional<TEntryRecord> after = sideOf(i, /*after=*/true);
    if (!before && after)
      sorted.Added.push_back({i, std::move(*after)});
    else if (before && !after)
      sorted.Removed.push_back({i, std::move(*before)});
    else if (before && after && ContentOf(*before) != ContentOf(*after))
      sorted.Modified.push_back({i, std::move(*after)});
  }
  TakePairs(sorted.Added, sorted.Removed, ContentOf, [](const TSide&) {});
  TakePairs(sorted.Added, sorted.Removed, ShownNamesOf,
            [&](const TSide& side) { sorted.Replaced.push_back(side); });
  return sorted;
}

TSortedChanges Sort(const TSnapshotChange& change) {
  return Sort(change.Entries.size(), [&](std::size_t i, bool after) -> std::optional<TEntryRecord> {
    const auto& state = after ? change.Entries[i].After : change.Entries[i].Before;
    return state ? std::optional(Unpack(state->Packed)) : std::nullopt;
  });
}

std::vector<TChangedEntry> ToldOf(const std::vector<TSide>& sides) {
  std::vector<TChangedEntry> told;
  told.reserve(sides.size());
  for (const TSide& side : sides)
    told.push_back(ToldOf(side.Record));
  return told;
}

} // namespace

// Remembers with which target an entry was last changed in each way.
class TListChanges::TListener final : public deployment::IProjectDeploymentNotifier {
public:
  void ItemChanged(deployment::IProjectDeploymentItem& item,
                   TDeploymentItemAction action) override {
    auto* file = dynamic_cast<IProjectDeploymentFile*>(&item);
    if (!file)
      return;
    if (action == TDeploymentItemAction::Removed &&
        TargetOf(*file, TDeploymentItemAction::Added) != FTarget)
      FRemoved.push_back(RecordOf(*file));
    FTargets[static_cast<std::size_t>(action)][file] = FTarget;
  }
  void Loaded(std::string_view /*projectName*/) override {}
  void Destroyed() override {}

  void StartTarget() { FTarget = FCount++; }
  std::size_t Count() const { return FCount; }
  // The last target where it is not known: what replaced an entry came after it.
  std::size_t TargetOf(const IProjectDeploymentFile& file, TDeploymentItemAction action) const {
    const auto& targets = FTargets[static_cast<std::size_t>(action)];
    const auto found = targets.find(&file);
    return found == targets.end() ? std::max<std::size_t>(FCount, 1) - 1 : found->second;
  }

  // What a target took out that did not come with it.
  const std::vector<TEntryRecord>& Removed() const { return FRemoved; }

private:
  std::size_t FTarget = 0;
  std::size_t FCount = 0;
  std::vector<TEntryRecord> FRemoved;
  std::array<std::unordered_map<const IProjectDeploymentFile*, std::size_t>, 3> FTargets;
};

TTargetChanges ChangesOf(const TListChange& change) {
  const TSortedChanges sorted = Sort(
      change.Entries.size(), [&](std::size_t i, bool after) -> const std::optional<TEntryRecord>& {
        return after ? change.Entries[i].After : change.Entries[i].Before;
      });
  TTargetChanges changes{ToldOf(sorted.Added), ToldOf(sorted.Modified), ToldOf(sorted.Removed)};
  for (const TSide& side : sorted.Replaced)
    changes.Modified.push_back(ToldOf(side.Record));
  return changes;
}

TListChanges::TListChanges(deployment::IProjectDeployment& deployment)
    : FDeployment(deployment), FSnapshot(deployment), FListener(std::make_shared<TListener>()),
      FListenerIndex(deployment.AddNotifier(FListener)) {}

TListChanges::~TListChanges() {
  FDeployment.RemoveNotifier(FListenerIndex);
}

void TListChanges::StartTarget() {
  FListener->StartTarget();
}

std::vector<TTargetChanges> TListChanges::Finish() {
  std::vector<TTargetChanges> changes(std::max<std::size_t>(FListener->Count(), 1));
  const TSnapshotChange change = FSnapshot.Collect(TLook::Everywhere);
  const auto targetOf = [&](const TSide& side, TDeploymentItemAction action) -> TTargetChanges& {
    return changes[FListener->TargetOf(*change.Entries[side.Entry].File, action)];
  };
  FindLost(change);
  const TSortedChanges sorted = Sort(change);
  for (const TSide& side : sorted.Modified)
    targetOf(side, TDeploymentItemAction::Modified).Modified.push_back(ToldOf(side.Record));
  for (const TSide& side : sorted.Replaced)
    targetOf(side, TDeploymentItemAction::Added).Modified.push_back(ToldOf(side.Record));
  for (const TSide& side : sorted.Added)
    targetOf(side, TDeploymentItemAction::Added).Added.push_back(ToldOf(side.Record));
  for (const TSide& side : sorted.Removed)
    targetOf(side, TDeploymentItemAction::Removed).Removed.push_back(ToldOf(side.Record));
  return changes;
}

void TListChanges::FindLost(const TSnapshotChange& change) {
  if (FListener->Removed().empty())
    return;
  // What was there before is there now, or is part of the change.
  std::unordered_set<std::string> known;
  for (const TSnapshotChange::TEntry& entry : change.Entries)
    known.insert(ShownNamesOf(entry.Before ? Unpack(entry.Before->Packed) : TEntryRecord()));
  for (const auto& file : FDeployment.GetFiles())
    known.insert(ShownNamesOf(RecordOf(*file)));
  for (const TEntryRecord& record : FListener->Removed()) {
    if (known.insert(ShownNamesOf(record)).second)
      FLost.push_back(ToldOf(record));
  }
}

} // namespace workbench
