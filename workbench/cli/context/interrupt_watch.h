// Turns an interrupt of the user into a wish to end in order.
#pragma once

#include "workbench/files/file_descriptor.h"

#include <atomic>
#include <csignal>
#include <thread>

namespace workbench {

/// While it lives, SIGINT, SIGTERM and SIGHUP end nothing; the first one's number is stored in the
/// flag; a second one, or one at a question, ends the program at once. Made before other threads
/// are, which inherit it.
class TInterruptWatch {
public:
  explicit TInterruptWatch(std::atomic<int>& flag);
  ~TInterruptWatch();
  TInterruptWatch(const TInterruptWatch&) = delete;
  TInterruptWatch& operator=(const TInterruptWatch&) = delete;

private:
  void Watch();

  std::atomic<int>& FFlag;
  sigset_t FBefore = {};
  TFileDescriptor FSignals;
  TFileDescriptor FStop;
  std::thread FThread;
};

} // namespace workbench
