#include "workbench/remote/profile/connections.h"

#include "workbench/remote/ssh/host_keys.h"

namespace workbench {

void TConnections::SetPrompts(TPrompts prompts) {
  const std::lock_guard lock(FMutex);
  FPrompts = std::move(prompts);
  FMachines.clear();
}

std::shared_ptr<IRemoteConnection> TConnections::Open(const TProfile& profile,
                                                      const std::atomic<int>* cancelled) {
  if (profile.Kind == TProfileKind::Folder)
    return std::make_shared<TFolderConnection>(profile.Path, TMissingFolder::Refuse, cancelled);
  return MachineOf(profile)->Take(cancelled);
}

std::shared_ptr<TSshMachine> TConnections::MachineOf(const TProfile& profile) {
  const std::lock_guard lock(FMutex);
  std::shared_ptr<TSshMachine>& machine = FMachines[profile.Name];
  // A profile that says something else now leads somewhere else.
  if (!machine || machine->Profile() != profile) {
    try {
      machine = std::make_shared<TSshMachine>(profile, FPrompts);
    } catch (const std::system_error& error) {
      throw TConnectionError(error.what());
    }
  }
  return machine;
}

void TConnections::Prepare(const TProfile& profile) {
  if (profile.Kind == TProfileKind::Ssh)
    MachineOf(profile)->Prepare();
}

// What ends with the machine takes its time; others go on meanwhile.
void TConnections::Close(const std::string& profileName) {
  std::shared_ptr<TSshMachine> closed;
  const std::lock_guard lock(FMutex);
  if (const auto found = FMachines.find(profileName); found != FMachines.end()) {
    closed = std::move(found->second);
    FMachines.erase(found);
  }
}

std::string HostKeyOf(const TProfile& profile, const std::atomic<int>& cancelled) {
  const auto offered = OfferedHostKey(profile, [&cancelled] { return cancelled != 0; });
  if (!offered)
    throw TConnectionError("the machine of the profile \"" + profile.Name +
                           "\" offers no host key");
  const TKeyPrint print = PrintOf(*offered);
  return print.Type + " " + print.Fingerprint;
}

} // namespace workbench
