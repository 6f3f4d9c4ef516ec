#include "tests/faults/traced_run.h"

#include "tests/faults/allocation_plan.h"
#include "tests/faults/system_calls.h"

#include <array>
#include <cerrno>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <map>
#include <optional>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/ptrace.h>
#include <sys/time.h>
#include <sys/uio.h>
#include <sys/user.h>
#include <sys/wait.h>
#include <system_error>
#include <unistd.h>

namespace faults {
namespace {

using TClock = std::chrono::steady_clock;

constexpr std::chrono::seconds LongestRun(20);
constexpr int SystemCallStop = SIGTRAP | 0x80;

[[noreturn]] void Throw(const char* action) {
  throw std::system_error(errno, std::generic_category(), action);
}

// A file in memory that takes what a program prints.
class TCatch {
public:
  TCatch() : FFile(::memfd_create("output", MFD_CLOEXEC)) {
    if (FFile < 0)
      Throw("making a file in memory");
  }
  ~TCatch() { ::close(FFile); }
  TCatch(const TCatch&) = delete;
  TCatch& operator=(const TCatch&) = delete;

  int File() const { return FFile; }
  std::string Text() const {
    std::string text(static_cast<std::size_t>(std::max<off_t>(::lseek(FFile, 0, SEEK_END), 0)),
                     '\0');
    const ssize_t count = ::pread(FFile, text.data(), text.size(), 0);
    text.resize(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
    return text;
  }

private:
  int FFile;
};

std::vector<char*> PointersTo(const std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  pointers.reserve(texts.size() + 1);
  for (const std::string& text : texts)
    pointers.push_back(const_cast<char*>(text.c_str()));
  pointers.push_back(nullptr);
  return pointers;
}

// Lets waitpid return once a second, so that a run that never ends is noticed.
void TickEverySecond() {
  struct sigaction action = {};
  action.sa_handler = [](int) {};
  ::sigaction(SIGALRM, &action, nullptr); // without SA_RESTART
  const itimerval second{{1, 0}, {1, 0}};
  ::setitimer(ITIMER_REAL, &second, nullptr);
}

pid_t Start(const TProgramStart& start, const TCatch& output, const TCatch& errors, bool isTraced) {
  const std::vector<char*> command = PointersTo(start.Command);
  const std::vector<char*> environment = PointersTo(start.Environment);
  const pid_t process = ::fork();
  if (process < 0)
    Throw("starting a program");
  if (process > 0)
    return process;
  const int nothing = ::open("/dev/null", O_RDONLY);
  ::dup2(nothing, 0);
  ::dup2(output.File(), 1);
  ::dup2(errors.File(), 2);
  ::prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (::chdir(start.Directory.c_str()) != 0)
    ::_exit(127);
  if (isTraced && (::ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) != 0 || ::raise(SIGSTOP) != 0))
    ::_exit(126);
  ::execve(command.front(), command.data(), environment.data());
  ::_exit(127);
}

int StatusOf(int waited) {
  return WIFSIGNALED(waited) ? 128 + WTERMSIG(waited) : WEXITSTATUS(waited);
}

// Programs that the run started and that outlived it, such as a server whose client was killed.
void EndOrphans() {
  int status = 0;
  for (int tries = 0; tries < 2000; ++tries) {
    const pid_t ended = ::waitpid(-1, &status, WNOHANG | __WALL);
    if (ended < 0 && errno == ECHILD)
      return;
    if (ended <= 0)
      ::usleep(1000);
  }
}

// One traced run from its first to its last stop.
class TTrace {
public:
  TTrace(const TProgramStart& start, const TFault& fault, TRunEnd& end, TAllocationPlan* plan)
      : FFault(fault), FPlace(start.Directory.string()), FEnd(end), FPlan(plan) {}

