#include "workbench/deploy/shared_work.h"

#include "workbench/deploy/revision.h"

namespace workbench {

std::string TSharedWork::Once(const std::string& name, const std::function<std::string()>& work) {
  std::packaged_task<std::string()> task(work);
  std::shared_future<std::string> outcome;
  bool isFirst = false;
  {
    const std::lock_guard lock(FMutex);
    const auto [entry, isNew] = FDone.try_emplace(name);
    if (isNew)
      entry->second = task.get_future().share();
    outcome = entry->second;
    isFirst = isNew;
  }
  if (isFirst)
    task();
  return outcome.get();
}

std::string TSharedWork::Revision(const std::filesystem::path& directory) {
  return Once("revision of " + directory.string(), [&] { return RevisionOf(directory); });
}

} // namespace workbench
