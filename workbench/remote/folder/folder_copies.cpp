#include "workbench/remote/folder/folder_copies.h"

#include "workbench/files/file_descriptor.h"
#include "workbench/remote/folder/file_transfer.h"

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace workbench {
namespace {

// A descriptor of the caller's own: the next directory that is opened ends the one before.
TFileDescriptor OpenOwn(TDirectoryHandles& directories, const std::string& path) {
  TFileDescriptor own(::fcntl(directories.Open(path), F_DUPFD_CLOEXEC, 0));
  if (!own.IsOpen())
    ThrowSystemError("opening its directory");
  return own;
}

// Where there are no hard links. What was begun is taken away when it fails.
void CopyFile(int from, const std::string& name, int to, const std::string& copy) {
  struct stat status = {};
  const TFileDescriptor source(
      ::openat(from, name.c_str(), O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
  if (!source.IsOpen() || ::fstat(source.Get(), &status) != 0)
    ThrowSystemError("reading it");
  const TFileDescriptor target(
      ::openat(to, copy.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (!target.IsOpen())
    ThrowSystemError("copying it");
  try {
    ReadOpened(source.Get(), [&target](std::string_view bytes) {
      WriteAll(target.Get(), bytes);
      return true;
    });
    const timespec times[2] = {{0, UTIME_OMIT}, status.st_mtim};
    if (::fchmod(target.Get(), status.st_mode & 07777) != 0 || ::futimens(target.Get(), times) != 0)
      ThrowSystemError("copying its rights and time");
  } catch (const std::system_error&) {
    ::unlinkat(to, copy.c_str(), 0);
    throw;
  }
}

template <class TWork>
std::vector<std::string> ForEach(TDirectoryHandles& directories,
                                 std::span<const TRemoteCopy> copies, TWork work) {
  std::vector<std::string> problems;
  problems.reserve(copies.size());
  for (const TRemoteCopy& copy : copies) {
    problems.emplace_back();
    try {
      const TFileDescriptor from = OpenOwn(directories, copy.From.Directory);
      work(from.Get(), copy.From.Name, directories.Open(copy.To.Directory), copy.To.Name);
    } catch (const std::system_error& error) {
      problems.back() = error.what();
    }
  }
  return problems;
}

} // namespace

std::vector<std::string> KeepFiles(TDirectoryHandles& directories,
                                   std::span<const TRemoteCopy> copies) {
  return ForEach(directories, copies,
                 [](int from, const std::string& name, int to, const std::string& copy) {
                   if (::linkat(from, name.c_str(), to, copy.c_str(), 0) == 0)
                     return;
                   if (errno == ENOENT || errno == EEXIST)
                     ThrowSystemError("linking it");
                   CopyFile(from, name, to, copy);
                 });
}

std::vector<std::string> MoveFiles(TDirectoryHandles& directories,
                                   std::span<const TRemoteCopy> moves) {
  return ForEach(directories, moves,
                 [](int from, const std::string& name, int to, const std::string& newName) {
                   if (::renameat(from, name.c_str(), to, newName.c_str()) != 0)
                     ThrowSystemError("moving it");
                   // Two names of one file stay both.
                   ::unlinkat(from, name.c_str(), 0);
                 });
}

void RemoveEmptyFolders(TDirectoryHandles& directories, std::span<const std::string> paths) {
  std::vector<std::string> sorted(paths.begin(), paths.end());
  std::ranges::sort(sorted, std::greater<>(), &std::string::size);
  for (const std::string& path : sorted) {
    const std::size_t end = path.find_last_of('/');
    try {
      ::unlinkat(directories.Open(path.substr(0, end)), path.c_str() + end + 1, AT_REMOVEDIR);
    } catch (const std::system_error&) {
      continue; // what cannot be reached stays
    }
  }
  directories.Forget();
}

} // namespace workbench
