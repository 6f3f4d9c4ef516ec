#include "workbench/remote/folder/file_transfer.h"

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
constexpr const char* Interrupted = "the run was interrupted";
// How much is put in place at a time. What is interrupted has no time for that much.
constexpr std::size_t MostWaiting = 128;
constexpr std::uint64_t MostBytesWaiting = std::uint64_t(32) * 1024 * 1024;
constexpr std::uint64_t MostBytesAtTheEnd = std::uint64_t(8) * 1024 * 1024;

// The file was changed while it was read.
struct TChangedMeanwhile {};
struct TCancelled {};

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

TFileTransfer::~TFileTransfer() = default;

void TFileTransfer::Send(int directory, const TSendRequest& request, ISendJob& job) {
  TWaiting file{.Request = &request};
  try {
    if (job.IsCancelled())
      throw TCancelled();
    try {
      Copy(directory, file, job);
    } catch (const TChangedMeanwhile&) {
      Copy(directory, file, job);
    }
  } catch (const TChangedMeanwhile&) {
    file.Outcome.Problem = "it changed while it was copied";
  } catch (const TCancelled&) {
    file.Outcome.Problem = Interrupted;
  } catch (const std::system_error& error) {
    // Files that wait are open, and a program may not have many.
    if (error.code().value() == EMFILE && !FWaiting.empty()) {
      PutInPlace(job);
      return Send(directory, request, job);
    }
    file.Outcome.Problem = error.what();
  }
  if (!file.Outcome.Problem.empty())
    return job.FileDone(request, file.Outcome);
  FBytesWaiting += file.Outcome.Size;
  FWaiting.push_back(std::move(file));
  if (FWaiting.size() >= MostWaiting || FBytesWaiting >= MostBytesWaiting)
    PutInPlace(job);
}

// The disk is busy with the first of them while the last are written. All are brought to it before
// the first takes its name: whatever happens to the machine, no name stands for half a file.
void TFileTransfer::PutInPlace(ISendJob& job) {
  // To bring much to a disk takes longer than whoever interrupts a run waits.
  const bool isDropped = job.IsCancelled() && FBytesWaiting > MostBytesAtTheEnd;
  std::vector<TWaiting> waiting = std::exchange(FWaiting, {});
  FBytesWaiting = 0;
  for (TWaiting& file : waiting) {
    try {
      if (isDropped)
        file.Outcome.Problem = Interrupted;
      else
        file.Target->Complete();
    } catch (const std::system_error& error) {
      file.Outcome.Problem = error.what();
    }
  }
  for (TWaiting& file : waiting) {
    try {
      if (file.Outcome.Problem.empty()) {
        file.Target->PutInPlace(file.Request->Target.Name);
        FChanged.insert_or_assign(file.Request->Target.Directory, file.Target->Directory());
      }
    } catch (const std::system_error& error) {
      file.Outcome.Problem = error.what();
    }
    file.Target.reset();
    job.FileDone(*file.Request, file.Outcome);
  }
}

void TFileTransfer::Finish(ISendJob& job) {
  PutInPlace(job);
  // A file is whole under its name in any case; without this it could be the old one again.
  for (const auto& [path, directory] : std::exchange(FChanged, {}))
    static_cast<void>(::fsync(directory->Get()));
  FDirectory = nullptr;
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

// The directory of the last file is that of the next one most of the time.
const TSharedDirectory& TFileTransfer::Shared(int directory, const std::string& path) {
  if (!FDirectory || FDirectoryPath != path) {
    TFileDescriptor opened(::openat(directory, ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!opened.IsOpen()) // it may not be listed, and can be used all the same
      opened = TFileDescriptor(::fcntl(directory, F_DUPFD_CLOEXEC, 0));
    if (!opened.IsOpen())
      ThrowSystemError("opening the directory");
    FDirectory = std::make_shared<const TFileDescriptor>(std::move(opened));
    FDirectoryPath = path;
  }
  return FDirectory;
}

void TFileTransfer::Copy(int directory, TWaiting& file, ISendJob& job) {
  struct stat status = {};
  const TSendRequest& request = *file.Request;
  const TFileDescriptor source = OpenSource(request.LocalFile, status);
  const auto mode = RightsFor(status.st_mode, request.MakeExecutable);
  auto target =
      std::make_unique<TUnfinishedFile>(Shared(directory, request.Target.Directory), NextName());
  const auto size = static_cast<std::uint64_t>(status.st_size);
  if (CopyBytes(source.Get(), *target, size, job, file.Outcome) != size ||
      !IsSameState(status, source.Get()))
    throw TChangedMeanwhile();
  target->Stamp(status.st_mtim, mode);
  file.Outcome.Size = size;
  file.Outcome.Time = status.st_mtim.tv_sec;
  file.Outcome.Mode = mode;
  file.Target = std::move(target);
}

// Ends when the size is reached; a file that grew has another state by then.
std::uint64_t TFileTransfer::CopyBytes(int source, TUnfinishedFile& target, std::uint64_t size,
                                       ISendJob& job, TSendOutcome& outcome) {
  std::uint64_t copied = 0;
  TSHA256 digest;
  while (copied < size) {
    if (job.IsCancelled())
      throw TCancelled();
    const std::size_t count = ReadSome(source, FBlock);
    if (count == 0)
      break;
    target.Write({FBlock.data(), count});
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
