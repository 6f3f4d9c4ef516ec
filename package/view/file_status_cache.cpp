#include "package/view/file_status_cache.h"

namespace deployment {

const TFileState* TFileStatusCache::Find(std::string_view localName) const {
  const auto found = FEntries.find(localName);
  return found != FEntries.end() && found->second.HasState ? &found->second.State : nullptr;
}

TFileStatusCache::TEntry& TFileStatusCache::EntryOf(std::string_view localName) {
  const auto found = FEntries.find(localName);
  return found != FEntries.end() ? found->second
                                 : FEntries.emplace(std::string(localName), TEntry()).first->second;
}

void TFileStatusCache::Store(std::string_view localName, const TFileState& state) {
  TEntry& entry = EntryOf(localName);
  FDeployableRows -= Deployable(entry);
  entry.State = state;
  entry.HasState = true;
  FDeployableRows += Deployable(entry);
}

void TFileStatusCache::Clear() {
  FDeployableRows = 0;
  if (FAttachedRows == 0)
    return FEntries.clear();
  for (auto& [localName, entry] : FEntries)
    entry.HasState = false;
}

TFileStatusCache::TEntry& TFileStatusCache::AttachRow(std::string_view localName) {
  ++FAttachedRows;
  return EntryOf(localName);
}

void TFileStatusCache::DetachRow(TEntry& entry, bool checked) {
  if (checked)
    SetRowChecked(entry, false);
  --FAttachedRows;
}

void TFileStatusCache::SetRowChecked(TEntry& entry, bool checked) {
  FDeployableRows -= Deployable(entry);
  entry.CheckedRows += checked ? 1 : std::size_t(-1);
  FDeployableRows += Deployable(entry);
}

} // namespace deployment
