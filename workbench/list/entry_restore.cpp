#include "workbench/list/entry_restore.h"

#include <cstddef>
#include <string>

namespace workbench {
namespace {

using deployment::IProjectDeployment;
using deployment::IProjectDeploymentFile;
using deployment::IProjectDeploymentItem;

void NotifyOf(IProjectDeployment& deployment, IProjectDeploymentItem& item) {
  const bool required = item.GetRequired();
  {
    const TBlockedNotification silence(deployment);
    item.SetRequired(!required);
  }
  item.SetRequired(required);
}

} // namespace

bool IsUnderKey(IProjectDeployment& deployment, const IProjectDeploymentFile& file,
                const TEntryKey& key) {
  return deployment.FindFile(key.Configuration, key.Platform, key.LocalName).get() == &file;
}

void AddUnderKey(IProjectDeployment& deployment,
                 const std::shared_ptr<IProjectDeploymentFile>& file, const TEntryKey& key) {
  std::string platform = key.Platform;
  while (deployment.FindFile(key.Configuration, platform, key.LocalName))
    platform += ' ';
  // The key is made of the local name that the entry has at this moment.
  const std::string localName = file->GetLocalName();
  file->SetLocalName(key.LocalName);
  deployment.AddFileEntry(key.Configuration, platform, file);
  file->SetLocalName(localName);
}

void PutInOrder(IProjectDeployment& deployment,
                std::span<const std::shared_ptr<IProjectDeploymentFile>> order,
                const TKeyOf& keyOf) {
  const deployment::TDeploymentFiles present = deployment.GetFiles();
  std::size_t first = 0;
  while (first < present.size() && first < order.size() && present[first] == order[first])
    ++first;
  const auto moved = order.subspan(first);
  std::vector<TEntryKey> keys;
  keys.reserve(moved.size());
  for (const auto& file : moved)
    keys.push_back(keyOf(*file));
  for (const auto& file : moved)
    deployment.RemoveFileEntry(*file);
  for (std::size_t i = 0; i < moved.size(); ++i)
    AddUnderKey(deployment, moved[i], keys[i]);
}

void RestoreClasses(IProjectDeployment& deployment, const TClassRecords& classes) {
  // Without platforms this takes the classes away and nothing else.
  deployment.Clear(std::span<const std::string>());
  for (const TClassRecord& record : classes) {
    const auto deploymentClass = deployment.CreateClass();
    Apply(record, *deploymentClass);
    deployment.AddClass(deploymentClass);
  }
}

void NotifyListeners(IProjectDeployment& deployment, IProjectDeploymentFile* changed) {
  if (changed)
    return NotifyOf(deployment, *changed);
  const deployment::TDeploymentFiles files = deployment.GetFiles();
  if (!files.empty())
    return NotifyOf(deployment, *files.front());
  const deployment::TDeploymentClasses classes = deployment.GetClasses();
  if (!classes.empty())
    return NotifyOf(deployment, *classes.front());
  {
    const TBlockedNotification silence(deployment);
    deployment.AddFile({}, {}, {});
  }
  deployment.RemoveFile({}, {}, {});
}

} // namespace workbench
