#include "tests/integration/run_program.h"

#include <array>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <fcntl.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <stdexcept>
#include <string_view>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <termios.h>
#include <thread>
#include <unistd.h>

namespace integration {
namespace {

using TClock = std::chrono::steady_clock;

class TDescriptor {
public:
  explicit TDescriptor(int file) : FFile(file) {
    if (file < 0)
      throw std::runtime_error("no file descriptor");
  }
  ~TDescriptor() { Close(); }
  TDescriptor(const TDescriptor&) = delete;
  TDescriptor& operator=(const TDescriptor&) = delete;

  int Get() const { return FFile; }
  void Close() {
    if (FFile >= 0)
      ::close(FFile);
    FFile = -1;
  }

private:
  int FFile;
};

std::array<int, 2> OpenPipe() {
  std::array<int, 2> ends{-1, -1};
  if (::pipe2(ends.data(), O_CLOEXEC) != 0)
    throw std::runtime_error("no pipe");
  return ends;
}

struct TPipe {
  explicit TPipe(std::array<int, 2> ends) : Read(ends[0]), Write(ends[1]) {}
  TDescriptor Read;
  TDescriptor Write;
};

// A person's side of a terminal.
int OpenTerminal() {
  const int terminal = ::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC);
  if (terminal < 0 || ::grantpt(terminal) != 0 || ::unlockpt(terminal) != 0)
    throw std::runtime_error("no terminal");
  return terminal;
}

std::string ProgramSideOf(int terminal) {
  std::array<char, 128> name{};
  if (::ptsname_r(terminal, name.data(), name.size()) != 0)
    throw std::runtime_error("no terminal");
  return name.data();
}

std::vector<char*> Pointers(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts)
    pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// In this process and those that it starts, every attempt ends as where there are none.
bool DenyHardLinks() {
  std::array<sock_filter, 4> filter{{BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
                                     BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, SYS_linkat, 0, 1),
                                     BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EPERM),
                                     BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW)}};
  const sock_fprog program{filter.size(), filter.data()};
  return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 &&
         ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

// One run from its start to its end.
class TProcess {
public:
  explicit TProcess(TStart start)
      : FStart(std::move(start)),
        FTerminal(FStart.Answer ? OpenTerminal() : ::open("/dev/null", O_RDONLY | O_CLOEXEC)),
        FOutput(OpenPipe()), FErrors(OpenPipe()) {}

  TRun Run() {
    Begin();
    std::thread aside;
    if (FStart.Meanwhile)
      aside = std::thread(FStart.Meanwhile, FChild);
    ReadBoth();
    int status = 0;
    ::waitpid(FChild, &status, 0);
    if (aside.joinable())
      aside.join();
    FRun.Status = WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    FRun.IsTerminalSilent = FStart.Answer && IsSilent();
    return std::move(FRun);
  }

private:
  void Begin() {
    const std::string input = FStart.Answer ? ProgramSideOf(FTerminal.Get()) : "/dev/null";
    const std::vector<char*> arguments = Pointers(FStart.Command);
    const std::vector<char*> environment = Pointers(FStart.Environment);
    FChild = ::fork();
    if (FChild < 0)
      throw std::runtime_error("no process");
    if (FChild == 0) {
      ::dup2(::open(input.c_str(), O_RDONLY | O_NOCTTY), STDIN_FILENO);
      ::dup2(FOutput.Write.Get(), STDOUT_FILENO);
      ::dup2(FErrors.Write.Get(), STDERR_FILENO);
      if (::setpgid(0, 0) != 0 || ::chdir(FStart.Directory.c_str()) != 0 ||
          (FStart.AsNobody && (::setgid(Nobody) != 0 || ::setuid(Nobody) != 0)) ||
          (FStart.WithoutHardLinks && !DenyHardLinks()))
        ::_exit(126);
      ::execvpe(arguments[0], arguments.data(), environment.data());
      ::_exit(127);
    }
    ::setpgid(FChild, FChild); // whoever comes first, so that the whole group can be killed
    FOutput.Write.Close();
    FErrors.Write.Close();
  }

  void ReadBoth() {
    const TClock::time_point end = TClock::now() + FStart.Patience;
    std::array<pollfd, 2> files{{{FOutput.Read.Get(), POLLIN, 0}, {FErrors.Read.Get(), POLLIN, 0}}};
    bool killed = false;
    while (files[0].fd >= 0 || files[1].fd >= 0) {
      if (!killed && !WaitUntil(end, files)) {
        ::kill(-FChild, SIGKILL);
        killed = true;
      }
      ReadFrom(files[0], FRun.Output);
      ReadFrom(files[1], FRun.Errors);
      AnswerQuestion();
    }
  }

  // False when the time is over.
  static bool WaitUntil(TClock::time_point end, std::array<pollfd, 2>& files) {
    const auto left =
        std::chrono::duration_cast<std::chrono::nanoseconds>(end - TClock::now()).count();
    if (left <= 0)
      return false;
    constexpr long Second = 1'000'000'000;
    const timespec time{left / Second, left % Second};
    return ::ppoll(files.data(), files.size(), &time, nullptr) != 0;
  }

  // After a kill this blocks until the pipe is closed, which is at once.
  static void ReadFrom(pollfd& file, std::string& text) {
    if (file.fd < 0 || ::poll(&file, 1, 0) <= 0)
      return;
    std::array<char, 65536> buffer{};
    const ssize_t count = ::read(file.fd, buffer.data(), buffer.size());
    if (count > 0)
      text.append(buffer.data(), static_cast<std::size_t>(count));
    else
      file.fd = -1;
  }

  bool IsSilent() const {
    termios state = {};
    return ::tcgetattr(FTerminal.Get(), &state) == 0 && (state.c_lflag & ECHO) == 0;
  }

  void AnswerQuestion() {
    const std::string_view text = FRun.Errors;
    // A choice, or a question of the SSH client.
    if (!FStart.Answer || text.size() == FAnswered ||
        !(text.ends_with("] ") || text.ends_with("': ")))
      return;
    FAnswered = text.size();
    const std::string answer = FStart.Answer({FRun.Errors, FChild, IsSilent()}) + "\n";
    // Whoever answered may have ended the program.
    if (::write(FTerminal.Get(), answer.data(), answer.size()) < 0 && errno != EIO)
      throw std::runtime_error("the terminal takes no answer");
  }

  TStart FStart;
  TDescriptor FTerminal;
  TPipe FOutput;
  TPipe FErrors;
  pid_t FChild = -1;
  TRun FRun;
  std::size_t FAnswered = 0;
};

} // namespace

TRun RunProgram(TStart start) {
  return TProcess(std::move(start)).Run();
}

} // namespace integration