  void Follow(pid_t process) {
    FProcess = process;
    int status = 0;
    if (::waitpid(process, &status, 0) != process || !WIFSTOPPED(status))
      Throw("tracing a program");
    if (::ptrace(PTRACE_SETOPTIONS, process, nullptr,
                 PTRACE_O_TRACESYSGOOD | PTRACE_O_TRACECLONE | PTRACE_O_TRACEEXEC |
                     PTRACE_O_EXITKILL) != 0)
      Throw("tracing a program");
    ::ptrace(PTRACE_SYSCALL, process, nullptr, nullptr);
    const auto deadline = TClock::now() + LongestRun;
    while (true) {
      const pid_t stopped = ::waitpid(-1, &status, __WALL);
      if (TClock::now() > deadline && !FEnd.IsEndless) {
        FEnd.IsEndless = true;
        ::kill(process, SIGKILL);
      }
      if (stopped < 0 && errno == EINTR)
        continue;
      if (stopped < 0)
        return;
      if (!WIFSTOPPED(status)) {
        if (stopped == process) {
          FEnd.Status = StatusOf(status);
          return;
        }
        continue;
      }
      GoOn(stopped, status);
    }
  }

private:
  void GoOn(pid_t thread, int status) {
    int signal = WSTOPSIG(status);
    if (signal == SystemCallStop) {
      SystemCall(thread);
      signal = 0;
    } else if (status >> 16 != 0 || signal == SIGSTOP) {
      signal = 0; // a thread or the program began
    }
    ::ptrace(PTRACE_SYSCALL, thread, nullptr, static_cast<long>(signal));
  }

  void SystemCall(pid_t thread) {
    __ptrace_syscall_info info = {};
    if (::ptrace(PTRACE_GET_SYSCALL_INFO, thread, sizeof(info), &info) <= 0)
      return;
    if (info.op == PTRACE_SYSCALL_INFO_ENTRY)
      Entered(thread, info.entry.nr, info.entry.args);
    else if (info.op == PTRACE_SYSCALL_INFO_EXIT)
      Left(thread);
  }

  void Entered(pid_t thread, std::uint64_t number, const std::uint64_t* arguments) {
    const TSystemCall* call = FindSystemCall(number);
    if (!call)
      return;
    if (!FIsArmed)
      Arm(thread, *call, arguments);
    if (!FIsArmed || IsOfWakeUp(*call, arguments))
      return;
    ++FEnd.Calls;
    // The loader of modules takes what it reads for whole, and a file system gives it whole.
    const bool isTransfer =
        call->IsTransfer && arguments[2] > 1 && !FileName(arguments[0]).ends_with(".so");
    FEnd.Transfers += isTransfer ? 1 : 0;
    if (IsHit(isTransfer))
      Hit(thread, *call, arguments);
  }

  bool IsHit(bool isTransfer) const {
    constexpr std::uint64_t Often = 3;
    switch (FFault.Kind) {
    case TFaultKind::Error:
    case TFaultKind::Kill:
      return FEnd.Calls == FFault.At;
    case TFaultKind::Short:
      return isTransfer && FEnd.Transfers == FFault.At;
    case TFaultKind::AllShort:
      return isTransfer;
    case TFaultKind::Interrupted:
      return isTransfer && FEnd.Transfers % Often == 0;
    default:
      return false;
    }
  }

  void Arm(pid_t thread, const TSystemCall& call, const std::uint64_t* arguments) {
    FIsArmed =
        call.PathArgument >= 0 && TextAt(thread, arguments[call.PathArgument]).starts_with(FPlace);
    if (FIsArmed && FPlan)
      FPlan->IsArmed = true;
  }

  // The counter by which the program wakes itself up; a machine has no way to make it fail.
  bool IsOfWakeUp(const TSystemCall& call, const std::uint64_t* arguments) const {
    return call.FileArgument == 0 && FileName(arguments[0]).find("[eventfd]") != std::string::npos;
  }

  void Hit(pid_t thread, const TSystemCall& call, const std::uint64_t* arguments) {
    FEnd.IsFired = true;
    FEnd.Where = call.Name;
    if (call.PathArgument >= 0)
      FEnd.Where += " " + TextAt(thread, arguments[call.PathArgument]);
    if (call.FileArgument == 0)
      FEnd.Where += " " + FileName(arguments[0]);
    FEnd.HitsMessages =
        call.FileArgument == 0 && (arguments[0] == STDOUT_FILENO || arguments[0] == STDERR_FILENO);
    if (FFault.Kind == TFaultKind::Kill) {
      ::kill(FProcess, SIGKILL);
      return;
    }
    user_regs_struct registers = {};
    ::ptrace(PTRACE_GETREGS, thread, nullptr, &registers);
    if (FFault.Kind == TFaultKind::Error || FFault.Kind == TFaultKind::Interrupted) {
      registers.orig_rax = ~0ULL; // no such call: none is made
      FPending[thread] = FFault.Kind == TFaultKind::Error ? FFault.Error : EINTR;
    } else {
      registers.rdx = (registers.rdx + 1) / 2;
    }
    ::ptrace(PTRACE_SETREGS, thread, nullptr, &registers);
  }

