#include "workbench/deploy/plan/local_files.h"

#include "workbench/deploy/plan/left_overs.h"
#include "workbench/files/file_descriptor.h"
#include "workbench/files/file_reader.h"
#include "workbench/remote/target/file_times.h"

#include <cerrno>
#include <sys/stat.h>
#include <utility>

namespace workbench {

std::string ExamineLocalFile(TPlannedFile& file, const TPlanOptions& options) {
  struct stat status = {};
  bool isThere = ::lstat(file.File.LocalFile.c_str(), &status) == 0;
  file.IsLinkHere = isThere && S_ISLNK(status.st_mode);
  if (file.IsLinkHere)
    isThere = ::stat(file.File.LocalFile.c_str(), &status) == 0;
  const int error = errno;
  if (isThere && S_ISREG(status.st_mode)) {
    file.Bytes = static_cast<std::uint64_t>(status.st_size);
    file.Local = {.Size = file.Bytes, .Time = FileTimeOf(status.st_mtim)};
    file.Mode = RightsFor(status.st_mode, file.File.Executable);
    if (options.HashAll)
      file.Local.Hash = HashHere(file.File.LocalFile, options.Cancelled);
    return {};
  }
  std::string reason = isThere ? file.File.LocalFile.string() + " is " +
                                     std::string(KindOfFile(status.st_mode)) + ", not a file"
                               : "the local file " + file.File.LocalFile.string() +
                                     (error == ENOENT || error == ENOTDIR
                                          ? std::string(" is missing")
                                          : " cannot be examined: " + SystemReason(error));
  if (file.File.Required)
    return reason + ", and it is required";
  const bool isMissing = !isThere && (error == ENOENT || error == ENOTDIR);
  file.State = TFileState::MissingHere;
  file.Action = isMissing && options.SkipMissing ? TDeployAction::Skipped : TDeployAction::Failed;
  file.Reason = std::move(reason);
  return {};
}

} // namespace workbench
