#include "workbench/history/list_replay.h"

#include "workbench/list/entry_restore.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

using deployment::IProjectDeploymentFile;
using deployment::TDeploymentFiles;

// What a project file keeps of the record: of several commands the last one, and the platform for
// which an entry was made not at all.
TEntryRecord AsStored(TEntryRecord record) {
  record.Names.Platform.clear();
  for (TFilePlatformRecord& platform : record.Platforms) {
    for (auto* commands : {&platform.LocalCommands, &platform.RemoteCommands}) {
      if (commands->size() > 1)
        commands->erase(commands->begin(), commands->end() - 1);
    }
  }
  return record;
}

} // namespace

TListReplay::TListReplay(deployment::IProjectDeployment& deployment)
    : FDeployment(deployment), FOrder(deployment.GetFiles()) {}

void TListReplay::Apply(const TListChange& change) {
  const TBlockedNotification silence(FDeployment);
  std::vector<TMatch> matches = Match(change.Entries);
  bool isMoved = false;
  for (const TMatch& match : matches) {
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
      match.File = Make(*match.Difference->After);
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

std::shared_ptr<IProjectDeploymentFile>
TListReplay::Find(const TEntryRecord& record, const std::unordered_set<const TFile*>& taken) {
  const TEntryKey& names = record.Names;
  const auto isFree = [&](const std::shared_ptr<TFile>& file) {
    return file && !taken.contains(file.get()) && file->GetLocalName() == names.LocalName &&
           file->GetConfiguration() == names.Configuration;
  };
  auto held = FDeployment.FindFile(names.Configuration, names.Platform, names.LocalName);
  if (isFree(held) && RecordOf(*held) == record)
    return held;
  TDeploymentFiles candidates = FDeployment.FindFiles(names.LocalName, {}, {}, {});
  std::erase_if(candidates, [&](const auto& file) { return !isFree(file); });
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

// Where the list has got such an entry in another way, that one becomes it.
std::shared_ptr<IProjectDeploymentFile> TListReplay::Make(const TEntryRecord& record) {
  const TEntryKey& names = record.Names;
  auto file = FDeployment.FindFile(names.Configuration, names.Platform, names.LocalName);
  if (file && NamesOf(*file) == names) {
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
