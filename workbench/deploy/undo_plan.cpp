#include "workbench/deploy/undo_plan.h"

#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <array>
#include <optional>
#include <unordered_map>
#include <utility>

namespace workbench {
namespace {

// What a content is compared with: size and time, and the hash where the record knows it.
struct TExpected {
  TContentMark Mark;
  std::string Hash;
};

class TUndoPlanner {
public:
  TUndoPlanner(IRemoteConnection& connection, const TUndoManifest& manifest,
               const TTargetRecord& record)
      : FConnection(connection), FManifest(manifest), FRecord(record) {}

  std::vector<TUndoItem> Make(const TUndoStore& store, const TForeseen& foreseen) {
    FItems.reserve(FManifest.Files.size());
    for (const TUndoFile& file : FManifest.Files)
      FItems.push_back({.File = file});
    Resolve();
    Examine(store, foreseen);
    ReadLinks(foreseen);
    AskHashes();
    for (std::size_t i = 0; i < FItems.size(); ++i) {
      if (FItems[i].Reason.empty())
        Decide(FItems[i], FThere[i], FIsPut[i]);
    }
    return std::move(FItems);
  }

private:
  void Resolve();
  void Examine(const TUndoStore& store, const TForeseen& foreseen);
  void ReadLinks(const TForeseen& foreseen);
  void AskHashes();
  void Decide(TUndoItem& item, const TThere& there, bool isPut) const;
  void DecideReplaced(TUndoItem& item, const TThere& there, bool isPut) const;
  static bool IsAsBefore(const TUndoFile& file, const TThere& there);
  std::optional<TExpected> ExpectedOf(const TUndoFile& file) const;

  static void Refuse(TUndoItem& item, std::string reason) {
    item.Action = TUndoAction::Refused;
    item.Reason = std::move(reason);
  }

