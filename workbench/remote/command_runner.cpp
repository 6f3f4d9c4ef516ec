#include "workbench/remote/command_runner.h"

#include "workbench/files/file_descriptor.h"

#include <array>
#include <chrono>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/wait.h>
#include <thread>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds PollInterval(10);

// What a new process is started with.
class TSpawnSettings {
public:
  explicit TSpawnSettings(const std::filesystem::path& directory) {
    posix_spawn_file_actions_init(&FActions);
    posix_spawnattr_init(&FAttributes);
    posix_spawn_file_actions_addchdir_np(&FActions, directory.c_str());
    posix_spawn_file_actions_addopen(&FActions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    posix_spawn_file_actions_adddup2(&FActions, STDERR_FILENO, STDOUT_FILENO);
    // A deploy holds interrupts back to end in order; its commands are not to inherit that. A
    // group of its own lets all that a command started be ended with it.
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&FAttributes, &none);
    posix_spawnattr_setpgroup(&FAttributes, 0);
    posix_spawnattr_setflags(&FAttributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETPGROUP);
  }
  ~TSpawnSettings() {
    posix_spawnattr_destroy(&FAttributes);
    posix_spawn_file_actions_destroy(&FActions);
  }
  TSpawnSettings(const TSpawnSettings&) = delete;
  TSpawnSettings& operator=(const TSpawnSettings&) = delete;

  const posix_spawn_file_actions_t* Actions() const { return &FActions; }
  const posix_spawnattr_t* Attributes() const { return &FAttributes; }

private:
  posix_spawn_file_actions_t FActions = {};
  posix_spawnattr_t FAttributes = {};
};

std::string Ending(int status) {
  if (WIFSIGNALED(status))
    return "was ended by signal " + std::to_string(WTERMSIG(status));
  const int code = WEXITSTATUS(status);
  return code == 0 ? std::string() : "ended with status " + std::to_string(code);
}

std::string WaitFor(pid_t process, const std::atomic<int>& cancelled) {
  int status = 0;
  while (true) {
    const pid_t ended = ::waitpid(process, &status, WNOHANG);
    if (ended == process)
      return cancelled != 0 ? "was interrupted" : Ending(status);
    if (ended < 0 && errno != EINTR)
      return "cannot be waited for: " + SystemReason(errno);
    if (cancelled != 0)
      ::kill(-process, SIGTERM);
    std::this_thread::sleep_for(PollInterval);
  }
}

} // namespace

std::string RunCommandLine(const std::string& command, const std::filesystem::path& directory,
                           const std::atomic<int>& cancelled) {
  if (command.find('\0') != std::string::npos)
    return "has a NUL character";
  const TSpawnSettings settings(directory);
  std::string shell = "/bin/sh";
  std::string option = "-c";
  std::string line = command;
  const std::array<char*, 4> arguments{shell.data(), option.data(), line.data(), nullptr};
  pid_t process = 0;
  const int error = ::posix_spawn(&process, shell.c_str(), settings.Actions(),
                                  settings.Attributes(), arguments.data(), environ);
  return error != 0 ? "cannot be started: " + SystemReason(error) : WaitFor(process, cancelled);
}

} // namespace workbench
