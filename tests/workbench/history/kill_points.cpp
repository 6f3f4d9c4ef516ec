#include "tests/workbench/history/kill_points.h"

#include <csignal>
#include <cstdint>
#include <exception>
#include <string>
#include <sys/ptrace.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

namespace workbench::testing {
namespace {

namespace fs = std::filesystem;

constexpr int CallOfSystem = SIGTRAP | 0x80;

// Names, numbers, sizes and times of everything below.
std::string LookOf(const fs::path& directory) {
  std::string look;
  std::error_code ignored;
  for (const auto& entry : fs::recursive_directory_iterator(directory, ignored)) {
    struct stat status = {};
    if (::lstat(entry.path().c_str(), &status) != 0)
      continue;
    look += entry.path().native() + '\0' + std::to_string(status.st_ino) + '\0' +
            std::to_string(status.st_size) + '\0' + std::to_string(status.st_mtim.tv_sec) + '.' +
            std::to_string(status.st_mtim.tv_nsec) + '\n';
  }
  return look;
}

[[noreturn]] void RunTraced(const std::function<void()>& action) {
  if (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0)
    ::_exit(2);
  ::raise(SIGSTOP);
  try {
    action();
    ::_exit(0);
  } catch (const std::exception&) {
    ::_exit(1);
  }
}

// Goes on to where the next call of the system begins or ends; false when the process ended.
bool GoOn(pid_t child, int& status) {
  const bool isCall = WIFSTOPPED(status) && WSTOPSIG(status) == CallOfSystem;
  const bool isFirst = WIFSTOPPED(status) && WSTOPSIG(status) == SIGSTOP;
  const auto signal =
      static_cast<std::uintptr_t>(isCall || isFirst || !WIFSTOPPED(status) ? 0 : WSTOPSIG(status));
  if (::ptrace(PTRACE_SYSCALL, child, nullptr, reinterpret_cast<void*>(signal)) != 0)
    return false;
  return ::waitpid(child, &status, 0) == child && WIFSTOPPED(status);
}

} // namespace

std::vector<fs::path> StatesOfKills(const fs::path& directory, const fs::path& copies,
                                    const std::function<void()>& action) {
  std::vector<fs::path> states;
  std::string last;
  const auto look = [&] {
    std::string now = LookOf(directory);
    if (now == last)
      return;
    last = std::move(now);
    states.push_back(copies / std::to_string(states.size()));
    fs::copy(directory, states.back(),
             fs::copy_options::recursive | fs::copy_options::copy_symlinks);
  };
  look();
  const pid_t child = ::fork();
  if (child == 0)
    RunTraced(action);
  int status = 0;
  if (::waitpid(child, &status, 0) != child || !WIFSTOPPED(status))
    return {};
  const long options = PTRACE_O_TRACESYSGOOD | PTRACE_O_EXITKILL;
  ::ptrace(PTRACE_SETOPTIONS, child, nullptr, reinterpret_cast<void*>(options));
  while (GoOn(child, status))
    look();
  return WIFEXITED(status) && WEXITSTATUS(status) == 0 ? states : std::vector<fs::path>();
}

} // namespace workbench::testing
