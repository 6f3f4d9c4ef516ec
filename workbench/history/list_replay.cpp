#include "workbench/history/list_replay.h"

#include "workbench/list/entry_restore.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

using deployment::IProjectDeploymentFile;
using deployment::TDeploymentFiles;

} // namespace

TListReplay::TListReplay(deployment::IProjectDeployment& deployment, TMatching matching)
    : FDeployment(deployment), FMatching(matching), FOrder(deployment.GetFiles()) {}

void TListReplay::Apply(const TListChange& change) {
  const TBlockedNotification silence(FDeployment);
  std::vector<TMatch> matches = Match(change.Entries);
  std::unordered_set<const TFile*> taken;
  bool isMoved = false;
  for (const TMatch& match : matches) {
    taken.insert(match.File.get());
    isMoved = isMoved || match.Difference->Position || !match.Difference->After || !match.File;
    if (match.File && !match.Difference->After)
      FDeployment.RemoveFileEntry(*match.File);
  }
  for (TMatch& match : matches) {
    if (!match.Difference->After)
      continue;
    if (match.File)
      workbench::Apply(*match.Difference->After, *match.File);
    else
      match.File = Make(*match.Difference->After, taken);
    taken.insert(match.File.get());
  }
  if (isMoved)
    Rearrange(matches);
  if (change.Classes)
    RestoreClasses(FDeployment, *change.Classes);
}

std::vector<TListReplay::TMatch> TListReplay::Match(std::span<const TEntryDifference> entries) {
  std::vector<TMatch> matches;
  matches.reserve(entries.size());
  std::unordered_set<const TFile*> taken;
  for (const TEntryDifference& difference : entries) {
    auto file = difference.Before ? Find(*difference.Before, taken) : nullptr;
    if (file)
      taken.insert(file.get());
    matches.push_back({&difference, std::move(file)});
  }
  return matches;
}

TDeploymentFiles TListReplay::FreeFiles(const TEntryKey& names,
                                        const std::unordered_set<const TFile*>& taken) {
  TDeploymentFiles files = FDeployment.FindFiles(names.LocalName, {}, {}, {});
  std::erase_if(files, [&](const auto& file) {
    return taken.contains(file.get()) || file->GetLocalName() != names.LocalName ||
           file->GetConfiguration() != names.Configuration;
  });
  return files;
}

std::shared_ptr<IProjectDeploymentFile>
TListReplay::Find(const TEntryRecord& record, const std::unordered_set<const TFile*>& taken) {
  const TEntryKey& names = record.Names;
  auto held = FDeployment.FindFile(names.Configuration, names.Platform, names.LocalName);
  const auto isFree = [&](const std::shared_ptr<TFile>& file) {
    return file && !taken.contains(file.get()) && file->GetLocalName() == names.LocalName &&
           file->GetConfiguration() == names.Configuration;
  };
  if (isFree(held) && RecordOf(*held) == record)
    return held;
  const TDeploymentFiles candidates = FreeFiles(names, taken);
  const TEntryRecord stored = AsStored(record);
  const auto same = std::ranges::find_if(
      candidates, [&](const auto& file) { return AsStored(RecordOf(*file)) == stored; });
  if (same != candidates.end())
    return *same;
  if (isFree(held))
    return held;
  const auto ofClass = std::ranges::find_if(
      candidates, [&](const auto& file) { return file->GetDeploymentClass() == record.Class; });
  return ofClass == candidates.end() ? nullptr : *ofClass;
}

// The entry that says the same, else one that is on the platform for which the record was made,
// else any of its names and class: a file may have the record in a later state.
std::shared_ptr<IProjectDeploymentFile>
TListReplay::FindStored(const TEntryRecord& record, const std::unordered_set<const TFile*>& taken) {
  const TEntryRecord stored = AsStored(record);
  std::shared_ptr<TFile> best;
  bool isOnPlatform = false;
  for (const auto& file : FreeFiles(record.Names, taken)) {
    const TEntryRecord present = RecordOf(*file);
    if (AsStored(present) == stored)
      return file;
    const bool holdsPlatform =
        std::ranges::find(present.Platforms, record.Names.Platform,
                          &TFilePlatformRecord::Platform) != present.Platforms.end();
    if (present.Class == record.Class && (!best || (holdsPlatform && !isOnPlatform))) {
      best = file;
      isOnPlatform = holdsPlatform;
    }
  }
  return best;
}

// Where the list has got such an entry in another way, that one becomes it.
std::shared_ptr<IProjectDeploymentFile>
TListReplay::Make(const TEntryRecord& record, const std::unordered_set<const TFile*>& taken) {
  const TEntryKey& names = record.Names;
  auto file = FDeployment.FindFile(names.Configuration, names.Platform, names.LocalName);
  if (file && NamesOf(*file) != names)
    file = nullptr;
  if (!file && FMatching == TMatching::ByStoredNames)
    file = FindStored(record, taken);
  if (file) {
    workbench::Apply(record, *file);
    return file;
  }
  file = FDeployment.CreateFile(names.Configuration, names.Platform, names.LocalName);
  workbench::Apply(record, *file);
  AddUnderKey(FDeployment, file, names);
  return file;
}

void TListReplay::Rearrange(const std::vector<TMatch>& matches) {
  std::unordered_set<const TFile*> leaving;
  std::vector<std::pair<std::size_t, std::shared_ptr<TFile>>> coming;
  for (const TMatch& match : matches) {
    const TEntryDifference& difference = *match.Difference;
    if (match.File && (difference.Position || !difference.After))
      leaving.insert(match.File.get());
    if (difference.After && difference.Position)
      coming.emplace_back(*difference.Position, match.File);
  }
  std::ranges::stable_sort(coming, {}, [](const auto& each) { return each.first; });
  TDeploymentFiles order;
  order.reserve(FOrder.size() + coming.size());
  auto next = coming.begin();
  for (const auto& file : FOrder) {
    if (leaving.contains(file.get()))
      continue;
    for (; next != coming.end() && next->first <= order.size(); ++next)
      order.push_back(next->second);
    order.push_back(file);
  }
  for (; next != coming.end(); ++next)
    order.push_back(next->second);
  FOrder = std::move(order);
}

void TListReplay::Finish() {
  const TBlockedNotification silence(FDeployment);
  PutInOrder(FDeployment, FOrder, [](const TFile& file) { return NamesOf(file); });
}

} // namespace workbench
