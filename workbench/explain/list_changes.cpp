#include "workbench/explain/list_changes.h"

#include "workbench/list/packed_record.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>

namespace workbench {
namespace {

using deployment::IProjectDeploymentFile;
using deployment::TDeploymentItemAction;

// An entry of which something is told, on the side on which it is told.
struct TSide {
  const IProjectDeploymentFile* File;
  TEntryRecord Record;
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

TEntryRecord RecordBefore(const TSnapshotChange::TEntry& entry) {
  return entry.Before ? Unpack(entry.Before->Packed) : TEntryRecord();
}

TEntryRecord RecordAfter(const TSnapshotChange::TEntry& entry) {
  return entry.After ? Unpack(entry.After->Packed) : TEntryRecord();
}

// Takes pairs out of both lists that have the same key; tells of each.
template <class TKey, class TPaired>
void TakePairs(std::vector<TSide>& added, std::vector<TSide>& removed, TKey key, TPaired paired) {
  std::unordered_multimap<std::string, const IProjectDeploymentFile*> byKey;
  for (const TSide& side : removed)
    byKey.emplace(key(side.Record), side.File);
  std::erase_if(added, [&](const TSide& side) {
    const auto found = byKey.find(key(side.Record));
    if (found == byKey.end())
      return false;
    paired(side);
    byKey.erase(found);
    return true;
  });
  std::unordered_set<const IProjectDeploymentFile*> left;
  for (const auto& [ignored, file] : byKey)
    left.insert(file);
  std::erase_if(removed, [&](const TSide& side) { return !left.contains(side.File); });
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
  const auto targetOf = [&](const TSide& side, TDeploymentItemAction action) -> TTargetChanges& {
    return changes[FListener->TargetOf(*side.File, action)];
  };
  const TSnapshotChange change = FSnapshot.Collect(TLook::Everywhere);
  std::vector<TSide> added;
  std::vector<TSide> removed;
  for (const TSnapshotChange::TEntry& entry : change.Entries) {
    const TSide before{entry.File.get(), RecordBefore(entry)};
    const TSide after{entry.File.get(), RecordAfter(entry)};
    if (!entry.Before)
      added.push_back(after);
    else if (!entry.After)
      removed.push_back(before);
    else if (ContentOf(before.Record) != ContentOf(after.Record))
      targetOf(after, TDeploymentItemAction::Modified).Modified.push_back(ToldOf(after.Record));
  }
  FindLost(change);
  TakePairs(added, removed, ContentOf, [](const TSide&) {});
  TakePairs(added, removed, ShownNamesOf, [&](const TSide& side) {
    targetOf(side, TDeploymentItemAction::Added).Modified.push_back(ToldOf(side.Record));
  });
  for (const TSide& side : added)
    targetOf(side, TDeploymentItemAction::Added).Added.push_back(ToldOf(side.Record));
  for (const TSide& side : removed)
    targetOf(side, TDeploymentItemAction::Removed).Removed.push_back(ToldOf(side.Record));
  return changes;
}

void TListChanges::FindLost(const TSnapshotChange& change) {
  if (FListener->Removed().empty())
    return;
  // What was there before is there now, or is part of the change.
  std::unordered_set<std::string> known;
  for (const TSnapshotChange::TEntry& entry : change.Entries)
    known.insert(ShownNamesOf(RecordBefore(entry)));
  for (const auto& file : FDeployment.GetFiles())
    known.insert(ShownNamesOf(RecordOf(*file)));
  for (const TEntryRecord& record : FListener->Removed()) {
    if (known.insert(ShownNamesOf(record)).second)
      FLost.push_back(ToldOf(record));
  }
}

} // namespace workbench
