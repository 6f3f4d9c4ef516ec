#include "package/model/deployment_file_list.h"

#include "package/common/case_fold.h"

#include <algorithm>
#include <utility>

namespace deployment {
namespace {

bool Meets(std::string_view wanted, std::string_view text) {
  return wanted.empty() || SameText(wanted, text);
}

bool Meets(const TFileQuery& query, const TDeploymentFile& file) {
  return Meets(query.LocalName, file.GetLocalName()) &&
         Meets(query.ClassName, file.GetDeploymentClass()) &&
         Meets(query.Configuration, file.GetConfiguration()) &&
         (query.Platform.empty() || file.HasPlatform(query.Platform));
}

} // namespace

TDeploymentFileList::~TDeploymentFileList() {
  Clear();
}

std::shared_ptr<TDeploymentFile> TDeploymentFileList::Add(const TFileKey& key,
                                                          std::shared_ptr<TDeploymentFile> file) {
  const std::size_t hash = HashKey(key);
  TSlot slot = FindSlot(key, hash);
  if (slot != NoSlot && FEntries[slot].File == file)
    return nullptr;
  if (Holds(*file)) {
    RemoveSlot(file->FSlot);
    // Looked up anew, since a removal may have moved the entries together.
    slot = FindSlot(key, hash);
  }
  std::shared_ptr<TDeploymentFile> replaced;
  if (slot == NoSlot) {
    slot = static_cast<TSlot>(FEntries.size());
    FEntries.emplace_back();
  } else {
    replaced = TakeOut(slot);
  }
  Put(slot, key, hash, std::move(file));
  return replaced;
}

std::shared_ptr<TDeploymentFile> TDeploymentFileList::Get(const TFileKey& key) const {
  const TSlot slot = FindSlot(key, HashKey(key));
  return slot == NoSlot ? nullptr : FEntries[slot].File;
}

std::shared_ptr<TDeploymentFile> TDeploymentFileList::Remove(const TFileKey& key) {
  const TSlot slot = FindSlot(key, HashKey(key));
  return slot == NoSlot ? nullptr : RemoveSlot(slot);
}

std::shared_ptr<TDeploymentFile> TDeploymentFileList::Remove(const TDeploymentFile& file) {
  return Holds(file) ? RemoveSlot(file.FSlot) : nullptr;
}

bool TDeploymentFileList::Holds(const TDeploymentFile& file) const {
  return file.FSlot < FEntries.size() && FEntries[file.FSlot].File.get() == &file;
}

void TDeploymentFileList::Clear() {
  for (const TEntry& entry : FEntries) {
    if (entry.File)
      Release(*entry.File);
  }
  FByKey.Clear();
  FByClass.Clear();
  FByLocalName.Clear();
  FLive = 0;
  FEntries.clear();
}

TDeploymentFiles TDeploymentFileList::Files() const {
  return Find(TFileQuery());
}

std::vector<TKeyedFile> TDeploymentFileList::KeyedFiles() const {
  std::vector<TKeyedFile> files;
  files.reserve(FLive);
  for (const TEntry& entry : FEntries) {
    if (entry.File)
      files.push_back({JoinKey(KeyOf(entry)), entry.File});
  }
  return files;
}

TDeploymentFiles TDeploymentFileList::Find(const TFileQuery& query) const {
  const auto accepts = [&](const TDeploymentFile& file) { return Meets(query, file); };
  if (!query.LocalName.empty())
    return Collect(FByLocalName, HashText(query.LocalName), accepts);
  if (!query.ClassName.empty())
    return Collect(FByClass, HashText(query.ClassName), accepts);
  TDeploymentFiles files;
  if (query.Configuration.empty() && query.Platform.empty())
    files.reserve(FLive);
  for (const TEntry& entry : FEntries) {
    if (entry.File && accepts(*entry.File))
      files.push_back(entry.File);
  }
  return files;
}

TDeploymentFiles TDeploymentFileList::FilesOfClass(std::string_view className) const {
  return Collect(FByClass, HashText(className), [&](const TDeploymentFile& file) {
    return SameText(file.GetDeploymentClass(), className);
  });
}

void TDeploymentFileList::FileFieldChanging(TDeploymentFile& file, TFileField field,
                                            std::string_view newValue) {
  if (!Holds(file))
    return;
  const TSlot slot = file.FSlot;
  if (field == TFileField::DeploymentClass) {
    FByClass.Unlink(slot);
    FByClass.Link(slot, HashText(newValue));
    return;
  }
  TEntry& entry = FEntries[slot];
  if (!entry.FrozenKey)
    entry.FrozenKey = std::make_unique<std::string>(JoinKey(OwnKey(file)));
  if (field == TFileField::LocalName) {
    FByLocalName.Unlink(slot);
    FByLocalName.Link(slot, HashText(newValue));
  }
}

TFileKey TDeploymentFileList::OwnKey(const TDeploymentFile& file) {
  return {file.GetConfiguration(), file.GetFilePlatform(), file.GetLocalName()};
}

TFileKey TDeploymentFileList::KeyOf(const TEntry& entry) {
  return entry.FrozenKey ? TFileKey{*entry.FrozenKey, {}, {}} : OwnKey(*entry.File);
}

void TDeploymentFileList::Release(TDeploymentFile& file) {
  file.FSlot = NoSlot;
  file.SetOwner(nullptr);
}

TSlot TDeploymentFileList::FindSlot(const TFileKey& key, std::size_t hash) const {
  TSlot slot = FByKey.First(hash);
  while (slot != NoSlot && !SameKey(KeyOf(FEntries[slot]), key))
    slot = FByKey.Next(slot);
  return slot;
}

void TDeploymentFileList::Put(TSlot slot, const TFileKey& key, std::size_t hash,
                              std::shared_ptr<TDeploymentFile> file) {
  TEntry& entry = FEntries[slot];
  entry.FrozenKey =
      SameKey(key, OwnKey(*file)) ? nullptr : std::make_unique<std::string>(JoinKey(key));
  FByKey.Link(slot, hash);
  FByClass.Link(slot, HashText(file->GetDeploymentClass()));
  FByLocalName.Link(slot, HashText(file->GetLocalName()));
  file->FSlot = slot;
  file->SetOwner(&FOwner);
  entry.File = std::move(file);
  ++FLive;
}

std::shared_ptr<TDeploymentFile> TDeploymentFileList::TakeOut(TSlot slot) {
  FByKey.Unlink(slot);
  FByClass.Unlink(slot);
  FByLocalName.Unlink(slot);
  TEntry& entry = FEntries[slot];
  Release(*entry.File);
  entry.FrozenKey.reset();
  --FLive;
  return std::exchange(entry.File, nullptr);
}

std::shared_ptr<TDeploymentFile> TDeploymentFileList::RemoveSlot(TSlot slot) {
  constexpr std::size_t WorthCompacting = 64;
  std::shared_ptr<TDeploymentFile> removed = TakeOut(slot);
  if (FEntries.size() >= WorthCompacting && FLive < FEntries.size() / 2)
    Compact();
  return removed;
}

void TDeploymentFileList::Compact() {
  std::vector<TEntry> kept;
  kept.reserve(FLive);
  for (TEntry& entry : FEntries) {
    if (entry.File)
      kept.push_back(std::move(entry));
  }
  FEntries = std::move(kept);
  FByKey.Clear();
  FByClass.Clear();
  FByLocalName.Clear();
  for (std::size_t i = 0; i < FEntries.size(); ++i) {
    const TEntry& entry = FEntries[i];
    const auto slot = static_cast<TSlot>(i);
    entry.File->FSlot = slot;
    FByKey.Link(slot, HashKey(KeyOf(entry)));
    FByClass.Link(slot, HashText(entry.File->GetDeploymentClass()));
    FByLocalName.Link(slot, HashText(entry.File->GetLocalName()));
  }
}

template <class TPredicate>
TDeploymentFiles TDeploymentFileList::Collect(const TSlotChains& chains, std::size_t hash,
                                              TPredicate accepts) const {
  std::vector<TSlot> slots;
  for (TSlot slot = chains.First(hash); slot != NoSlot; slot = chains.Next(slot)) {
    if (accepts(*FEntries[slot].File))
      slots.push_back(slot);
  }
  // A chain gives the newest link first, so that it is upside down unless entries changed.
  std::reverse(slots.begin(), slots.end());
  if (!std::is_sorted(slots.begin(), slots.end()))
    std::sort(slots.begin(), slots.end());
  TDeploymentFiles files;
  files.reserve(slots.size());
  for (const TSlot slot : slots)
    files.push_back(FEntries[slot].File);
  return files;
}

} // namespace deployment
