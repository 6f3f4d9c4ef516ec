#include "workbench/deploy/undo_keeping.h"

#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <optional>
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

class TUndoKeeping {
public:
  TUndoKeeping(IRemoteConnection& connection, const TDeployPlan& plan, const TTargetRecord& record)
      : FConnection(connection), FPlan(plan), FRecord(record) {}

  void Collect() {
    for (const TPlannedFile& file : FPlan.Files) {
      if (const auto kind = KindOf(file))
        Add(file, *kind);
    }
    ReadLinks();
    FindNewDirectories();
  }

  TUndoManifest Manifest;
  std::vector<TRemoteName> Targets; // of the manifest's files
  std::uint64_t Bytes = 0;

private:
  void Add(const TPlannedFile& file, TUndoKind kind);
  void ReadLinks();
  void FindNewDirectories();

  IRemoteConnection& FConnection;
  const TDeployPlan& FPlan;
  const TTargetRecord& FRecord;
};

void TUndoKeeping::Add(const TPlannedFile& file, TUndoKind kind) {
  TUndoFile& kept = Manifest.Files.emplace_back();
  Targets.push_back(file.Target);
  kept.Kind = kind;
  kept.Path = file.RecordPath;
  if (file.Action != TDeployAction::Removed &&
      file.File.Operation != TDeployOperation::RunAndRemove)
    kept.Put = MarkOf(file.Local.Size, file.Local.Time);
  kept.PutLink = file.Link;
  if (kind != TUndoKind::Remove) {
    kept.Before = MarkOf(file.There.Size, file.There.Modified);
    kept.Mode = file.There.Mode;
  }
  if (kind == TUndoKind::Restore) {
    kept.Kept = std::to_string(Manifest.Files.size());
    Bytes += file.There.Size;
  }
  if (const auto recorded = FRecord.Files.find(file.RecordPath); recorded != FRecord.Files.end())
    kept.Recorded = recorded->second;
  if (const auto owed = FRecord.Owed.find(file.RecordPath); owed != FRecord.Owed.end())
    kept.Owed = owed->second;
}

void TUndoKeeping::ReadLinks() {
  std::vector<TRemoteName> names;
  std::vector<TUndoFile*> files;
  for (std::size_t i = 0; i < Targets.size(); ++i) {
    if (Manifest.Files[i].Kind != TUndoKind::Link)
      continue;
    names.push_back(Targets[i]);
    files.push_back(&Manifest.Files[i]);
  }
  if (names.empty())
    return;
  const std::vector<TRemoteLink> links = FConnection.ReadLinks(names);
  for (std::size_t i = 0; i < links.size(); ++i)
    files[i]->Link = links[i].Text;
  // One that cannot be read cannot be made again.
  for (std::size_t i = Targets.size(); i-- > 0;) {
    if (Manifest.Files[i].Kind != TUndoKind::Link || !Manifest.Files[i].Link.empty())
      continue;
    Manifest.Files.erase(Manifest.Files.begin() + static_cast<std::ptrdiff_t>(i));
    Targets.erase(Targets.begin() + static_cast<std::ptrdiff_t>(i));
  }
}

// Those that are not there yet, up to the profile's path.
void TUndoKeeping::FindNewDirectories() {
  const std::string root = FConnection.Root();
  std::unordered_set<std::string> known;
  std::vector<std::string> asked;
  for (std::size_t i = 0; i < Targets.size(); ++i) {
    std::string directory = Targets[i].Directory;
    while (Manifest.Files[i].Kind == TUndoKind::Remove && directory.size() > root.size() &&
           known.insert(directory).second) {
      asked.push_back(directory);
      directory.resize(directory.find_last_of('/'));
    }
  }
  const std::vector<TRemoteDirectory> found = FConnection.Resolve(asked);
  for (std::size_t i = 0; i < asked.size(); ++i) {
    if (!found[i].Exists)
      Manifest.Directories.push_back(asked[i].substr(root.size() + 1));
  }
}

} // namespace

std::string KeepForUndo(IRemoteConnection& connection, TUndoStore& store, const TDeployPlan& plan,
                        const TTargetRecord& record, const TRecordedRun& run,
                        const TUndoLimits& limits) {
  TUndoKeeping keeping(connection, plan, record);
  keeping.Collect();
  if (keeping.Manifest.Files.empty() || limits.Runs == 0)
    return {};
  if (keeping.Bytes > limits.Bytes)
    return "what it replaces has " + std::to_string(keeping.Bytes) + " bytes, and no more than " +
           std::to_string(limits.Bytes) + " are kept";
  keeping.Manifest.Run = run;
  store.Trim(connection, limits.Runs - 1, limits.Bytes - keeping.Bytes);
  return store.Keep(connection, keeping.Manifest, keeping.Targets, keeping.Bytes);
}

} // namespace workbench
