#include "workbench/remote/folder/file_creation.h"

#include "workbench/remote/folder/unfinished_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace workbench {
namespace {

using TResult = TRemoteCreation::TResult;

constexpr mode_t Rights = 0644; // whoever deploys there next may read what it says

TRemoteCreation AlreadyThere() {
  return {TResult::Exists, "it is there already"};
}

// Nothing where the file system has no second names.
bool HasNoSecondNames(int error) {
  return error == EPERM || error == EOPNOTSUPP || error == ENOSYS || error == EMLINK ||
         error == EINVAL;
}

TRemoteCreation CreateEmptyFirst(int directory, const std::string& name, std::string_view text,
                                 const timespec& time) {
  const TFileDescriptor file(::openat(
      directory, name.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, Rights));
  if (!file.IsOpen() && errno == EEXIST)
    return AlreadyThere();
  if (!file.IsOpen())
    ThrowSystemError("making it");
  try {
    WriteAll(file.Get(), text);
  } catch (const std::system_error&) {
    ::unlinkat(directory, name.c_str(), 0); // without its text it says nothing to anybody
    throw;
  }
  const timespec times[2] = {{0, UTIME_OMIT}, time};
  static_cast<void>(::futimens(file.Get(), times));
  return {TResult::Made};
}

} // namespace

TRemoteCreation CreateFileIn(int directory, const TCreationNames& names, std::string_view text,
                             const timespec& time) {
  TFileDescriptor own(::fcntl(directory, F_DUPFD_CLOEXEC, 0));
  if (!own.IsOpen())
    ThrowSystemError("opening the directory");
  TUnfinishedFile file(std::make_shared<const TFileDescriptor>(std::move(own)), names.Unfinished);
  file.Write(text);
  file.Stamp(time, Rights);
  if (::linkat(directory, names.Unfinished.c_str(), directory, names.Final.c_str(), 0) == 0)
    return {TResult::Made};
  if (errno == EEXIST)
    return AlreadyThere();
  if (!HasNoSecondNames(errno))
    ThrowSystemError("making it");
  return CreateEmptyFirst(directory, names.Final, text, time);
}

} // namespace workbench
