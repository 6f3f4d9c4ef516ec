#include "workbench/remote/ssh_machine.h"

#include "workbench/files/file_descriptor.h"

#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <sys/stat.h>
#include <unistd.h>

namespace workbench {
namespace {

constexpr std::size_t LongestSocketPath = 80; // the client appends some letters while it makes it
constexpr unsigned SignsOfLifeMissed = 2;     // a line that misses more is dead
constexpr std::chrono::minutes LongestLogIn(2);
constexpr const char* DirectoryName = "deployment-manager";

std::string Option(const std::string& key, const std::string& value) {
  return "-o" + key + "=" + value;
}

// A directory of the user alone; empty when it cannot be had.
std::filesystem::path PrivateDirectory(const std::filesystem::path& path) {
  if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST)
    return {};
  struct stat status = {};
  if (::lstat(path.c_str(), &status) != 0 || !S_ISDIR(status.st_mode) ||
      status.st_uid != ::geteuid() || (status.st_mode & 077) != 0)
    return {};
  return path;
}

std::filesystem::path SocketDirectory() {
  if (const char* runtime = std::getenv("XDG_RUNTIME_DIR"); runtime && *runtime == '/') {
    const auto directory = PrivateDirectory(std::filesystem::path(runtime) / DirectoryName);
    if (!directory.empty() && directory.native().size() <= LongestSocketPath - 20)
      return directory;
  }
  const std::string name = "/tmp/" + std::string(DirectoryName) + "-" + std::to_string(::geteuid());
  if (auto directory = PrivateDirectory(name); !directory.empty())
    return directory;
  std::string unused = name + "-XXXXXX"; // somebody else has the name
  if (!::mkdtemp(unused.data()))
    ThrowSystemError("making a directory for the connection's socket");
  return unused;
}

} // namespace

std::filesystem::path NewControlPath() {
  std::random_device source;
  std::array<char, 20> name{};
  std::snprintf(name.data(), name.size(), "%x%08x", static_cast<unsigned>(::getpid()), source());
  return SocketDirectory() / name.data();
}

TSshCommands::TSshCommands(TProfile profile, std::filesystem::path controlPath,
                           std::vector<std::string> questions)
    : FProfile(std::move(profile)), FControlPath(std::move(controlPath)),
      FQuestions(std::move(questions)) {}

