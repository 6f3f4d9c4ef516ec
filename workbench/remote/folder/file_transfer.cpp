#include "workbench/remote/folder/file_transfer.h"

#include "workbench/files/file_descriptor.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/sha256.h"
#include "workbench/remote/target/remote_path.h"

#include <ctime>
#include <dirent.h>
#include <fcntl.h>
#include <memory>
#include <span>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

namespace workbench {
namespace {

constexpr std::size_t BlockSize = std::size_t(256) * 1024;

// The file was changed while it was read.
struct TChangedMeanwhile {};
struct TCancelled {};

// A file that goes with this object unless it is put in place. It is locked as long as it is
// written, which tells it from one that a run left behind.
class TUnfinishedFile {
public:
  TUnfinishedFile(int directory, std::string name, mode_t mode)
      : FDirectory(directory), FName(std::move(name)),
        FFile(::openat(directory, FName.c_str(),
                       O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode)) {
    if (!FFile.IsOpen())
      ThrowSystemError("making a temporary file beside it");
    static_cast<void>(::flock(FFile.Get(), LOCK_EX | LOCK_NB)); // some shares have no locks
  }
  ~TUnfinishedFile() {
    if (!FInPlace)
      ::unlinkat(FDirectory, FName.c_str(), 0);
  }
  TUnfinishedFile(const TUnfinishedFile&) = delete;
  TUnfinishedFile& operator=(const TUnfinishedFile&) = delete;

  int Get() const { return FFile.Get(); }

