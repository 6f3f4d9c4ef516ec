#include "workbench/list/list_snapshot.h"

#include "workbench/list/entry_restore.h"
#include "workbench/list/packed_record.h"

#include <algorithm>
#include <unordered_set>

namespace workbench {
namespace {

using deployment::IProjectDeploymentFile;
using deployment::TDeploymentFiles;

using TFileSet = std::unordered_set<const IProjectDeploymentFile*>;
using TPlaces = TSnapshotChange::TPlaces;

// The part of two lists between what they have in common at their ends.
struct TMiddle {
  TMiddle(const TDeploymentFiles& before, const TDeploymentFiles& after)
      : BeforeEnd(before.size()), AfterEnd(after.size()) {
    while (Start < BeforeEnd && Start < AfterEnd && before[Start] == after[Start])
      ++Start;
    while (Start < BeforeEnd && Start < AfterEnd && before[BeforeEnd - 1] == after[AfterEnd - 1]) {
      --BeforeEnd;
      --AfterEnd;
    }
  }

  std::size_t Start = 0;
  std::size_t BeforeEnd;
  std::size_t AfterEnd;
};

TFileSet SetOf(const TDeploymentFiles& files, std::size_t start, std::size_t end) {
  TFileSet set;
  set.reserve(end - start);
  for (std::size_t i = start; i < end; ++i)
    set.insert(files[i].get());
  return set;
}

std::vector<const IProjectDeploymentFile*> Those(const TDeploymentFiles& files, std::size_t start,
                                                 std::size_t end, const TFileSet& wanted) {
  std::vector<const IProjectDeploymentFile*> found;
  for (std::size_t i = start; i < end; ++i) {
    if (wanted.contains(files[i].get()))
      found.push_back(files[i].get());
  }
  return found;
}

TPlaces PlacesWithout(const TDeploymentFiles& files, std::size_t start, std::size_t end,
                      const TFileSet& staying) {
  TPlaces places;
  for (std::size_t i = start; i < end; ++i) {
    if (!staying.contains(files[i].get()))
      places.emplace_back(i, files[i]);
  }
  return places;
}

// The list without the one places and with the others.
TDeploymentFiles Rearranged(const TDeploymentFiles& files, const TPlaces& from, const TPlaces& to) {
  TDeploymentFiles order;
  order.reserve(files.size() - from.size() + to.size());
  auto leaving = from.begin();
  auto coming = to.begin();
  const auto take = [&] {
    for (; coming != to.end() && coming->first == order.size(); ++coming)
      order.push_back(coming->second);
  };
  for (std::size_t i = 0; i < files.size(); ++i) {
    if (leaving != from.end() && leaving->first == i) {
      ++leaving;
      continue;
    }
    take();
    order.push_back(files[i]);
  }
  take();
  return order;
}

std::optional<TEntryRecord> RecordIn(const std::optional<TEntryState>& state) {
  return state ? std::optional(Unpack(state->Packed)) : std::nullopt;
}

} // namespace

class TListSnapshot::TListener final : public deployment::IProjectDeploymentNotifier {
public:
  void ItemChanged(deployment::IProjectDeploymentItem& item,
                   deployment::TDeploymentItemAction action) override {
    const auto* file = dynamic_cast<const TFile*>(&item);
    if (!file) {
      Classes = true;
      return;
    }
    Order = Order || action != deployment::TDeploymentItemAction::Modified;
    // The names of this moment are the key, whatever becomes of them.
    if (action == deployment::TDeploymentItemAction::Added)
      Added.insert_or_assign(file, NamesOf(*file));
    else if (action == deployment::TDeploymentItemAction::Modified && Known.insert(file).second)
      Modified.push_back(file);
  }
  void Loaded(std::string_view /*projectName*/) override { Everything = true; }
  void Destroyed() override {}

  void Forget() {
    Everything = false;
    Order = false;
    Classes = false;
    Added.clear();
    Modified.clear();
    Known.clear();
  }

