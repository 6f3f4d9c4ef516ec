#include "package/reconcile/apply_plan.h"

#include "package/common/case_fold.h"
#include "package/host/api/platforms.h"

#include <algorithm>
#include <string>
#include <vector>

namespace deployment {
namespace {

class TPlanExecutor {
public:
  TPlanExecutor(IProjectDeployment& deployment, const TReconcilePlan& plan)
      : FDeployment(deployment), FPlan(plan) {}

  void Apply() {
    for (const TLeavingEntry& leaving : FPlan.Leaving())
      TakeAway(leaving);
    for (const TPlannedEntry& planned : FPlan.Wants()) {
      if (!planned.IsLost && planned.Entry && !planned.IsRight)
        Update(planned);
    }
    for (const TPlannedEntry& planned : FPlan.Wants()) {
      if (!planned.IsLost && !planned.Entry)
        Make(planned.Wanted);
    }
  }

private:
  void TakeAway(const TLeavingEntry& leaving);
  void Update(const TPlannedEntry& planned);
  void Make(const TDefaultEntry& wanted);
  void WriteCreationValues(IProjectDeploymentFile& entry, const TDefaultEntry& wanted) const;
  void WriteValues(IProjectDeploymentFile& entry, const TDefaultEntry& wanted) const;
  void MakeRoom(const std::string& configuration, const std::string& platform,
                const std::string& localName);
  void StoreElsewhere(const std::shared_ptr<IProjectDeploymentFile>& entry,
                      const std::string& takenKey);

  IProjectDeployment& FDeployment;
  const TReconcilePlan& FPlan;
};

// Entries for every platform cannot leave one of them.
bool IsForAllPlatforms(const std::vector<std::string>& platforms) {
  return std::any_of(platforms.begin(), platforms.end(), [](const std::string& name) {
    return name == FallbackPlatform || name == sAllPlatforms;
  });
}

void TPlanExecutor::TakeAway(const TLeavingEntry& leaving) {
  const std::vector<std::string> platforms = leaving.Entry->GetPlatforms();
  const auto isOfTarget = [&](const std::string& name) { return SameText(name, FPlan.Platform()); };
  if (leaving.FromEveryTarget || IsForAllPlatforms(platforms) ||
      std::all_of(platforms.begin(), platforms.end(), isOfTarget))
    return FDeployment.RemoveFileEntry(*leaving.Entry);
  for (const std::string& name : platforms) {
    if (isOfTarget(name))
      leaving.Entry->RemovePlatform(name);
  }
}

void TPlanExecutor::Update(const TPlannedEntry& planned) {
  planned.Entry->SetLocalName(planned.Wanted.LocalName);
  if (planned.Origin == TPlannedEntry::TOrigin::Reclaimed)
    WriteCreationValues(*planned.Entry, planned.Wanted);
  WriteValues(*planned.Entry, planned.Wanted);
}

void TPlanExecutor::Make(const TDefaultEntry& wanted) {
  MakeRoom(FPlan.Configuration(), FPlan.Platform(), wanted.LocalName);
  const auto entry =
      FDeployment.CreateFile(FPlan.Configuration(), FPlan.Platform(), wanted.LocalName);
  WriteCreationValues(*entry, wanted);
  WriteValues(*entry, wanted);
  FDeployment.AddFileEntry(FPlan.Configuration(), FPlan.Platform(), entry);
}

void TPlanExecutor::WriteCreationValues(IProjectDeploymentFile& entry,
                                        const TDefaultEntry& wanted) const {
  entry.SetConfiguration(FPlan.Configuration());
  entry.SetDeploymentClass(wanted.ClassName);
  if (wanted.RemoteNameOnCreation)
    entry.SetRemoteName(FPlan.Platform(), *wanted.RemoteNameOnCreation);
  if (wanted.RemoteDirOnCreation)
    entry.SetRemoteDir(FPlan.Platform(), *wanted.RemoteDirOnCreation);
  entry.SetEnabled(FPlan.Platform(), wanted.EnabledOnCreation);
}

void TPlanExecutor::WriteValues(IProjectDeploymentFile& entry, const TDefaultEntry& wanted) const {
  const TFileData* record = entry.GetFileData(FPlan.Platform(), /*create=*/false);
  const bool sameName = !wanted.RemoteName || (record && record->RemoteName == *wanted.RemoteName);
  const bool sameDir = !wanted.RemoteDir || (record && record->RemoteDir == *wanted.RemoteDir);
  if (!sameName)
    entry.SetRemoteName(FPlan.Platform(), *wanted.RemoteName);
  if (!sameDir)
    entry.SetRemoteDir(FPlan.Platform(), *wanted.RemoteDir);
}

std::string KeyOf(const IProjectDeploymentFile& entry, const std::string& platform) {
  return entry.GetConfiguration() + platform + entry.GetLocalName();
}

// An entry keeps the key that it was added with. One that has another name by now, or is here for
// other platforms alone, is stored anew under a key of its own, so that what is added in its old
// place does not replace it.
void TPlanExecutor::MakeRoom(const std::string& configuration, const std::string& platform,
                             const std::string& localName) {
  std::string takenKey = configuration;
  takenKey.append(platform).append(localName);
  while (const auto held = FDeployment.FindFile(configuration, platform, localName)) {
    FDeployment.RemoveFileEntry(*held);
    StoreElsewhere(held, takenKey);
  }
}

// The entry is in no list, so going from one to the next comes to an end.
void TPlanExecutor::StoreElsewhere(const std::shared_ptr<IProjectDeploymentFile>& entry,
                                   const std::string& takenKey) {
  std::vector<std::string> platforms = entry->GetPlatforms();
  platforms.push_back(entry->GetFilePlatform());
  for (auto platform = platforms.rbegin(); platform != platforms.rend(); ++platform) {
    const std::string key = KeyOf(*entry, *platform);
    if (key == takenKey)
      continue;
    const auto held =
        FDeployment.FindFile(entry->GetConfiguration(), *platform, entry->GetLocalName());
    if (held && KeyOf(*held, held->GetFilePlatform()) == key)
      continue;
    MakeRoom(entry->GetConfiguration(), *platform, entry->GetLocalName());
    entry->SetFilePlatform(*platform);
    return FDeployment.AddFileEntry(entry->GetConfiguration(), *platform, entry);
  }
}

} // namespace

void ApplyPlan(IProjectDeployment& deployment, const TReconcilePlan& plan) {
  TPlanExecutor(deployment, plan).Apply();
}

} // namespace deployment
