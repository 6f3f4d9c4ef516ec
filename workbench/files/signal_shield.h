// Holds signals back while a file is half written.
#pragma once

#include <csignal>

namespace workbench {

/// While it lives, the thread is not interrupted by the user, by the end of the terminal or by a
/// limit on file sizes; such a write then fails with EFBIG. An interrupt that came takes effect
/// afterwards.
class TSignalShield {
public:
  TSignalShield();
  ~TSignalShield();
  TSignalShield(const TSignalShield&) = delete;
  TSignalShield& operator=(const TSignalShield&) = delete;

private:
  sigset_t FBefore = {};
  bool FActive = false;
};

} // namespace workbench
