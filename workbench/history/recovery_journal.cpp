#include "workbench/history/recovery_journal.h"

#include "workbench/files/private_directory.h"

#include <algorithm>
#include <cstddef>
#include <exception>
#include <fcntl.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/stat.h>
#include <utility>

namespace workbench {
namespace {

// A process has no other journal of this name, and other processes have other numbers.
std::filesystem::path FreeName(const std::filesystem::path& directory,
                               const std::filesystem::path& project) {
  const std::string start = NameForFile(project) + "-" + std::to_string(::getpid()) + "-";
  for (int number = 1;; ++number) {
    std::filesystem::path name = directory / (start + std::to_string(number));
    name += JournalEnding;
    if (!std::filesystem::exists(name))
      return name;
  }
}

void WriteAll(int file, std::string_view text) {
  while (!text.empty()) {
    const ssize_t count = ::write(file, text.data(), text.size());
    if (count < 0 && errno != EINTR)
      ThrowSystemError("writing");
    text.remove_prefix(static_cast<std::size_t>(std::max<ssize_t>(count, 0)));
  }
}

} // namespace

TRecoveryJournal::TRecoveryJournal(const std::filesystem::path& project, std::uint64_t limit)
    : FProject(std::filesystem::absolute(project).lexically_normal()), FLimit(limit),
      FBase(BaseOf(FProject)) {}

template <class TAction>
void TRecoveryJournal::Guarded(TAction action) noexcept {
  if (!FProblem.empty())
    return;
  try {
    action();
  } catch (const std::exception& error) {
    FProblem = "unsaved edits of " + FProject.string() +
               " would be lost if the program ended now: their journal could not be written (" +
               error.what() + ")";
  }
}

void TRecoveryJournal::Append(const TListChange& change) noexcept {
  Guarded([&] {
    if (!FJournal.IsOpen())
      Start();
    Write(StepLine(change));
  });
}

void TRecoveryJournal::ProjectFileWritten() noexcept {
  Guarded([this] {
    FBase = BaseOf(FProject);
    if (FJournal.IsOpen())
      Write(BaseLine(FBase));
  });
}

void TRecoveryJournal::ProjectRenamed(const std::filesystem::path& project) noexcept {
  Guarded([&] {
    FProject = std::filesystem::absolute(project).lexically_normal();
    FBase = BaseOf(FProject);
    if (FJournal.IsOpen())
      Write(NameLine(FProject, FBase));
  });
}

void TRecoveryJournal::Remove() noexcept {
  FProblem.clear();
  Guarded([this] {
    if (FJournal.IsOpen() && ::unlink(FFile.c_str()) != 0 && errno != ENOENT)
      ThrowSystemError("removing");
    FJournal = TFileDescriptor();
    FFile.clear();
    FBase = BaseOf(FProject);
  });
}

// The file gets its name when it is locked and has its head, so that nobody takes it for one that
// was left behind or is damaged.
void TRecoveryJournal::Start() {
  const std::filesystem::path directory = RecoveryDirectory();
  if (directory.empty()) {
    errno = ENOENT;
    ThrowSystemError("finding the user's state directory");
  }
  MakePrivateDirectories(directory);
  std::filesystem::path name = FreeName(directory, FProject);
  std::filesystem::path unfinished = name;
  unfinished += ".new";
  ::unlink(unfinished.c_str());
  TFileDescriptor file(::open(
      unfinished.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_NOFOLLOW | O_CLOEXEC, 0600));
  if (!file.IsOpen())
    ThrowSystemError("making the file");
  if (::flock(file.Get(), LOCK_EX | LOCK_NB) != 0)
    ThrowSystemError("locking the file");
  WriteAll(file.Get(), HeadLine(FProject, FBase));
  std::filesystem::rename(unfinished, name);
  FJournal = std::move(file);
  FFile = std::move(name);
}

// A line that could not be written whole is taken away again: the steps before it are still good.
void TRecoveryJournal::Write(const std::string& line) {
  struct stat before = {};
  if (::fstat(FJournal.Get(), &before) != 0)
    ThrowSystemError("looking at the file");
  if (static_cast<std::uint64_t>(before.st_size) + line.size() > FLimit)
    throw std::runtime_error("it would be too large; a save starts a new one");
  try {
    WriteAll(FJournal.Get(), line);
  } catch (const std::system_error&) {
    // Where that fails too, a reader leaves the broken last line out.
    static_cast<void>(::ftruncate(FJournal.Get(), before.st_size) == 0);
    throw;
  }
}

} // namespace workbench
