#include "workbench/files/file_backup.h"

#include "workbench/files/private_directory.h"
#include "workbench/files/user_directories.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <ctime>
#include <fcntl.h>
#include <string>
#include <string_view>
#include <sys/stat.h>
#include <vector>

namespace workbench {
namespace {

constexpr int StampAttempts = 100;

// Sorts by time as text, such as "20260131T235959.012345678Z".
std::string TimeStamp(std::chrono::system_clock::time_point time) {
  // Years before 1970 are mistakes of a clock, and would not have the shape of a name.
  time = std::max(time, std::chrono::system_clock::time_point());
  const auto since =
      std::chrono::duration_cast<std::chrono::nanoseconds>(time.time_since_epoch()).count();
  const std::time_t seconds = since / 1000000000;
  std::tm parts = {};
  ::gmtime_r(&seconds, &parts);
  std::array<char, 64> text = {};
  std::snprintf(text.data(), text.size(), "%04d%02d%02dT%02d%02d%02d.%09lldZ", parts.tm_year + 1900,
                parts.tm_mon + 1, parts.tm_mday, parts.tm_hour, parts.tm_min, parts.tm_sec,
                static_cast<long long>(since % 1000000000));
  return text.data();
}

bool IsTimeStamp(std::string_view name) {
  constexpr std::string_view shape = "00000000T000000.000000000Z";
  return std::equal(name.begin(), name.end(), shape.begin(), shape.end(), [](char c, char form) {
    return form == '0' ? c >= '0' && c <= '9' : c == form;
  });
}

// The time that a name says.
std::chrono::system_clock::time_point TimeOf(const std::string& stamp) {
  std::tm parts = {};
  long long nanoseconds = 0;
  std::sscanf(stamp.c_str(), "%4d%2d%2dT%2d%2d%2d.%9lldZ", &parts.tm_year, &parts.tm_mon,
              &parts.tm_mday, &parts.tm_hour, &parts.tm_min, &parts.tm_sec, &nanoseconds);
  parts.tm_year -= 1900;
  --parts.tm_mon;
  return std::chrono::system_clock::from_time_t(::timegm(&parts)) +
         std::chrono::duration_cast<std::chrono::system_clock::duration>(
             std::chrono::nanoseconds(nanoseconds));
}

// The backups of one file, the oldest first.
std::vector<std::filesystem::path> ListBackups(const std::filesystem::path& directory) {
  std::vector<std::filesystem::path> backups;
  std::error_code error;
  std::filesystem::directory_iterator entry(directory, error);
  for (; !error && entry != std::filesystem::directory_iterator(); entry.increment(error)) {
    if (IsTimeStamp(entry->path().filename().string()))
      backups.push_back(entry->path());
  }
  std::sort(backups.begin(), backups.end());
  return backups;
}

void CopyBytes(int source, int target) {
  std::vector<char> block(std::size_t(1) << 20);
  off_t offset = 0;
  while (true) {
    const ssize_t count = ::pread(source, block.data(), block.size(), offset);
    if (count == 0)
      return;
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0)
      ThrowSystemError("reading the old content");
    offset += count;
    for (ssize_t done = 0; done < count;) {
      const ssize_t written =
          ::write(target, block.data() + done, static_cast<std::size_t>(count - done));
      if (written <= 0 && errno != EINTR)
        ThrowSystemError("writing the copy");
      done += std::max<ssize_t>(written, 0);
    }
  }
}

// False when there is a backup of this name already.
bool MakeCopy(const TFileDescriptor& opened, const std::filesystem::path& backup) {
  TFileDescriptor copy(
      ::open(backup.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (!copy.IsOpen() && errno == EEXIST)
    return false;
  if (!copy.IsOpen())
    ThrowSystemError("making the copy");
  try {
    CopyBytes(opened.Get(), copy.Get());
    if (::fsync(copy.Get()) != 0)
      ThrowSystemError("bringing the copy to the disk");
  } catch (const std::system_error&) {
    ::unlink(backup.c_str());
    throw;
  }
  return true;
}

} // namespace

std::filesystem::path BackupDirectory(const std::filesystem::path& file) {
  const std::filesystem::path state = UserStateDirectory();
  if (state.empty())
    return {};
  return state / "backups" / NameForFile(file);
}

std::filesystem::path KeepBackup(const std::filesystem::path& file, const TFileDescriptor& opened) {
  const std::filesystem::path directory = BackupDirectory(file);
  if (directory.empty()) {
    errno = ENOENT;
    ThrowSystemError("finding the user's state directory");
  }
  MakePrivateDirectories(directory);
  struct stat status = {};
  struct stat named = {};
  // A file with further names is written through them without a save of ours, and its backup
  // would change with it.
  const bool mayLink = ::fstat(opened.Get(), &status) == 0 && status.st_nlink == 1;
  auto now = std::chrono::system_clock::now();
  // The oldest go first, and a clock that was set back must not make the new one the oldest.
  if (const auto backups = ListBackups(directory); !backups.empty())
    now = std::max(now, TimeOf(backups.back().filename()) + std::chrono::microseconds(1));
  for (int attempt = 0; attempt < StampAttempts; ++attempt, now += std::chrono::microseconds(1)) {
    std::filesystem::path backup = directory / TimeStamp(now);
    if (mayLink && ::link(file.c_str(), backup.c_str()) == 0) {
      if (::stat(backup.c_str(), &named) == 0 && named.st_ino == status.st_ino)
        return backup;
      ::unlink(backup.c_str()); // another program has just put another file there
    }
    if (MakeCopy(opened, backup))
      return backup;
  }
  errno = EEXIST;
  ThrowSystemError("finding a free name");
}

void RemoveUnfinishedBackups(const std::filesystem::path& file, const TFileDescriptor& opened) {
  struct stat status = {};
  if (::fstat(opened.Get(), &status) != 0 || status.st_nlink == 1)
    return;
  for (const std::filesystem::path& backup : ListBackups(BackupDirectory(file))) {
    struct stat named = {};
    if (::lstat(backup.c_str(), &named) == 0 && named.st_ino == status.st_ino &&
        named.st_dev == status.st_dev)
      ::unlink(backup.c_str());
  }
}

void RemoveOldBackups(const std::filesystem::path& file) {
  std::vector<std::filesystem::path> backups = ListBackups(BackupDirectory(file));
  while (backups.size() > BackupsKept) {
    std::error_code ignored;
    std::filesystem::remove(backups.front(), ignored);
    backups.erase(backups.begin());
  }
}

std::optional<std::filesystem::path> NewestBackup(const std::filesystem::path& file) {
  std::vector<std::filesystem::path> backups = ListBackups(BackupDirectory(file));
  if (backups.empty())
    return std::nullopt;
  return backups.back();
}

} // namespace workbench
