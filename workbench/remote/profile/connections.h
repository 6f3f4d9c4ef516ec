// Connections to the machines of profiles. Those to other machines stay open for the next caller.
#pragma once

#include "workbench/remote/folder/folder_connection.h"
#include "workbench/remote/ssh/ssh_machine.h"
#include "workbench/remote/target/profile.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

namespace workbench {

/// May be used by several threads.
class TConnections {
public:
  /// The questions that are asked from now on; what is open stays as it is for its holder.
  void SetPrompts(TPrompts prompts);
  /// A connection to the machine of a profile. Throws TConnectionError. `cancelled`, when it is
  /// there and turns to something else than 0, ends the attempt and what the connection is used
  /// for; it must outlive the connection.
  std::shared_ptr<IRemoteConnection> Open(const TProfile& profile,
                                          const std::atomic<int>* cancelled = nullptr);
  /// Begins to connect to a machine that takes its time, without waiting and without asking
  /// anybody.
  void Prepare(const TProfile& profile);
  /// Closes what is open to a profile of that name and not in use.
  void Close(const std::string& profileName);

private:
  std::shared_ptr<TSshMachine> MachineOf(const TProfile& profile);

  std::mutex FMutex;
  TPrompts FPrompts;
  std::unordered_map<std::string, std::shared_ptr<TSshMachine>> FMachines; // by name of the profile
};

/// "TYPE FINGERPRINT" of the key that the machine of a profile says who it is with. Asks nobody.
/// Throws TConnectionError, also when it offers none.
std::string HostKeyOf(const TProfile& profile, const std::atomic<int>& cancelled);

} // namespace workbench
