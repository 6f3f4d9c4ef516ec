#include "workbench/cli/context/interrupt_watch.h"

#include "workbench/cli/context/output.h"

#include <array>
#include <initializer_list>
#include <poll.h>
#include <pthread.h>
#include <sys/eventfd.h>
#include <sys/signalfd.h>

namespace workbench {
namespace {

sigset_t Watched() {
  sigset_t set;
  sigemptyset(&set);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP})
    sigaddset(&set, signal);
  return set;
}

} // namespace

TInterruptWatch::TInterruptWatch(std::atomic<int>& flag) : FFlag(flag) {
  const sigset_t watched = Watched();
  FSignals = TFileDescriptor(::signalfd(-1, &watched, SFD_CLOEXEC));
  FStop = TFileDescriptor(::eventfd(0, EFD_CLOEXEC));
  if (!FSignals.IsOpen() || !FStop.IsOpen())
    ThrowSystemError("watching for interrupts");
  pthread_sigmask(SIG_BLOCK, &watched, &FBefore);
  FThread = std::thread([this] { Watch(); });
}

TInterruptWatch::~TInterruptWatch() {
  const eventfd_t one = 1;
  static_cast<void>(::eventfd_write(FStop.Get(), one));
  FThread.join();
  pthread_sigmask(SIG_SETMASK, &FBefore, nullptr);
}

void TInterruptWatch::Watch() {
  while (true) {
    std::array<pollfd, 2> waiting{pollfd{FSignals.Get(), POLLIN, 0},
                                  pollfd{FStop.Get(), POLLIN, 0}};
    if (::poll(waiting.data(), waiting.size(), -1) < 0 && errno != EINTR)
      return;
    if (waiting[1].revents != 0)
      return;
    signalfd_siginfo info = {};
    if (waiting[0].revents == 0 || ::read(FSignals.Get(), &info, sizeof info) != sizeof info)
      continue;
    const int signal = static_cast<int>(info.ssi_signo);
    if (FFlag.exchange(signal) != 0 || TOutput::IsAsking())
      ::_exit(128 + signal);
  }
}

} // namespace workbench
