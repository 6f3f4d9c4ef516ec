#include "workbench/files/file_lock.h"

#include "workbench/files/file_reader.h"
#include "workbench/files/save_error.h"

#include <fcntl.h>
#include <string>
#include <sys/file.h>
#include <sys/stat.h>
#include <thread>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds PollInterval(50);

using TClock = std::chrono::steady_clock;

std::string WaitedTime(std::chrono::milliseconds time) {
  if (time.count() % 1000 != 0)
    return std::to_string(time.count()) + " milliseconds";
  const auto seconds = time.count() / 1000;
  return std::to_string(seconds) + (seconds == 1 ? " second" : " seconds");
}

bool TryLock(const TFileDescriptor& opened, const std::filesystem::path& file) {
  while (::flock(opened.Get(), LOCK_EX | LOCK_NB) != 0) {
    if (errno == EWOULDBLOCK)
      return false;
    if (errno != EINTR)
      throw TSaveError(file.string() + " cannot be locked: " + SystemReason(errno) +
                           "; nothing was written",
                       file);
  }
  return true;
}

// A save of another run puts a new file in the place of the one that was waited for.
bool StillNamedBy(const TFileDescriptor& opened, const std::filesystem::path& file) {
  struct stat held = {};
  struct stat named = {};
  return ::fstat(opened.Get(), &held) == 0 && ::stat(file.c_str(), &named) == 0 &&
         held.st_dev == named.st_dev && held.st_ino == named.st_ino;
}

} // namespace

TFileLock::TFileLock(const std::filesystem::path& file, std::chrono::milliseconds patience) {
  const TClock::time_point deadline = TClock::now() + patience;
  while (true) {
    TFileDescriptor opened = OpenPlainFile(file);
    bool locked = TryLock(opened, file);
    while (!locked && TClock::now() < deadline) {
      std::this_thread::sleep_for(PollInterval);
      locked = TryLock(opened, file);
    }
    if (locked && StillNamedBy(opened, file)) {
      FFile = std::move(opened);
      return;
    }
    if (!locked || TClock::now() >= deadline)
      throw TSaveError(file.string() + " is in use by another run; waited " + WaitedTime(patience) +
                           "; nothing was written",
                       file);
  }
}

} // namespace workbench