  bool Everything = false;
  bool Order = false;
  bool Classes = false;
  // Some may be gone by now: these pointers are compared and not followed.
  std::unordered_map<const TFile*, TEntryKey> Added;
  std::vector<const TFile*> Modified;

private:
  TFileSet Known;
};

TListChange ListChangeOf(const TSnapshotChange& change, TDirection direction) {
  const bool back = direction == TDirection::Back;
  const TPlaces& places = back ? change.Taken : change.Put;
  std::unordered_map<const IProjectDeploymentFile*, TEntryDifference> placed;
  for (const auto& [place, file] : places)
    placed[file.get()].Position = place;
  TListChange list;
  list.Entries.reserve(change.Entries.size());
  for (const TSnapshotChange::TEntry& entry : change.Entries) {
    TEntryDifference difference{RecordIn(entry.Before), RecordIn(entry.After), std::nullopt};
    if (back)
      std::swap(difference.Before, difference.After);
    const auto found = placed.find(entry.File.get());
    if (found == placed.end()) {
      list.Entries.push_back(std::move(difference));
      continue;
    }
    difference.Position = found->second.Position;
    found->second = std::move(difference);
  }
  for (const auto& [place, file] : places)
    list.Entries.push_back(std::move(placed.at(file.get())));
  list.Classes = back ? change.ClassesBefore : change.ClassesAfter;
  return list;
}

TListSnapshot::TListSnapshot(deployment::IProjectDeployment& deployment)
    : FDeployment(deployment), FListener(std::make_shared<TListener>()),
      FOrder(deployment.GetFiles()), FClasses(deployment.GetClasses()),
      FClassRecords(std::make_shared<const TClassRecords>(ClassRecordsOf(deployment))) {
  FNodes.reserve(FOrder.size());
  for (const auto& file : FOrder)
    FNodes.emplace(file.get(), TNode{file, {Pack(RecordOf(*file)), nullptr}});
  FListenerIndex = deployment.AddNotifier(FListener);
}

TListSnapshot::~TListSnapshot() {
  FDeployment.RemoveNotifier(FListenerIndex);
}

TSnapshotChange TListSnapshot::Collect(TLook look) {
  FLookedAt = 0;
  const bool everywhere = look == TLook::Everywhere || FListener->Everything;
  TSnapshotChange change;
  if (everywhere || FListener->Order)
    CollectOrder(change);
  CollectValues(change, everywhere ? FOrder : Modified());
  CollectClasses(change);
  FListener->Forget();
  return change;
}

void TListSnapshot::CollectOrder(TSnapshotChange& change) {
  TDeploymentFiles order = FDeployment.GetFiles();
  const TMiddle middle(FOrder, order);
  const TFileSet before = SetOf(FOrder, middle.Start, middle.BeforeEnd);
  TFileSet staying = SetOf(order, middle.Start, middle.AfterEnd);
  std::erase_if(staying, [&](const TFile* file) {
    return !before.contains(file) || FListener->Added.contains(file);
  });
  // Entries come in order of adding, so all others keep theirs; in a list that somebody changed in
  // silence they need not.
  if (Those(FOrder, middle.Start, middle.BeforeEnd, staying) !=
      Those(order, middle.Start, middle.AfterEnd, staying))
    staying.clear();
  change.Taken = PlacesWithout(FOrder, middle.Start, middle.BeforeEnd, staying);
  change.Put = PlacesWithout(order, middle.Start, middle.AfterEnd, staying);
  FOrder = std::move(order);

  for (const auto& [place, file] : change.Put) {
    const auto node = FNodes.find(file.get());
    const TEntryState* former = node == FNodes.end() ? nullptr : &node->second.State;
    TSnapshotChange::TEntry entry{file, std::nullopt, NewState(*file, former)};
    if (former)
      entry.Before = *former;
    FNodes.insert_or_assign(file.get(), TNode{file, *entry.After});
    change.Entries.push_back(std::move(entry));
  }
  const TFileSet put = [&] {
    TFileSet files;
    for (const auto& [place, file] : change.Put)
      files.insert(file.get());
    return files;
  }();
  for (const auto& [place, file] : change.Taken) {
    if (put.contains(file.get()))
      continue;
    const auto node = FNodes.find(file.get());
    change.Entries.push_back({file, std::move(node->second.State), std::nullopt});
    FNodes.erase(node);
  }
}

TDeploymentFiles TListSnapshot::Modified() const {
  TDeploymentFiles files;
  files.reserve(FListener->Modified.size());
  for (const TFile* file : FListener->Modified) {
    if (const auto node = FNodes.find(file); node != FNodes.end())
      files.push_back(node->second.File);
  }
  return files;
}

// What came with the order is as it is now already.
void TListSnapshot::CollectValues(TSnapshotChange& change, const TDeploymentFiles& concerned) {
  for (const auto& file : concerned) {
    TNode& node = FNodes.at(file.get());
    TEntryState state = NewState(*file, &node.State);
    if (state == node.State) {
      node.State.Key = std::move(state.Key);
      continue;
    }
    change.Entries.push_back({file, std::exchange(node.State, state), state});
  }
}

TEntryState TListSnapshot::NewState(TFile& file, const TEntryState* before) {
  ++FLookedAt;
  const TEntryRecord record = RecordOf(file);
  TEntryState state{Pack(record), nullptr};
  TEntryKey key = record.Names;
  const auto added = FListener->Added.find(&file);
  if (added != FListener->Added.end())
    key = added->second;
  else if (before && before->Packed != state.Packed)
    key = before->Key ? *before->Key : Unpack(before->Packed).Names;
  else if (before)
    state.Key = before->Key;
  if (key != record.Names)
    state.Key = std::make_shared<const TEntryKey>(std::move(key));
  return state;
}

void TListSnapshot::CollectClasses(TSnapshotChange& change) {
  deployment::TDeploymentClasses classes = FDeployment.GetClasses();
  if (classes == FClasses && !FListener->Classes)
    return;
  FClasses = std::move(classes);
  auto records = std::make_shared<const TClassRecords>(ClassRecordsOf(FDeployment));
  if (*records == *FClassRecords)
    return;
  change.ClassesBefore = std::exchange(FClassRecords, records);
  change.ClassesAfter = std::move(records);
}

deployment::IProjectDeploymentFile* TListSnapshot::Restore(const TSnapshotChange& change,
                                                           TDirection direction) {
  const TBlockedNotification silence(FDeployment);
  TFile* held = RestoreEntries(change, direction);
  RestoreOrder(change, direction);
  if (change.ClassesBefore) {
    FClassRecords = direction == TDirection::Back ? change.ClassesBefore : change.ClassesAfter;
    RestoreClasses(FDeployment, *FClassRecords);
    FClasses = FDeployment.GetClasses();
  }
  return held;
}

// What goes makes room for the keys of what comes.
TListSnapshot::TFile* TListSnapshot::RestoreEntries(const TSnapshotChange& change,
                                                    TDirection direction) {
  const bool back = direction == TDirection::Back;
  TFile* held = nullptr;
  for (const TSnapshotChange::TEntry& entry : change.Entries) {
    if (back ? !entry.Before : !entry.After) {
      FDeployment.RemoveFileEntry(*entry.File);
      FNodes.erase(entry.File.get());
    }
  }
  for (const TSnapshotChange::TEntry& entry : change.Entries) {
    const std::optional<TEntryState>& from = back ? entry.After : entry.Before;
    const std::optional<TEntryState>& to = back ? entry.Before : entry.After;
    if (!to)
      continue;
    Apply(Unpack(to->Packed), *entry.File);
    FNodes.insert_or_assign(entry.File.get(), TNode{entry.File, *to});
    if (!from)
      AddUnderKey(FDeployment, entry.File, KeyOf(*entry.File));
    held = entry.File.get();
  }
  return held;
}

void TListSnapshot::RestoreOrder(const TSnapshotChange& change, TDirection direction) {
  if (change.Taken.empty() && change.Put.empty())
    return;
  FOrder = direction == TDirection::Back ? Rearranged(FOrder, change.Put, change.Taken)
                                         : Rearranged(FOrder, change.Taken, change.Put);
  PutInOrder(FDeployment, FOrder, [this](const TFile& file) { return KeyOf(file); });
}

TEntryKey TListSnapshot::KeyOf(const TFile& file) const {
  const TEntryState& state = FNodes.at(&file).State;
  return state.Key ? *state.Key : Unpack(state.Packed).Names;
}

} // namespace workbench