  void Left(pid_t thread) {
    const auto pending = FPending.find(thread);
    if (pending == FPending.end())
      return;
    user_regs_struct registers = {};
    ::ptrace(PTRACE_GETREGS, thread, nullptr, &registers);
    registers.rax = static_cast<unsigned long long>(-static_cast<long long>(pending->second));
    ::ptrace(PTRACE_SETREGS, thread, nullptr, &registers);
    FPending.erase(pending);
  }

  static std::string TextAt(pid_t thread, std::uint64_t address) {
    std::array<char, 256> bytes{};
    std::size_t length = 0;
    // Up to the end of a page at a time: the next one need not be there.
    while (length < bytes.size() - 1) {
      constexpr std::uint64_t Page = 4096;
      const std::size_t size =
          std::min<std::size_t>(bytes.size() - 1 - length, Page - (address + length) % Page);
      iovec here{bytes.data() + length, size};
      iovec there{reinterpret_cast<void*>(address + length), size};
      const ssize_t count = ::process_vm_readv(thread, &here, 1, &there, 1, 0);
      if (count <= 0 || std::memchr(bytes.data() + length, 0, static_cast<std::size_t>(count)))
        break;
      length += static_cast<std::size_t>(count);
    }
    return bytes.data();
  }

  std::string FileName(std::uint64_t descriptor) const {
    const std::string link =
        "/proc/" + std::to_string(FProcess) + "/fd/" + std::to_string(static_cast<int>(descriptor));
    std::array<char, 512> name{};
    return ::readlink(link.c_str(), name.data(), name.size() - 1) < 0 ? std::string() : name.data();
  }

  const TFault& FFault;
  const std::string FPlace;
  TRunEnd& FEnd;
  TAllocationPlan* FPlan;
  pid_t FProcess = 0;
  bool FIsArmed = false;
  std::map<pid_t, int> FPending; // errors to be answered with, by thread
};

} // namespace

bool TRunEnd::HasCrashed() const {
  const int signal = Status - 128;
  return signal == SIGSEGV || signal == SIGBUS || signal == SIGILL || signal == SIGFPE ||
         signal == SIGABRT;
}

std::string FaultText(const TFault& fault) {
  const std::string at = " " + std::to_string(fault.At);
  switch (fault.Kind) {
  case TFaultKind::Error:
    return "call" + at + " fails with " + ErrorName(fault.Error);
  case TFaultKind::Kill:
    return "killed at call" + at;
  case TFaultKind::Short:
    return "transfer" + at + " is short";
  case TFaultKind::AllShort:
    return "all transfers are short";
  case TFaultKind::Interrupted:
    return "every third transfer is interrupted";
  case TFaultKind::Allocation:
    return "allocation" + at + " finds no memory";
  case TFaultKind::None:
    break;
  }
  return "no fault";
}

TRunEnd RunTraced(const TProgramStart& start, const TFault& fault) {
  TickEverySecond();
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
  TRunEnd end;
  const TCatch output;
  const TCatch errors;
  TProgramStart changed = start;
  std::optional<TSharedAllocationPlan> plan;
  if (fault.Kind == TFaultKind::Allocation) {
    plan.emplace(fault.At);
    for (std::string& variable : plan->Environment())
      changed.Environment.push_back(std::move(variable));
  }
  const pid_t process = Start(changed, output, errors, true);
  TTrace(changed, fault, end, plan ? &plan->Plan() : nullptr).Follow(process);
  EndOrphans();
  if (plan) {
    end.Allocations = plan->Plan().Count;
    end.IsFired = plan->Plan().HasFailed;
    end.LacksMemory = true;
    end.Where = "malloc";
  }
  end.Output = output.Text();
  end.Errors = errors.Text();
  return end;
}

TRunEnd RunPlainly(const TProgramStart& start) {
  TickEverySecond();
  ::prctl(PR_SET_CHILD_SUBREAPER, 1);
  TRunEnd end;
  const TCatch output;
  const TCatch errors;
  const pid_t process = Start(start, output, errors, false);
  const auto deadline = TClock::now() + LongestRun;
  int status = 0;
  while (::waitpid(process, &status, 0) < 0 && errno == EINTR) {
    if (TClock::now() > deadline && !end.IsEndless) {
      end.IsEndless = true;
      ::kill(process, SIGKILL);
    }
  }
  EndOrphans();
  end.Status = StatusOf(status);
  end.Output = output.Text();
  end.Errors = errors.Text();
  return end;
}

} // namespace faults
