// An open file of the system that closes itself, and what the system says when a call fails.
#pragma once

#include <cerrno>
#include <string>
#include <system_error>
#include <unistd.h>
#include <utility>

namespace workbench {

/// Owns one descriptor; -1 is none.
class TFileDescriptor {
public:
  TFileDescriptor() = default;
  explicit TFileDescriptor(int descriptor) : FDescriptor(descriptor) {}
  TFileDescriptor(TFileDescriptor&& other) noexcept
      : FDescriptor(std::exchange(other.FDescriptor, -1)) {}
  TFileDescriptor& operator=(TFileDescriptor&& other) noexcept {
    std::swap(FDescriptor, other.FDescriptor);
    return *this;
  }
  ~TFileDescriptor() {
    if (FDescriptor >= 0)
      ::close(FDescriptor);
  }

  bool IsOpen() const { return FDescriptor >= 0; }
  int Get() const { return FDescriptor; }
  /// Gives the descriptor away, for a close whose result matters.
  int Release() { return std::exchange(FDescriptor, -1); }

private:
  int FDescriptor = -1;
};

/// The system's words for an error number, such as "No such file or directory".
inline std::string SystemReason(int error) {
  return std::generic_category().message(error);
}

/// Throws std::system_error with the current errno; `action` says what failed, such as "writing".
[[noreturn]] inline void ThrowSystemError(const char* action) {
  throw std::system_error(errno, std::generic_category(), action);
}

} // namespace workbench
