#include "workbench/remote/ssh/ssh_machine.h"

#include "workbench/files/runtime_directory.h"
#include "workbench/remote/ssh/askpass.h"
#include "workbench/remote/ssh/host_keys.h"

#include <chrono>
#include <string_view>

namespace workbench {
namespace {

constexpr unsigned SignsOfLifeMissed = 2; // a line that misses more is dead
constexpr std::chrono::minutes LongestLogIn(2);
constexpr std::chrono::milliseconds CancelInterval(20);

std::string Option(const std::string& key, const std::string& value) {
  return "-o" + key + "=" + value;
}

bool IsSet(const std::atomic<int>* flag) {
  return flag && *flag != 0;
}

// The client ended since it could not log in.
bool IsAboutLogIn(std::string_view reason) {
  return reason.find("Permission denied (") != std::string_view::npos ||
         reason.find("Too many authentication failures") != std::string_view::npos;
}

} // namespace

std::filesystem::path NewControlPath() {
  return RuntimeDirectory() / RandomDigits(1);
}

TSshCommands::TSshCommands(TProfile profile, std::filesystem::path controlPath)
    : FProfile(std::move(profile)), FControlPath(std::move(controlPath)) {}

TProcessStart TSshCommands::Start(bool isFirst, const std::vector<std::string>& questions) const {
  std::vector<std::string> command{
      "ssh",
      "-T",
      "-x",
      "-a",
      Option("BatchMode", questions.empty() ? "yes" : "no"),
      Option("ClearAllForwardings", "yes"),
      Option("ConnectTimeout", std::to_string(FProfile.ConnectTimeout)),
      Option("ControlMaster", isFirst ? "yes" : "no"),
      Option("ControlPath", FControlPath.string()),
      Option("ControlPersist", "no"),
      Option("EscapeChar", "none"),
      Option("ForkAfterAuthentication", "no"),
      Option("LogLevel", "ERROR"),
      Option("PermitLocalCommand", "no"),
      Option("RemoteCommand", "none"),
      Option("RequestTTY", "no"),
      Option("ServerAliveCountMax", std::to_string(SignsOfLifeMissed)),
      Option("ServerAliveInterval", std::to_string(FProfile.KeepAlive)),
      Option("StrictHostKeyChecking", "yes"),
  };
  if (FProfile.Compress)
    command.push_back(Option("Compression", "yes"));
  for (std::string& word : SshProfileOptions(FProfile))
    command.push_back(std::move(word));
  return {.Command = std::move(command),
          .Environment = EnvironmentWith(questions.empty() ? AskingNobody() : questions)};
}

TProcessStart TSshCommands::FirstConnection(const std::vector<std::string>& questions) const {
  TProcessStart start = Start(/*isFirst=*/true, questions);
  start.Command.insert(start.Command.end(), {"-s", "--", FProfile.Host, "sftp"});
  return start;
}

TProcessStart TSshCommands::FurtherConnection() const {
  TProcessStart start = Start(/*isFirst=*/false, {});
  start.Command.insert(start.Command.end(), {"-s", "--", FProfile.Host, "sftp"});
  return start;
}

std::vector<std::string> TSshCommands::Words() const {
  std::vector<std::string> words = Start(/*isFirst=*/false, {}).Command;
  words.push_back(FProfile.Host);
  return words;
}

TProcessStart TSshCommands::Command(const std::string& command) const {
  TProcessStart start = Start(/*isFirst=*/false, {});
  start.Command.insert(start.Command.end(), {"--", FProfile.Host, command});
  return start;
}

TSshMachine::TSshMachine(TProfile profile, TPrompts prompts)
    : FProfile(std::move(profile)), FPrompts(std::move(prompts)),
      FCommands(FProfile, NewControlPath()) {}

TSshMachine::~TSshMachine() {
  FNobodyWaits = 1;
}

void TSshMachine::Prepare() {
  const std::lock_guard lock(FConnecting);
  const std::lock_guard stateLock(FMutex);
  if (!FIsConnected && !FPrepared.valid())
    FPrepared = std::async(std::launch::async, [this] {
      return Open(FCommands.FirstConnection({}), TConnecting::Silently, &FNobodyWaits);
    });
}

std::shared_ptr<IRemoteConnection> TSshMachine::Take(const std::atomic<int>* cancelled) {
  std::unique_ptr<TSftpConnection> connection = TakeIdle();
  if (!connection) {
    const std::lock_guard lock(FConnecting);
    bool isConnected = false;
    {
      const std::lock_guard stateLock(FMutex);
      isConnected = FIsConnected;
    }
    if (!isConnected) {
      connection = OpenFirst(cancelled);
      const std::lock_guard stateLock(FMutex);
      FIsConnected = true;
    }
  }
  if (!connection)
    connection = Open(FCommands.FurtherConnection(), TConnecting::Further, cancelled);
  connection->SetCancelled(cancelled);
  return {connection.release(), [machine = shared_from_this()](TSftpConnection* returned) {
            machine->GiveBack(std::unique_ptr<TSftpConnection>(returned));
          }};
}

std::unique_ptr<TSftpConnection> TSshMachine::OpenFirst(const std::atomic<int>* cancelled) {
  if (FPrepared.valid()) {
    try {
      return AwaitPrepared(cancelled);
    } catch (const TConnectionError& error) {
      // It asked nobody, and a person may know what was missing.
      const bool mayAnswer = FPrompts.TellsSecret && IsAboutLogIn(error.what());
      if (!mayAnswer && !Mend(error, cancelled))
        throw;
    }
  }
  while (true) {
    try {
      return OpenAsking(cancelled);
    } catch (const TConnectionError& error) {
      if (!Mend(error, cancelled))
        throw;
    }
  }
}

std::unique_ptr<TSftpConnection> TSshMachine::AwaitPrepared(const std::atomic<int>* cancelled) {
  while (FPrepared.wait_for(CancelInterval) != std::future_status::ready) {
    if (IsSet(cancelled))
      FNobodyWaits = 1;
  }
  FNobodyWaits = 0;
  return FPrepared.get();
}

std::unique_ptr<TSftpConnection> TSshMachine::OpenAsking(const std::atomic<int>* cancelled) const {
  if (!FPrompts.TellsSecret || AskpassProgram().empty())
    return Open(FCommands.FirstConnection({}), TConnecting::Silently, cancelled);
  const TAskpassListener listener(FPrompts.TellsSecret);
  return Open(FCommands.FirstConnection(listener.Environment()), TConnecting::Asking, cancelled);
}

// True when another attempt is worth it.
bool TSshMachine::Mend(const TConnectionError& error, const std::atomic<int>* cancelled) const {
  return IsAboutHostKey(error.what()) &&
         SettleHostKey(FProfile, FPrompts.AcceptsHostKey, [cancelled] { return IsSet(cancelled); });
}

// The connection used last, since the line may have closed the others.
std::unique_ptr<TSftpConnection> TSshMachine::TakeIdle() {
  const std::lock_guard lock(FMutex);
  while (!FIdle.empty()) {
    std::unique_ptr<TSftpConnection> connection = std::move(FIdle.back());
    FIdle.pop_back();
    if (connection->IsAlive())
      return connection;
    FIsConnected = FIsConnected && !connection->IsFirst();
  }
  return nullptr;
}

std::unique_ptr<TSftpConnection> TSshMachine::Open(const TProcessStart& sftp, TConnecting how,
                                                   const std::atomic<int>* cancelled) const {
  TSftpMachine machine{
      .Sftp = sftp,
      .Exec = [commands = FCommands](const std::string& line) { return commands.Command(line); },
      .RemoteShell = FCommands.Words(),
      .Root = FProfile.Path,
      .IsFirst = how != TConnecting::Further};
  // A person who is asked may take longer than any machine.
  machine.Greeting = std::chrono::seconds(FProfile.ConnectTimeout);
  if (how == TConnecting::Asking)
    machine.Greeting += LongestLogIn;
  else
    machine.Greeting += machine.Silence;
  try {
    return std::make_unique<TSftpConnection>(std::move(machine), FFacts, cancelled);
  } catch (const std::system_error& error) {
    throw TConnectionError(std::string("the SSH client cannot be run: ") + error.what());
  }
}

void TSshMachine::GiveBack(std::unique_ptr<TSftpConnection> connection) {
  connection->SetCancelled(nullptr);
  const std::lock_guard lock(FMutex);
  if (connection->IsAlive())
    FIdle.push_back(std::move(connection));
  else
    FIsConnected = FIsConnected && !connection->IsFirst();
}

} // namespace workbench
