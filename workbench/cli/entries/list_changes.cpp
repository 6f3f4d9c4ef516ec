#include "workbench/cli/entries/list_changes.h"

#include "package/common/delimited_list.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_set>
#include <utility>

namespace workbench {
namespace {

using deployment::IProjectDeploymentFile;
using deployment::TDeploymentItemAction;

void Append(std::string& text, std::string_view part) {
  text.append(part).push_back('\0');
}

void AppendRecord(std::string& text, const deployment::TFileData& record) {
  text.push_back(record.Enabled ? '1' : '0');
  text.push_back(record.Overwrite ? '1' : '0');
  text.push_back(static_cast<char>('0' + static_cast<int>(record.Operation)));
  Append(text, record.RemoteDir);
  Append(text, record.RemoteName);
  Append(text, deployment::JoinDelimited(record.LocalCommands, "\n"));
  Append(text, deployment::JoinDelimited(record.RemoteCommands, "\n"));
}

// What tells the entry from others.
std::string NamesOf(const IProjectDeploymentFile& file) {
  std::string text;
  Append(text, file.GetConfiguration());
  Append(text, file.GetLocalName());
  Append(text, file.GetDeploymentClass());
  for (const std::string& platform : file.GetPlatforms())
    Append(text, platform);
  return text;
}

std::string ContentOf(IProjectDeploymentFile& file) {
  std::string text = NamesOf(file);
  Append(text, file.GetCondition());
  text.push_back(file.GetRequired() ? '1' : '0');
  for (const std::string& platform : file.GetPlatforms())
    AppendRecord(text, *file.GetFileData(platform, /*create=*/false));
  return text;
}

TChangedEntry NameOf(const IProjectDeploymentFile& file) {
  const std::string& configuration = file.GetConfiguration();
  return {file.GetLocalName(), file.GetDeploymentClass(),
          (configuration.empty() ? std::string(deployment::BaseConfiguration) : configuration) +
              ", " + deployment::JoinDelimited(file.GetPlatforms(), ", ")};
}

// Takes pairs out of both lists that have the same key; tells of each.
template <class TKey, class TPaired>
void TakePairs(std::vector<IProjectDeploymentFile*>& added,
               std::vector<IProjectDeploymentFile*>& removed, TKey key, TPaired paired) {
  std::unordered_multimap<std::string, IProjectDeploymentFile*> byKey;
  for (IProjectDeploymentFile* file : removed)
    byKey.emplace(key(*file), file);
  std::erase_if(added, [&](IProjectDeploymentFile* file) {
    const auto found = byKey.find(key(*file));
    if (found == byKey.end())
      return false;
    paired(*file);
    byKey.erase(found);
    return true;
  });
  std::unordered_set<IProjectDeploymentFile*> left;
  for (const auto& [ignored, file] : byKey)
    left.insert(file);
  std::erase_if(removed, [&](IProjectDeploymentFile* file) { return !left.contains(file); });
}

} // namespace

// Remembers with which target an entry was last changed in each way.
class TListChanges::TListener final : public deployment::IProjectDeploymentNotifier {
public:
  void ItemChanged(deployment::IProjectDeploymentItem& item,
                   TDeploymentItemAction action) override {
    const auto* file = dynamic_cast<const IProjectDeploymentFile*>(&item);
    if (!file)
      return;
    if (action == TDeploymentItemAction::Removed &&
        TargetOf(*file, TDeploymentItemAction::Added) != FTarget)
      FRemoved.emplace_back(NamesOf(*file), NameOf(*file));
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

  // What a target took out that did not come with it: names in full, and as they are told.
  const std::vector<std::pair<std::string, TChangedEntry>>& Removed() const { return FRemoved; }

private:
  std::size_t FTarget = 0;
  std::size_t FCount = 0;
  std::vector<std::pair<std::string, TChangedEntry>> FRemoved;
  std::array<std::unordered_map<const IProjectDeploymentFile*, std::size_t>, 3> FTargets;
};

TListChanges::TListChanges(deployment::IProjectDeployment& deployment)
    : FDeployment(deployment), FListener(std::make_shared<TListener>()) {
  for (const auto& file : deployment.GetFiles())
    FBefore.push_back({file, NamesOf(*file), ContentOf(*file), NameOf(*file)});
  FListenerIndex = deployment.AddNotifier(FListener);
}

TListChanges::~TListChanges() {
  FDeployment.RemoveNotifier(FListenerIndex);
}

void TListChanges::StartTarget() {
  FListener->StartTarget();
}

std::vector<TTargetChanges> TListChanges::Finish() {
  std::vector<TEntry> after;
  for (const auto& file : FDeployment.GetFiles())
    after.push_back({file, NamesOf(*file), ContentOf(*file), NameOf(*file)});
  FindLost(after);
  return Compare(after);
}

void TListChanges::FindLost(const std::vector<TEntry>& after) {
  if (FListener->Removed().empty())
    return;
  std::unordered_set<std::string> known;
  for (const TEntry& entry : FBefore)
    known.insert(entry.Names);
  for (const TEntry& entry : after)
    known.insert(entry.Names);
  for (const auto& [names, entry] : FListener->Removed()) {
    if (known.insert(names).second)
      FLost.push_back(entry);
  }
}

std::vector<TTargetChanges> TListChanges::Compare(const std::vector<TEntry>& after) const {
  std::vector<TTargetChanges> changes(std::max<std::size_t>(FListener->Count(), 1));
  std::unordered_map<const IProjectDeploymentFile*, const TEntry*> gone;
  std::unordered_map<const IProjectDeploymentFile*, const TEntry*> entries;
  for (const TEntry& entry : FBefore)
    gone.emplace(entry.File.get(), &entry);
  std::vector<IProjectDeploymentFile*> added;
  for (const TEntry& entry : after) {
    const auto before = gone.find(entry.File.get());
    if (before == gone.end()) {
      added.push_back(entry.File.get());
      entries.emplace(entry.File.get(), &entry);
      continue;
    }
    if (before->second->Content != entry.Content)
      changes[FListener->TargetOf(*entry.File, TDeploymentItemAction::Modified)].Modified.push_back(
          NameOf(*entry.File));
    gone.erase(before);
  }
  std::vector<IProjectDeploymentFile*> removed;
  for (const TEntry& entry : FBefore) {
    if (gone.contains(entry.File.get())) {
      removed.push_back(entry.File.get());
      entries.emplace(entry.File.get(), &entry);
    }
  }
  const auto contentOf = [&](const IProjectDeploymentFile& file) {
    return entries.at(&file)->Content;
  };
  const auto namesOf = [&](const IProjectDeploymentFile& file) { return entries.at(&file)->Names; };
  TakePairs(added, removed, contentOf, [](const IProjectDeploymentFile&) {});
  TakePairs(added, removed, namesOf, [&](const IProjectDeploymentFile& file) {
    changes[FListener->TargetOf(file, TDeploymentItemAction::Added)].Modified.push_back(
        NameOf(file));
  });
  for (const IProjectDeploymentFile* file : added)
    changes[FListener->TargetOf(*file, TDeploymentItemAction::Added)].Added.push_back(
        NameOf(*file));
  for (const IProjectDeploymentFile* file : removed)
    changes[FListener->TargetOf(*file, TDeploymentItemAction::Removed)].Removed.push_back(
        entries.at(file)->Told);
  return changes;
}

TJson ChangesAsJson(const TTargetChanges& changes) {
  const auto list = [](const std::vector<TChangedEntry>& entries) {
    TJson array = TJson::Array();
    for (const TChangedEntry& entry : entries)
      array.Append({{"localName", entry.LocalName}, {"class", entry.ClassName}});
    return array;
  };
  return {{"added", list(changes.Added)},
          {"modified", list(changes.Modified)},
          {"removed", list(changes.Removed)}};
}

void PrintChanges(TOutput& output, const TTargetChanges& changes, bool dryRun) {
  const auto print = [&](const std::vector<TChangedEntry>& entries, const char* done,
                         const char* planned) {
    for (const TChangedEntry& entry : entries)
      output.Line(std::string(dryRun ? planned : done) + " " + Visible(entry.LocalName) + " [" +
                  Visible(entry.ClassName) + "] for " + Visible(entry.Target));
  };
  print(changes.Added, "added", "would add");
  print(changes.Modified, "modified", "would modify");
  print(changes.Removed, "removed", "would remove");
}

} // namespace workbench
