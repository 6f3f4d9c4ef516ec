#include "workbench/project/build_import/list_update.h"

#include "package/host/api/default_deployment.h"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

namespace workbench {
namespace {

using deployment::IProjectDeploymentFile;
using deployment::TDeployOperation;
using TAction = TListUpdate::TAction;

std::string ClassOf(const TTakenFile& file) {
  return "Install." + file.Component;
}

TDeployOperation OperationOf(const TTakenFile& file) {
  return file.IsProgram ? TDeployOperation::CopyExecutable : TDeployOperation::Default;
}

class TUpdate {
public:
  TUpdate(deployment::IProjectDeployment& deployment, std::string_view platform)
      : FDeployment(deployment), FPlatform(platform) {}

  void Add(const TTakenFile& file) {
    if (FDeployment.FindFile(file.Configuration, FPlatform, file.LocalName))
      return Say(TAction::Present, file);
    const auto entry = FDeployment.AddFile(file.Configuration, FPlatform, file.LocalName);
    entry->SetDeploymentClass(MakeClass(file));
    entry->SetEnabled(FPlatform, true);
    entry->SetRemoteDir(FPlatform, file.RemoteDir);
    entry->SetRemoteName(FPlatform, file.RemoteName);
    entry->SetOperation(FPlatform, OperationOf(file));
    Say(TAction::Added, file);
  }

  void Follow(const TTakenFile& before, const TTakenFile& now) {
    const auto entry = FDeployment.FindFile(now.Configuration, FPlatform, now.LocalName);
    if (!entry) {
      if (before != now)
        Say(TAction::StaysOut, now);
      return;
    }
    bool changed = false;
    if (before.RemoteDir != now.RemoteDir && entry->GetRemoteDir(FPlatform) == before.RemoteDir) {
      entry->SetRemoteDir(FPlatform, now.RemoteDir);
      changed = true;
    }
    if (before.RemoteName != now.RemoteName &&
        entry->GetRemoteName(FPlatform) == before.RemoteName) {
      entry->SetRemoteName(FPlatform, now.RemoteName);
      changed = true;
    }
    if (before.IsProgram != now.IsProgram &&
        entry->GetOperation(FPlatform) == OperationOf(before)) {
      entry->SetOperation(FPlatform, OperationOf(now));
      changed = true;
    }
    if (before.Component != now.Component && entry->GetDeploymentClass() == ClassOf(before)) {
      entry->SetDeploymentClass(MakeClass(now));
      changed = true;
    }
    if (changed)
      Say(TAction::Changed, now);
  }

  void Drop(const TTakenFile& before) {
    const auto entry = FDeployment.FindFile(before.Configuration, FPlatform, before.LocalName);
    if (!entry)
      return;
    if (!IsUntouched(*entry, before))
      return Say(TAction::StaysInList, before);
    FDeployment.RemoveFileEntry(*entry);
    Say(TAction::Removed, before);
  }

  std::vector<TListUpdate> Updates;

private:
  bool IsUntouched(const IProjectDeploymentFile& entry, const TTakenFile& taken) const {
    return entry.GetPlatforms() == std::vector<std::string>{FPlatform} &&
           entry.GetRemoteDir(FPlatform) == taken.RemoteDir &&
           entry.GetRemoteName(FPlatform) == taken.RemoteName &&
           entry.GetOperation(FPlatform) == OperationOf(taken) &&
           entry.GetDeploymentClass() == ClassOf(taken) && entry.GetEnabled(FPlatform) &&
           entry.GetOverwrite(FPlatform) && !entry.GetRequired() && entry.GetCondition().empty();
  }

  // The class of the file's component, made when it is not there.
  std::string MakeClass(const TTakenFile& file) {
    std::string id = ClassOf(file);
    if (FDeployment.FindClass(id))
      return id;
    const auto made = FDeployment.CreateClass();
    made->SetClassId(id);
    made->SetDescription(file.Component);
    made->SetRemoteDir(FPlatform, ".\\");
    made->SetOperation(FPlatform, TDeployOperation::Copy);
    FDeployment.AddClass(made);
    return id;
  }

  void Say(TAction action, const TTakenFile& file) {
    Updates.push_back({action, file.LocalName, file.Configuration});
  }

  deployment::IProjectDeployment& FDeployment;
  const std::string FPlatform;
};

} // namespace

std::vector<TListUpdate> UpdateList(deployment::IProjectDeployment& deployment,
                                    std::string_view platform,
                                    const std::vector<TTakenFile>& before,
                                    const std::vector<TTakenFile>& now) {
  deployment::EnsureDefaultDeployment(deployment); // so that classes of components add to it
  using TKey = std::pair<std::string_view, std::string_view>;
  std::map<TKey, const TTakenFile*> known;
  for (const TTakenFile& file : before)
    known.emplace(TKey(file.Configuration, file.LocalName), &file);
  TUpdate update(deployment, platform);
  std::set<TKey> wanted;
  for (const TTakenFile& file : now) {
    const TKey key(file.Configuration, file.LocalName);
    wanted.insert(key);
    const auto found = known.find(key);
    if (found == known.end())
      update.Add(file);
    else
      update.Follow(*found->second, file);
  }
  for (const TTakenFile& file : before) {
    if (!wanted.contains(TKey(file.Configuration, file.LocalName)))
      update.Drop(file);
  }
  return std::move(update.Updates);
}

} // namespace workbench
