// The part of a connection that lets rsync bring large files in line.
#include "workbench/remote/sftp/rsync_delta.h"
#include "workbench/remote/sftp/sftp_connection.h"

namespace workbench {
namespace {

// An old file that is smaller is not worth comparing.
constexpr std::uint64_t SmallestOldFile = std::uint64_t(1024) * 1024;

} // namespace

// Of a large file that is there already only what differs travels, where both sides can do that. It
// becomes a part that is whole, and goes on as one.
std::optional<TUnfinishedPart> TSftpConnection::MakePart(const TSendRequest& request,
                                                         const struct stat& status,
                                                         const ISendJob& job) {
  if (request.ReplacedSize < SmallestOldFile || FMachine.RemoteShell.empty())
    return std::nullopt;
  const TRemoteWay way{FMachine.Exec, FMachine.RemoteShell};
  {
    const std::lock_guard lock(FFacts->Mutex);
    if (!FFacts->HasRsync)
      FFacts->HasRsync = KnowsRsync(way);
    if (!*FFacts->HasRsync)
      return std::nullopt;
  }
  const std::string name = FNames.Next(SourceMark(request.LocalFile.native(), status));
  const bool isMade =
      SendDelta(way, request.LocalFile, request.Target.Path(),
                request.Target.Directory + "/" + name, [&job] { return job.IsCancelled(); });
  if (!isMade)
    return std::nullopt;
  return TUnfinishedPart{name, static_cast<std::uint64_t>(status.st_size)};
}

} // namespace workbench
