#include "workbench/process/child_process.h"

#include <algorithm>
#include <array>
#include <csignal>
#include <fcntl.h>
#include <spawn.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <thread>

namespace workbench {
namespace {

constexpr std::size_t LongestErrorText = std::size_t(64) * 1024;
constexpr int PipeSize = 1024 * 1024; // fewer turns between two programs that share a processor
constexpr std::chrono::milliseconds PollInterval(1);
constexpr std::chrono::milliseconds EndPatience(200);

struct TPipe {
  TFileDescriptor Read;
  TFileDescriptor Write;
};

TPipe OpenPipe() {
  std::array<int, 2> ends{-1, -1};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0)
    ThrowSystemError("making a pipe");
  static_cast<void>(::fcntl(ends[0], F_SETPIPE_SZ, PipeSize)); // the usual size does as well
  return {TFileDescriptor(ends[0]), TFileDescriptor(ends[1])};
}

// A socket, since a write into a pipe that nobody reads would end this program.
TPipe OpenInput() {
  std::array<int, 2> ends{-1, -1};
  if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
    ThrowSystemError("making a socket");
  static_cast<void>(::setsockopt(ends[1], SOL_SOCKET, SO_SNDBUF, &PipeSize, sizeof(PipeSize)));
  return {TFileDescriptor(ends[0]), TFileDescriptor(ends[1])};
}

void SetNonBlocking(const TFileDescriptor& file) {
  const int flags = ::fcntl(file.Get(), F_GETFL);
  if (flags < 0 || ::fcntl(file.Get(), F_SETFL, flags | O_NONBLOCK) != 0)
    ThrowSystemError("setting up a pipe");
}

class TSpawnSettings {
public:
  TSpawnSettings(const std::filesystem::path& directory, int input, int output, int errors) {
    posix_spawn_file_actions_init(&FActions);
    posix_spawnattr_init(&FAttributes);
    if (!directory.empty())
      posix_spawn_file_actions_addchdir_np(&FActions, directory.c_str());
    posix_spawn_file_actions_adddup2(&FActions, input, STDIN_FILENO);
    posix_spawn_file_actions_adddup2(&FActions, output, STDOUT_FILENO);
    posix_spawn_file_actions_adddup2(&FActions, errors, STDERR_FILENO);
    // What is held back here is not to be held back there; a group of its own keeps an interrupt
    // of the terminal away, so that a transfer is ended in order.
    sigset_t none;
    sigemptyset(&none);
    posix_spawnattr_setsigmask(&FAttributes, &none);
    sigset_t usual;
    sigemptyset(&usual);
    sigaddset(&usual, SIGPIPE);
    posix_spawnattr_setsigdefault(&FAttributes, &usual);
    posix_spawnattr_setpgroup(&FAttributes, 0);
    posix_spawnattr_setflags(&FAttributes, POSIX_SPAWN_SETSIGMASK | POSIX_SPAWN_SETSIGDEF |
                                               POSIX_SPAWN_SETPGROUP);
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

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (std::string& text : texts)
    pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

} // namespace

std::vector<std::string> EnvironmentWith(const std::vector<std::string>& changes) {
  const auto nameOf = [](std::string_view text) { return text.substr(0, text.find('=')); };
  std::vector<std::string> all = changes;
  for (char** variable = environ; *variable; ++variable) {
    const std::string_view text(*variable);
    if (std::ranges::none_of(changes,
                             [&](const auto& change) { return nameOf(change) == nameOf(text); }))
      all.emplace_back(text);
  }
  return all;
}

TChildProcess::TChildProcess(const TProcessStart& start) {
  TPipe input = OpenInput();
  TPipe output = OpenPipe();
  TPipe errors = OpenPipe();
  SetNonBlocking(input.Write);
  SetNonBlocking(output.Read);
  SetNonBlocking(errors.Read);
  std::vector<std::string> command = start.Command;
  std::vector<std::string> environment = start.Environment;
  const TSpawnSettings settings(start.Directory, input.Read.Get(), output.Write.Get(),
                                start.JoinErrors ? output.Write.Get() : errors.Write.Get());
  const int error =
      ::posix_spawnp(&FProcess, command.front().c_str(), settings.Actions(), settings.Attributes(),
                     Pointers(command).data(), Pointers(environment).data());
  if (error != 0) {
    FProcess = -1;
    throw std::system_error(error, std::generic_category(), "starting " + command.front());
  }
  FInput = std::move(input.Write);
  FOutput = std::move(output.Read);
  FErrors = std::move(errors.Read);
}

ssize_t TChildProcess::Write(std::string_view bytes) {
  return ::send(FInput.Get(), bytes.data(), bytes.size(), MSG_NOSIGNAL);
}

void TChildProcess::ReadErrors() {
  std::array<char, 4096> block{};
  while (FErrors.IsOpen()) {
    const ssize_t count = ::read(FErrors.Get(), block.data(), block.size());
    if (count < 0 && errno == EINTR)
      continue;
    if (count == 0)
      FErrors = TFileDescriptor();
    if (count <= 0)
      return;
    const std::size_t room = LongestErrorText - FErrorText.size();
    FErrorText.append(block.data(), std::min(room, static_cast<std::size_t>(count)));
  }
}

std::optional<int> TChildProcess::Wait(std::chrono::milliseconds patience) {
  const auto end = std::chrono::steady_clock::now() + patience;
  while (!FStatus && FProcess > 0) {
    int status = 0;
    const pid_t ended = ::waitpid(FProcess, &status, WNOHANG);
    if (ended == FProcess)
      FStatus = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
    else if (ended < 0 && errno != EINTR)
      FStatus = -1;
    else if (std::chrono::steady_clock::now() >= end)
      return std::nullopt;
    else
      std::this_thread::sleep_for(PollInterval);
  }
  return FStatus;
}

void TChildProcess::End() {
  CloseInput();
  if (FProcess <= 0 || Wait(std::chrono::milliseconds(0)))
    return;
  ::kill(-FProcess, SIGTERM);
  if (Wait(EndPatience))
    return;
  ::kill(-FProcess, SIGKILL);
  int status = 0;
  while (::waitpid(FProcess, &status, 0) < 0 && errno == EINTR) {
  }
  FStatus = 128 + SIGKILL;
}

} // namespace workbench