  void PutInPlace(const std::string& name, const struct stat& source, mode_t rights) {
    // Whatever is taken from rights when a file is made, they are to be those of the local file.
    if (::fchmod(FFile.Get(), rights) != 0)
      ThrowSystemError("setting its rights");
    const timespec times[2] = {{0, UTIME_OMIT}, source.st_mtim};
    if (::futimens(FFile.Get(), times) != 0)
      ThrowSystemError("setting the time stamp");
    if (::renameat(FDirectory, FName.c_str(), FDirectory, name.c_str()) != 0)
      ThrowSystemError("putting it in place");
    FInPlace = true;
    // A network share may report here that it could not keep the bytes.
    if (::close(FFile.Release()) != 0 && errno != EINTR)
      ThrowSystemError("closing it");
  }

private:
  int FDirectory;
  std::string FName;
  TFileDescriptor FFile;
  bool FInPlace = false;
};

TFileDescriptor OpenSource(const std::filesystem::path& file, struct stat& status) {
  TFileDescriptor source(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!source.IsOpen() || ::fstat(source.Get(), &status) != 0)
    ThrowSystemError("reading it");
  if (!S_ISREG(status.st_mode))
    throw std::system_error(EINVAL, std::generic_category(),
                            "reading it: it is " + std::string(KindOfFile(status.st_mode)));
  return source;
}

std::size_t ReadSome(int file, std::span<char> block) {
  while (true) {
    const ssize_t count = ::read(file, block.data(), block.size());
    if (count >= 0)
      return static_cast<std::size_t>(count);
    if (errno != EINTR)
      ThrowSystemError("reading it");
  }
}

// A link holds no lock; it is put in place at once, so one that stands for a while was left behind.
bool IsOldLink(int directory, const char* name) {
  constexpr time_t Moment = 60;
  struct stat status = {};
  return ::fstatat(directory, name, &status, AT_SYMLINK_NOFOLLOW) == 0 && S_ISLNK(status.st_mode) &&
         ::time(nullptr) - status.st_ctim.tv_sec > Moment;
}

bool IsSameState(const struct stat& before, int source) {
  struct stat after = {};
  return ::fstat(source, &after) == 0 && IdentityOf(after) == IdentityOf(before);
}

} // namespace

TFileTransfer::TFileTransfer(std::string run) : FRun(std::move(run)), FBlock(BlockSize) {}

TSendOutcome TFileTransfer::Send(int directory, const TSendRequest& request, ISendJob& job) {
  TSendOutcome outcome;
  try {
    try {
      TrySend(directory, request, job, outcome);
    } catch (const TChangedMeanwhile&) {
      TrySend(directory, request, job, outcome);
    }
  } catch (const TChangedMeanwhile&) {
    outcome.Problem = "it changed while it was copied";
  } catch (const TCancelled&) {
    outcome.Problem = "the run was interrupted";
  } catch (const std::system_error& error) {
    outcome.Problem = error.what();
  }
  return outcome;
}

std::string TFileTransfer::NextName() {
  return std::string(UnfinishedPrefix) + FRun + "-" + std::to_string(FCount++) +
         std::string(UnfinishedSuffix);
}

void TFileTransfer::MakeLink(int directory, const std::string& name, const std::string& text) {
  const std::string unfinished = NextName();
  if (::symlinkat(text.c_str(), directory, unfinished.c_str()) != 0)
    ThrowSystemError("making a link beside it");
  if (::renameat(directory, unfinished.c_str(), directory, name.c_str()) != 0) {
    const int reason = errno;
    ::unlinkat(directory, unfinished.c_str(), 0);
    errno = reason;
    ThrowSystemError("putting it in place");
  }
}

void TFileTransfer::TrySend(int directory, const TSendRequest& request, ISendJob& job,
                            TSendOutcome& outcome) {
  struct stat status = {};
  const TFileDescriptor source = OpenSource(request.LocalFile, status);
  TUnfinishedFile target(directory, NextName(), 0600);
  const auto size = static_cast<std::uint64_t>(status.st_size);
  if (Copy(source.Get(), target.Get(), size, job, outcome) != size ||
      !IsSameState(status, source.Get()))
    throw TChangedMeanwhile();
  outcome.Size = size;
  outcome.Time = status.st_mtim.tv_sec;
  outcome.Mode = RightsFor(status.st_mode, request.MakeExecutable);
  target.PutInPlace(request.Target.Name, status, outcome.Mode);
}

// Ends when the size is reached; a file that grew has another state by then.
std::uint64_t TFileTransfer::Copy(int source, int target, std::uint64_t size, ISendJob& job,
                                  TSendOutcome& outcome) {
  std::uint64_t copied = 0;
  TSHA256 digest;
  while (copied < size) {
    if (job.IsCancelled())
      throw TCancelled();
    const std::size_t count = ReadSome(source, FBlock);
    if (count == 0)
      break;
    WriteAll(target, {FBlock.data(), count});
    digest.Add({FBlock.data(), count});
    copied += count;
    outcome.Bytes += count;
    job.BytesSent(count);
  }
  outcome.Hash = digest.Text();
  return copied;
}

void ReadOpened(int file, const std::function<bool(std::string_view bytes)>& take) {
  const auto block = std::make_unique_for_overwrite<char[]>(BlockSize);
  while (true) {
    const std::size_t count = ReadSome(file, {block.get(), BlockSize});
    if (count == 0 || !take({block.get(), count}))
      return;
  }
}

void WriteAll(int file, std::string_view bytes) {
  while (!bytes.empty()) {
    const ssize_t count = ::write(file, bytes.data(), bytes.size());
    if (count < 0 && errno != EINTR)
      ThrowSystemError("writing it");
    bytes.remove_prefix(count > 0 ? static_cast<std::size_t>(count) : 0);
  }
}

std::string ReadLinkIn(int directory, const std::string& name) {
  std::vector<char> room(256);
  while (true) {
    const ssize_t size = ::readlinkat(directory, name.c_str(), room.data(), room.size());
    if (size < 0)
      ThrowSystemError("reading the link");
    if (static_cast<std::size_t>(size) < room.size())
      return {room.data(), static_cast<std::size_t>(size)};
    room.resize(room.size() * 2);
  }
}

void RemoveUnfinishedFiles(int directory) {
  TFileDescriptor opened(::openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!opened.IsOpen())
    return;
  struct TClose {
    void operator()(DIR* stream) const { ::closedir(stream); }
  };
  const std::unique_ptr<DIR, TClose> stream(::fdopendir(opened.Get()));
  if (!stream)
    return;
  static_cast<void>(opened.Release());                    // the stream owns it now
  while (const dirent* entry = ::readdir(stream.get())) { // NOLINT(concurrency-mt-unsafe)
    if (!IsUnfinishedName(entry->d_name))
      continue;
    const TFileDescriptor file(
        ::openat(directory, entry->d_name, O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
    if (IsOldLink(directory, entry->d_name) ||
        (file.IsOpen() && ::flock(file.Get(), LOCK_EX | LOCK_NB) == 0))
      ::unlinkat(directory, entry->d_name, 0);
  }
}

} // namespace workbench
