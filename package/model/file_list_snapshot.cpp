#include "package/model/file_list_snapshot.h"

#include <unordered_map>

namespace deployment {

TFileListSnapshot::TFileListSnapshot(const TDeploymentFileList& files) {
  FSaved.reserve(files.Count());
  for (TKeyedFile& entry : files.KeyedFiles()) {
    TFileContent content = ContentOf(*entry.File);
    FSaved.push_back({std::move(entry), std::move(content)});
  }
}

void TFileListSnapshot::Restore(TDeploymentFileList& files) const {
  // Out of the list an entry has no owner that it could tell.
  files.Clear();
  for (const TSaved& saved : FSaved) {
    if (ContentOf(*saved.Entry.File) != saved.Content)
      SetContent(*saved.Entry.File, saved.Content);
    files.Add({saved.Entry.Key, {}, {}}, saved.Entry.File);
  }
}

std::vector<TFileListSnapshot::TChange>
TFileListSnapshot::ChangesSince(const TDeploymentFileList& files) const {
  std::vector<TChange> changes;
  std::unordered_map<const TDeploymentFile*, const TFileContent*> before;
  for (const TSaved& saved : FSaved) {
    before.emplace(saved.Entry.File.get(), &saved.Content);
    if (!files.Holds(*saved.Entry.File))
      changes.push_back({saved.Entry.File, TDeploymentItemAction::Removed});
  }
  for (const TKeyedFile& entry : files.KeyedFiles()) {
    const auto saved = before.find(entry.File.get());
    if (saved == before.end())
      changes.push_back({entry.File, TDeploymentItemAction::Added});
    else if (ContentOf(*entry.File) != *saved->second)
      changes.push_back({entry.File, TDeploymentItemAction::Modified});
  }
  return changes;
}

} // namespace deployment
