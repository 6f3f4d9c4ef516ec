#include "workbench/remote/folder/unfinished_file.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

namespace workbench {
namespace {

// A disk that begins early has little left to do when the file is complete.
constexpr std::uint64_t BytesTogether = std::uint64_t(16) * 1024 * 1024;

// Some file systems have nothing to bring to a disk.
bool CannotSync(int error) {
  return error == EINVAL || error == ENOSYS || error == EOPNOTSUPP;
}

} // namespace

TUnfinishedFile::TUnfinishedFile(std::shared_ptr<const TFileDescriptor> directory, std::string name)
    : FDirectory(std::move(directory)), FName(std::move(name)),
      FFile(::openat(FDirectory->Get(), FName.c_str(),
                     O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600)) {
  if (!FFile.IsOpen())
    ThrowSystemError("making a temporary file beside it");
  static_cast<void>(::flock(FFile.Get(), LOCK_EX | LOCK_NB)); // some shares have no locks
}

TUnfinishedFile::~TUnfinishedFile() {
  if (!FInPlace)
    ::unlinkat(FDirectory->Get(), FName.c_str(), 0);
}

void TUnfinishedFile::Write(std::string_view bytes) {
  WriteAll(FFile.Get(), bytes);
  FUnsent += bytes.size();
  if (FUnsent < BytesTogether)
    return;
  FUnsent = 0;
  static_cast<void>(::sync_file_range(FFile.Get(), 0, 0, SYNC_FILE_RANGE_WRITE));
}

void TUnfinishedFile::Stamp(const timespec& time, mode_t rights) {
  // Whatever is taken from rights when a file is made, they are to be those of the local file.
  if (::fchmod(FFile.Get(), rights) != 0)
    ThrowSystemError("setting its rights");
  const timespec times[2] = {{0, UTIME_OMIT}, time};
  if (::futimens(FFile.Get(), times) != 0)
    ThrowSystemError("setting the time stamp");
  static_cast<void>(::sync_file_range(FFile.Get(), 0, 0, SYNC_FILE_RANGE_WRITE));
}

void TUnfinishedFile::Complete() {
  while (::fsync(FFile.Get()) != 0) {
    if (CannotSync(errno))
      break;
    if (errno != EINTR)
      ThrowSystemError("bringing it to the disk");
  }
  // The lock stays with the second descriptor until the file has its name.
  TFileDescriptor lock(::fcntl(FFile.Get(), F_DUPFD_CLOEXEC, 0));
  // A network share may report here that it could not keep the bytes.
  const int result = ::close(FFile.Release());
  if (result != 0 && errno != EINTR)
    ThrowSystemError("closing it");
  FFile = std::move(lock);
}

void TUnfinishedFile::PutInPlace(const std::string& name) {
  if (::renameat(FDirectory->Get(), FName.c_str(), FDirectory->Get(), name.c_str()) != 0)
    ThrowSystemError("putting it in place");
  FInPlace = true;
}

void WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file, bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR)
      ThrowSystemError("writing it");
    bytes.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
  }
}

} // namespace workbench
