#include "workbench/files/signal_shield.h"

#include <ctime>
#include <initializer_list>
#include <pthread.h>

namespace workbench {

TSignalShield::TSignalShield() {
  sigset_t held;
  sigemptyset(&held);
  for (const int signal : {SIGINT, SIGTERM, SIGHUP, SIGXFSZ})
    sigaddset(&held, signal);
  FActive = pthread_sigmask(SIG_BLOCK, &held, &FBefore) == 0;
}

TSignalShield::~TSignalShield() {
  if (!FActive)
    return;
  // The write has reported the size limit already; its signal would end the program.
  if (sigismember(&FBefore, SIGXFSZ) == 0) {
    sigset_t tooLarge;
    sigemptyset(&tooLarge);
    sigaddset(&tooLarge, SIGXFSZ);
    const timespec noWait = {};
    static_cast<void>(sigtimedwait(&tooLarge, nullptr, &noWait));
  }
  pthread_sigmask(SIG_SETMASK, &FBefore, nullptr);
}

} // namespace workbench
