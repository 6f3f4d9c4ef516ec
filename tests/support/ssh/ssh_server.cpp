#include "tests/support/ssh/ssh_server.h"

#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <fstream>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

namespace workbench::testing {
namespace {

namespace fs = std::filesystem;

constexpr const char* Server = "/usr/sbin/sshd";
constexpr const char* TransferProgram = "/usr/lib/openssh/sftp-server";
constexpr const char* PrivilegeDirectory = "/run/sshd"; // a server of root wants it

std::string TextOf(const fs::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

pid_t Spawn(std::vector<std::string> command, int input, int output, int errors) {
  std::vector<char*> words;
  words.reserve(command.size() + 1);
  for (std::string& word : command)
    words.push_back(word.data());
  words.push_back(nullptr);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, input, STDIN_FILENO);
  posix_spawn_file_actions_adddup2(&actions, output, STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, errors, STDERR_FILENO);
  pid_t process = -1;
  const int error = ::posix_spawnp(&process, words[0], &actions, nullptr, words.data(), environ);
  posix_spawn_file_actions_destroy(&actions);
  if (error != 0)
    throw std::runtime_error("cannot start " + command[0]);
  return process;
}

// What it printed. Throws when it fails.
std::string OutputOf(const std::vector<std::string>& command, const fs::path& file) {
  const int output = ::open(file.c_str(), O_RDWR | O_CREAT | O_TRUNC | O_CLOEXEC, 0600);
  const int nothing = ::open("/dev/null", O_RDWR | O_CLOEXEC);
  const pid_t process = Spawn(command, nothing, output, nothing);
  int status = 0;
  ::waitpid(process, &status, 0);
  ::close(output);
  ::close(nothing);
  std::string text = TextOf(file);
  fs::remove(file);
  if (status != 0)
    throw std::runtime_error(command[0] + " failed");
  return text;
}

pid_t ParentOf(const std::string& process) {
  // "PID (NAME) STATE PARENT ..."
  const std::string text = TextOf("/proc/" + process + "/stat");
  std::istringstream rest(text.substr(std::min(text.rfind(')') + 1, text.size())));
  std::string state;
  pid_t parent = -1;
  rest >> state >> parent;
  return parent;
}

// Those that the process started, and what these started.
std::vector<pid_t> Descendants(pid_t process) {
  std::vector<pid_t> all{process};
  for (std::size_t i = 0; i < all.size(); ++i) {
    for (const auto& entry : fs::directory_iterator("/proc")) {
      const std::string name = entry.path().filename().string();
      if (name.find_first_not_of("0123456789") == std::string::npos && ParentOf(name) == all[i])
        all.push_back(static_cast<pid_t>(std::stol(name)));
    }
  }
  return all;
}

} // namespace

void MakeKey(const fs::path& file, const std::string& passphrase) {
  fs::remove(file);
  fs::remove(file.string() + ".pub");
  OutputOf({"ssh-keygen", "-q", "-t", "ed25519", "-N", passphrase, "-C", "", "-f", file.string()},
           file.string() + ".out");
}

std::string TSshServer::WhyNot() {
  if (!fs::exists(Server) || !fs::exists(TransferProgram))
    return "the OpenSSH server is not installed";
  if (::getuid() == 0) {
    std::error_code ignored;
    fs::create_directories(PrivilegeDirectory, ignored);
    if (!fs::exists(PrivilegeDirectory))
      return std::string(PrivilegeDirectory) + " cannot be made";
  }
  return {};
}

TSshServer::TSshServer(const fs::path& directory) : FDirectory(directory) {
  fs::create_directories(FDirectory);
  MakeKey(Identity());
  Admit(Identity());
  ResetTransfer();
  ChangeHostKey();
  FListener = std::make_unique<TLoopbackListener>([this](int connection) { Serve(connection); });
}

TSshServer::~TSshServer() {
  FListener.reset();
  KillConnections();
}

std::vector<std::string> TSshServer::ClientOptions() const {
  return {"UserKnownHostsFile=" + KnownHosts().string(), "GlobalKnownHostsFile=/dev/null",
          "IdentitiesOnly=yes", "IdentityAgent=none", "HashKnownHosts=no"};
}

void TSshServer::Admit(const fs::path& identity) const {
  std::ofstream(FDirectory / "authorized_keys", std::ios::app)
      << TextOf(identity.string() + ".pub");
}

std::string TSshServer::HostKey() const {
  std::istringstream words(TextOf(FDirectory / "host_key.pub"));
  std::string type;
  std::string key;
  words >> type >> key;
  return type + " " + key;
}

std::string TSshServer::Fingerprint() const {
  std::istringstream words(
      OutputOf({"ssh-keygen", "-l", "-E", "sha256", "-f", (FDirectory / "host_key.pub").string()},
               FDirectory / "fingerprint"));
  std::string bits;
  std::string print;
  words >> bits >> print;
  return print;
}

void TSshServer::Introduce() const {
  std::ofstream(KnownHosts(), std::ios::app) << HostName() << ' ' << HostKey() << '\n';
}

void TSshServer::ChangeHostKey() {
  MakeKey(FDirectory / "host_key");
}

// A file of its own, since the configuration knows no quotes here.
void TSshServer::SetTransfer(const std::string& script) {
  const fs::path file = FDirectory / "transfer.sh";
  std::ofstream(file) << script << '\n';
  FTransfer = "/bin/sh " + file.string();
  WriteConfiguration();
}

void TSshServer::ResetTransfer() {
  FTransfer = TransferProgram;
  WriteConfiguration();
}

void TSshServer::SetSearchPath(const std::string& directories) {
  FSearchPath = directories;
  WriteConfiguration();
}

void TSshServer::WriteConfiguration() const {
  std::ofstream(FDirectory / "sshd_config")
      << "HostKey " << (FDirectory / "host_key").string() << '\n'
      << "AuthorizedKeysFile " << (FDirectory / "authorized_keys").string() << '\n'
      << "Subsystem sftp " << FTransfer << '\n'
      << (FSearchPath.empty() ? std::string() : "SetEnv PATH=" + FSearchPath + "\n")
      << "PidFile none\nStrictModes no\nUsePAM no\nPasswordAuthentication no\n"
         "KbdInteractiveAuthentication no\nPermitRootLogin yes\nPrintMotd no\nUseDNS no\n";
}

// One server for each connection, so that no port has to be found for it.
void TSshServer::Serve(int connection) {
  const std::vector<std::string> command{Server, "-i", "-e", "-f",
                                         (FDirectory / "sshd_config").string()};
  const int log =
      ::open((FDirectory / "sshd.log").c_str(), O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, 0600);
  {
    const std::lock_guard lock(FMutex);
    FServers.push_back(Spawn(command, connection, connection, log));
  }
  ::close(connection);
  ::close(log);
}

void TSshServer::KillConnections() {
  const std::lock_guard lock(FMutex);
  for (const pid_t server : FServers) {
    for (const pid_t process : Descendants(server))
      ::kill(process, SIGKILL);
    ::waitpid(server, nullptr, 0);
  }
  FServers.clear();
}

void TSshServer::FreezeConnections() {
  const std::lock_guard lock(FMutex);
  for (const pid_t server : FServers) {
    for (const pid_t process : Descendants(server))
      ::kill(process, SIGSTOP);
  }
}

} // namespace workbench::testing