TProcessStart TSshCommands::Start(bool isFirst, bool mayAsk) const {
  const bool asks = mayAsk && !FQuestions.empty();
  std::vector<std::string> command{
      "ssh",
      "-T",
      "-x",
      "-a",
      Option("BatchMode", asks ? "no" : "yes"),
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
  if (FProfile.Port != 0)
    command.push_back(Option("Port", std::to_string(FProfile.Port)));
  if (!FProfile.User.empty())
    command.push_back(Option("User", FProfile.User));
  if (!FProfile.Identity.empty())
    command.push_back(Option("IdentityFile", FProfile.Identity));
  for (const std::string& option : FProfile.SshOptions)
    command.push_back("-o" + option);
  return {.Command = std::move(command),
          .Environment = EnvironmentWith(asks ? FQuestions : std::vector<std::string>())};
}

TProcessStart TSshCommands::FirstLane(bool mayAsk) const {
  TProcessStart start = Start(/*isFirst=*/true, mayAsk);
  start.Command.insert(start.Command.end(), {"-s", "--", FProfile.Host, "sftp"});
  return start;
}

TProcessStart TSshCommands::FurtherLane() const {
  TProcessStart start = Start(/*isFirst=*/false, /*mayAsk=*/false);
  start.Command.insert(start.Command.end(), {"-s", "--", FProfile.Host, "sftp"});
  return start;
}

TProcessStart TSshCommands::Command(const std::string& command) const {
  TProcessStart start = Start(/*isFirst=*/false, /*mayAsk=*/false);
  start.Command.insert(start.Command.end(), {"--", FProfile.Host, command});
  return start;
}

TSshMachine::TSshMachine(TProfile profile, bool isWindows, std::vector<std::string> questions,
                         TMend mend)
    : FProfile(std::move(profile)), FIsWindows(isWindows), FMend(std::move(mend)),
      FAsks(!questions.empty()), FCommands(FProfile, NewControlPath(), std::move(questions)) {}

void TSshMachine::Prepare() {
  const std::lock_guard lock(FConnecting);
  const std::lock_guard stateLock(FMutex);
  if (!FIsConnected && !FPrepared.valid())
    FPrepared = std::async(std::launch::async, [this] {
      return Open(FCommands.FirstLane(/*mayAsk=*/false), /*isFirst=*/true, nullptr);
    });
}

std::shared_ptr<IRemoteConnection> TSshMachine::Take(const std::atomic<int>* cancelled) {
  std::unique_ptr<TSftpConnection> lane = TakeIdle();
  if (!lane) {
    const std::lock_guard lock(FConnecting);
    bool isConnected = false;
    {
      const std::lock_guard stateLock(FMutex);
      isConnected = FIsConnected;
    }
    if (!isConnected) {
      lane = OpenFirst(cancelled);
      const std::lock_guard stateLock(FMutex);
      FIsConnected = true;
    }
  }
  if (!lane)
    lane = Open(FCommands.FurtherLane(), /*isFirst=*/false, cancelled);
  return {lane.release(), [machine = shared_from_this()](TSftpConnection* returned) {
            machine->GiveBack(std::unique_ptr<TSftpConnection>(returned));
          }};
}

std::unique_ptr<TSftpConnection> TSshMachine::OpenFirst(const std::atomic<int>* cancelled) {
  if (FPrepared.valid()) {
    try {
      return FPrepared.get();
    } catch (const TConnectionError&) {
      if (!FAsks && !FMend)
        throw;
    }
  }
  while (true) {
    try {
      return Open(FCommands.FirstLane(/*mayAsk=*/true), /*isFirst=*/true, cancelled);
    } catch (const TConnectionError& error) {
      if (!FMend || !FMend(FProfile, error.what()))
        throw;
    }
  }
}

// The lane used last, since the line may have closed the others.
std::unique_ptr<TSftpConnection> TSshMachine::TakeIdle() {
  const std::lock_guard lock(FMutex);
  while (!FIdle.empty()) {
    std::unique_ptr<TSftpConnection> lane = std::move(FIdle.back());
    FIdle.pop_back();
    if (lane->IsAlive())
      return lane;
    FIsConnected = FIsConnected && !lane->IsFirst();
  }
  return nullptr;
}

std::unique_ptr<TSftpConnection> TSshMachine::Open(const TProcessStart& sftp, bool isFirst,
                                                   const std::atomic<int>* cancelled) const {
  TSftpMachine machine{
      .Sftp = sftp,
      .Exec = [commands = FCommands](const std::string& line) { return commands.Command(line); },
      .Root = FProfile.Path,
      .IsWindows = FIsWindows,
      .IsFirst = isFirst};
  // The client gives up by itself when nobody is there; a person who is asked may take longer.
  machine.Greeting = isFirst ? std::chrono::seconds(FProfile.ConnectTimeout) + LongestLogIn
                             : std::chrono::seconds(FProfile.ConnectTimeout) + machine.Silence;
  try {
    return std::make_unique<TSftpConnection>(std::move(machine), FParts, cancelled);
  } catch (const std::system_error& error) {
    throw TConnectionError(std::string("the SSH client cannot be run: ") + error.what());
  }
}

void TSshMachine::GiveBack(std::unique_ptr<TSftpConnection> lane) {
  const std::lock_guard lock(FMutex);
  if (lane->IsAlive())
    FIdle.push_back(std::move(lane));
  else
    FIsConnected = FIsConnected && !lane->IsFirst();
}

} // namespace workbench
