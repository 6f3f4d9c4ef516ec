#include "workbench/deploy/undo_keeping.h"

#include "workbench/remote/target/file_times.h"

#include <optional>
#include <unordered_map>
#include <unordered_set>
#include <utility>

namespace workbench {
namespace {

using deployment::TDeployOperation;

TContentMark MarkOf(std::uint64_t size, deployment::TFileTime time) {
  return {size, WholeSeconds(time)};
}

// How the file is taken back; nothing for one that stays as it is, or cannot be kept.
std::optional<TUndoKind> KindOf(const TPlannedFile& file) {
  const bool isThere = file.There.Kind != TRemoteKind::None;
  if (file.RecordPath.empty())
    return std::nullopt;
  if (file.Action == TDeployAction::Copied && !isThere)
    return file.File.Operation == TDeployOperation::RunAndRemove ? std::nullopt
                                                                 : std::optional(TUndoKind::Remove);
  if (file.Action == TDeployAction::Copied || (file.Action == TDeployAction::Removed && isThere)) {
    if (file.There.Kind == TRemoteKind::Link)
      return TUndoKind::Link;
    return file.There.Kind == TRemoteKind::File ? std::optional(TUndoKind::Restore) : std::nullopt;
  }
  const bool isTouched = file.Action == TDeployAction::Mode ||
                         (file.Action == TDeployAction::Unchanged && file.TimeDiffers);
  return isTouched ? std::optional(TUndoKind::Touch) : std::nullopt;
}

// Looks at the files of a plan, and makes what the manifest says of each when it is written: there
// may be a hundred thousand.
class TUndoKeeping {
public:
  TUndoKeeping(IRemoteConnection& connection, const TDeployPlan& plan, const TTargetRecord& record)
      : FConnection(connection), FPlan(plan), FRecord(record) {}

  void Collect() {
    for (std::size_t i = 0; i < FPlan.Files.size(); ++i) {
      if (const auto kind = KindOf(FPlan.Files[i]))
        FItems.push_back({i, *kind});
    }
    ReadLinks();
    FindNewDirectories();
  }
  bool IsEmpty() const { return FItems.empty(); }
  /// What is replaced and removed.
  std::uint64_t Bytes() const;
  /// The object must outlive it.
  TKeptRun Request(const TRecordedRun& run) const;

private:
  struct TItem {
    std::size_t Index; // of the plan
    TUndoKind Kind;
  };

  const TPlannedFile& FileOf(const TItem& item) const { return FPlan.Files[item.Index]; }
  static std::string KeptName(std::size_t item) { return std::to_string(item + 1); }
  TUndoFile UndoFileOf(std::size_t number) const;
  void ReadLinks();
  void FindNewDirectories();

  IRemoteConnection& FConnection;
  const TDeployPlan& FPlan;
  const TTargetRecord& FRecord;
  std::vector<TItem> FItems;
  std::unordered_map<std::size_t, std::string> FLinks; // what they store, by index of the plan
  std::vector<std::string> FDirectories;
};

std::uint64_t TUndoKeeping::Bytes() const {
  std::uint64_t bytes = 0;
  for (const TItem& item : FItems)
    bytes += item.Kind == TUndoKind::Restore ? FileOf(item).There.Size : 0;
  return bytes;
}

TKeptRun TUndoKeeping::Request(const TRecordedRun& run) const {
  TKeptRun request{.Run = run.Id, .Bytes = Bytes()};
  request.WriteManifest = [this, &run](const TTakeText& take) {
    std::size_t number = 0;
    const TNextUndoFile next = [&](TUndoFile& file) {
      if (number == FItems.size())
        return false;
      file = UndoFileOf(number++);
      return true;
    };
    WriteUndoManifest(run, FDirectories, next, take);
  };
  for (std::size_t i = 0; i < FItems.size(); ++i) {
    if (FItems[i].Kind == TUndoKind::Restore)
      request.Files.emplace_back(FileOf(FItems[i]).Target, KeptName(i));
  }
  return request;
}

TUndoFile TUndoKeeping::UndoFileOf(std::size_t number) const {
  const TItem& item = FItems[number];
  const TPlannedFile& file = FileOf(item);
  TUndoFile kept{.Kind = item.Kind, .Path = file.RecordPath, .PutLink = file.Link};
  if (file.Action != TDeployAction::Removed &&
      file.File.Operation != TDeployOperation::RunAndRemove)
    kept.Put = MarkOf(file.Local.Size, file.Local.Time);
  if (item.Kind != TUndoKind::Remove) {
    kept.Before = MarkOf(file.There.Size, file.There.Modified);
    kept.Mode = file.There.Mode;
  }
  if (item.Kind == TUndoKind::Restore)
    kept.Kept = KeptName(number);
  if (const auto link = FLinks.find(item.Index); link != FLinks.end())
    kept.Link = link->second;
  if (const auto recorded = FRecord.Files.find(file.RecordPath); recorded != FRecord.Files.end())
    kept.Recorded = recorded->second;
  if (const auto owed = FRecord.Owed.find(file.RecordPath); owed != FRecord.Owed.end())
    kept.Owed = owed->second;
  return kept;
}

void TUndoKeeping::ReadLinks() {
  std::vector<TRemoteName> names;
  std::vector<std::size_t> indexes;
  for (const TItem& item : FItems) {
    if (item.Kind != TUndoKind::Link)
      continue;
    names.push_back(FileOf(item).Target);
    indexes.push_back(item.Index);
  }
  if (names.empty())
    return;
  const std::vector<TRemoteLink> links = FConnection.ReadLinks(names);
  for (std::size_t i = 0; i < links.size(); ++i) {
    if (!links[i].Text.empty())
      FLinks.emplace(indexes[i], links[i].Text);
  }
  // One that cannot be read cannot be made again.
  std::erase_if(FItems, [this](const TItem& item) {
    return item.Kind == TUndoKind::Link && !FLinks.contains(item.Index);
  });
}

// Those that are not there yet, up to the profile's path.
void TUndoKeeping::FindNewDirectories() {
  const std::string root = FConnection.Root();
  std::unordered_set<std::string> known;
  std::vector<std::string> asked;
  for (const TItem& item : FItems) {
    std::string directory = FileOf(item).Target.Directory;
    while (item.Kind == TUndoKind::Remove && directory.size() > root.size() &&
           known.insert(directory).second) {
      asked.push_back(directory);
      directory.resize(directory.find_last_of('/'));
    }
  }
  const std::vector<TRemoteDirectory> found = FConnection.Resolve(asked);
  for (std::size_t i = 0; i < asked.size(); ++i) {
    if (!found[i].Exists)
      FDirectories.push_back(asked[i].substr(root.size() + 1));
  }
}

} // namespace

std::string KeepForUndo(IRemoteConnection& connection, TUndoStore& store, const TDeployPlan& plan,
                        const TTargetRecord& record, const TRecordedRun& run,
                        const TUndoLimits& limits) {
  TUndoKeeping keeping(connection, plan, record);
  keeping.Collect();
  if (keeping.IsEmpty() || limits.Runs == 0)
    return {};
  const TKeptRun request = keeping.Request(run);
  if (request.Bytes > limits.Bytes)
    return "what it replaces has " + std::to_string(request.Bytes) + " bytes, and no more than " +
           std::to_string(limits.Bytes) + " are kept";
  store.Trim(connection, limits.Runs - 1, limits.Bytes - request.Bytes);
  return store.Keep(connection, request);
}

} // namespace workbench