  IRemoteConnection& FConnection;
  const TUndoManifest& FManifest;
  const TTargetRecord& FRecord;
  std::vector<TUndoItem> FItems;
  std::vector<TThere> FThere; // of each item
  std::vector<bool> FIsKept;  // what was kept of it is there
  std::vector<bool> FIsPut;   // what the deploy put there is there
};

void TUndoPlanner::Resolve() {
  std::unordered_map<std::string, std::size_t> indexOf;
  std::vector<std::string> directories;
  std::vector<std::size_t> directoryOf;
  for (TUndoItem& item : FItems) {
    const std::size_t end = item.File.Path.find_last_of('/');
    const std::string directory =
        end == std::string::npos ? std::string() : item.File.Path.substr(0, end);
    item.Target.Name = item.File.Path.substr(end == std::string::npos ? 0 : end + 1);
    const auto [entry, isNew] = indexOf.emplace(directory, directories.size());
    if (isNew)
      directories.push_back(directory);
    directoryOf.push_back(entry->second);
  }
  const std::vector<TRemoteDirectory> found = FConnection.Resolve(directories);
  for (std::size_t i = 0; i < FItems.size(); ++i) {
    const TRemoteDirectory& directory = found[directoryOf[i]];
    FItems[i].Target.Directory = directory.Path;
    FItems[i].DirectoryExists = directory.Exists;
    if (!directory.Problem.empty())
      Refuse(FItems[i], directory.Problem);
    else if (!directory.IsInside)
      Refuse(FItems[i], "its directory leads out of the profile's path now");
  }
}

void TUndoPlanner::Examine(const TUndoStore& store, const TForeseen& foreseen) {
  std::vector<TRemoteName> names;
  std::vector<TRemoteName> kept;
  std::vector<std::size_t> itemOf;
  std::vector<std::size_t> keptOf;
  for (std::size_t i = 0; i < FItems.size(); ++i) {
    const TUndoItem& item = FItems[i];
    if (item.Reason.empty() && item.DirectoryExists) {
      names.push_back(item.Target);
      itemOf.push_back(i);
    }
    if (item.File.Kind == TUndoKind::Restore) {
      kept.push_back(store.KeptName(FManifest.Run.Id, item.File.Kept));
      keptOf.push_back(i);
    }
  }
  FThere.resize(FItems.size());
  FIsKept.assign(FItems.size(), false);
  const std::vector<TRemoteStatus> there = FConnection.Examine(names);
  for (std::size_t i = 0; i < there.size(); ++i)
    FThere[itemOf[i]].Status = there[i];
  const std::vector<TRemoteStatus> answers = FConnection.Examine(kept);
  for (std::size_t i = 0; i < answers.size(); ++i)
    FIsKept[keptOf[i]] = answers[i].Kind == TRemoteKind::File;
  for (std::size_t i = 0; i < FItems.size(); ++i) {
    if (const auto later = foreseen.find(FItems[i].File.Path); later != foreseen.end())
      FThere[i] = later->second;
    const std::string& problem = FThere[i].Status.Problem;
    if (!problem.empty())
      Refuse(FItems[i], "it cannot be examined: " + problem);
  }
}

void TUndoPlanner::ReadLinks(const TForeseen& foreseen) {
  std::vector<TRemoteName> names;
  std::vector<std::size_t> itemOf;
  for (std::size_t i = 0; i < FItems.size(); ++i) {
    if (FThere[i].Status.Kind != TRemoteKind::Link || foreseen.contains(FItems[i].File.Path))
      continue;
    names.push_back(FItems[i].Target);
    itemOf.push_back(i);
  }
  if (names.empty())
    return;
  std::vector<TRemoteLink> links = FConnection.ReadLinks(names);
  for (std::size_t i = 0; i < links.size(); ++i)
    FThere[itemOf[i]].Link = std::move(links[i].Text);
}

// The record knows better than the manifest what was put there: a file may have changed between
// the plan and its copy.
std::optional<TExpected> TUndoPlanner::ExpectedOf(const TUndoFile& file) const {
  if (!file.Put)
    return std::nullopt;
  const auto recorded = FRecord.Files.find(file.Path);
  if (recorded != FRecord.Files.end() && recorded->second.Run == FManifest.Run.Id)
    return TExpected{{recorded->second.Size, recorded->second.Time}, recorded->second.Hash};
  return TExpected{*file.Put, {}};
}

// Size and time tell most contents; the others are asked for at once.
void TUndoPlanner::AskHashes() {
  FIsPut.assign(FItems.size(), false);
  std::vector<TRemoteName> names;
  std::vector<std::size_t> asked;
  for (std::size_t i = 0; i < FItems.size(); ++i) {
    const TRemoteStatus& there = FThere[i].Status;
    const auto expected = ExpectedOf(FItems[i].File);
    if (!FItems[i].File.PutLink.empty()) {
      FIsPut[i] = there.Kind == TRemoteKind::Link && FThere[i].Link == FItems[i].File.PutLink;
      continue;
    }
    if (!expected || there.Kind != TRemoteKind::File || there.Size != expected->Mark.Size)
      continue;
    FIsPut[i] = WholeSeconds(there.Modified) == expected->Mark.Time;
    if (FIsPut[i] || expected->Hash.empty())
      continue;
    names.push_back(FItems[i].Target);
    asked.push_back(i);
  }
  if (names.empty())
    return;
  const std::vector<std::string> hashes = FConnection.Hashes(names);
  for (std::size_t i = 0; i < asked.size(); ++i)
    FIsPut[asked[i]] = hashes[i] == ExpectedOf(FItems[asked[i]].File)->Hash;
}

void TUndoPlanner::Decide(TUndoItem& item, const TThere& there, bool isPut) const {
  const bool isThere = there.Status.Kind != TRemoteKind::None;
  switch (item.File.Kind) {
  case TUndoKind::Remove:
    if (isPut)
      item.Action = TUndoAction::Removed;
    else if (isThere)
      Refuse(item, "it was changed on the target since");
    return;
  case TUndoKind::Touch:
    if (isPut)
      item.Action = TUndoAction::Restored;
    else
      Refuse(item, "it was changed on the target since");
    return;
  case TUndoKind::Restore:
  case TUndoKind::Link:
    DecideReplaced(item, there, isPut);
    return;
  }
}

bool TUndoPlanner::IsAsBefore(const TUndoFile& file, const TThere& there) {
  const TRemoteStatus& status = there.Status;
  if (file.Kind == TUndoKind::Link)
    return status.Kind == TRemoteKind::Link && there.Link == file.Link;
  return status.Kind == TRemoteKind::File && status.Size == file.Before->Size &&
         WholeSeconds(status.Modified) == file.Before->Time;
}

void TUndoPlanner::DecideReplaced(TUndoItem& item, const TThere& there, bool isPut) const {
  const TUndoFile& file = item.File;
  const auto index = static_cast<std::size_t>(&item - FItems.data());
  const bool isThere = there.Status.Kind != TRemoteKind::None;
  const bool canRestore = file.Kind == TUndoKind::Link || FIsKept[index];
  const bool isAsBefore = IsAsBefore(file, there);
  const bool isAsDeployed = file.Put ? isPut : !isThere;
  if (isAsDeployed && canRestore)
    item.Action = TUndoAction::Restored;
  else if (isAsBefore)
    item.Action = TUndoAction::Unchanged;
  else if (isAsDeployed)
    Refuse(item, "what was kept of it is gone");
  else
    Refuse(item,
           isThere ? "it was changed on the target since" : "it was removed from the target since");
}

} // namespace

std::string_view UndoActionName(TUndoAction action) {
  constexpr std::array<std::string_view, UndoActionCount> Names{"restored", "removed", "unchanged",
                                                                "refused", "failed"};
  return Names[static_cast<std::size_t>(action)];
}

std::vector<TUndoItem> PlanUndo(IRemoteConnection& connection, const TUndoStore& store,
                                const TUndoManifest& manifest, const TTargetRecord& record,
                                const TForeseen& foreseen) {
  return TUndoPlanner(connection, manifest, record).Make(store, foreseen);
}

void Foresee(const std::vector<TUndoItem>& items, TForeseen& foreseen) {
  for (const TUndoItem& item : items) {
    if (item.Action == TUndoAction::Removed)
      foreseen.insert_or_assign(item.File.Path, TThere());
    if (item.Action != TUndoAction::Restored)
      continue;
    TRemoteStatus status{.Kind = item.File.Kind == TUndoKind::Link ? TRemoteKind::Link
                                                                   : TRemoteKind::File,
                         .Mode = item.File.Mode};
    if (item.File.Before) {
      status.Size = item.File.Before->Size;
      status.Modified = deployment::TFileTime(std::chrono::seconds(item.File.Before->Time));
    }
    foreseen.insert_or_assign(item.File.Path, TThere{status, item.File.Link});
  }
}

void TakeBackInRecord(const std::vector<TUndoItem>& items, TTargetRecord& record) {
  for (const TUndoItem& item : items) {
    const TUndoFile& file = item.File;
    if (item.Action == TUndoAction::Refused || item.Action == TUndoAction::Failed)
      continue;
    if (file.Recorded)
      record.Files.insert_or_assign(file.Path, *file.Recorded);
    else
      record.Files.erase(file.Path);
    if (file.Owed.empty())
      record.Owed.erase(file.Path);
    else
      record.Owed.insert_or_assign(file.Path, file.Owed);
  }
}

} // namespace workbench
