#include "workbench/files/file_saver.h"

#include "package/common/errors.h"
#include "workbench/files/file_attributes.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/signal_shield.h"
#include "workbench/files/temporary_file.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace workbench {
namespace {

constexpr int LinksFollowed = 40;
constexpr mode_t UnfinishedMode = 0600;

// The path behind the symbolic links at the end of `target`; it need not exist.
std::filesystem::path FollowLinks(const std::filesystem::path& target) {
  std::filesystem::path file = std::filesystem::absolute(target);
  for (int hops = 0; std::filesystem::is_symlink(file); ++hops) {
    if (hops == LinksFollowed)
      throw std::system_error(ELOOP, std::generic_category(), "following the symbolic link");
    file = file.parent_path() / std::filesystem::read_symlink(file);
  }
  return file;
}

// One save from its start to its end; destroyed half way, it leaves the old state.
class TSave {
public:
  explicit TSave(const TSaveRequest& request) : FRequest(request) {}

  TSaveOutcome Run() {
    try {
      RunSteps();
    } catch (const std::system_error& error) {
      Fail(std::string(error.what()));
    } catch (const deployment::TInputError& error) {
      Fail(error.what());
    }
    return std::move(FOutcome);
  }

private:
  void RunSteps() {
    FFile = FollowLinks(FRequest.Target);
    OpenDirectory();
    OpenOldFile();
    if (!IsWorkToDo())
      return;
    const TSignalShield shield;
    RemoveStaleTemporaryFiles(FFile.parent_path(), FFile.filename().native());
    TTemporaryFile temporary(FDirectory, FFile.filename().native(),
                             FOld.IsOpen() ? UnfinishedMode : FRequest.NewFileMode);
    if (FOld.IsOpen())
      CopyFileAttributes(FOld, FOldStatus, temporary.File(), FOutcome.Warnings);
    temporary.Write(FRequest.Content);
    TFileDescriptor written = temporary.ReadBack(FRequest.Content);
    LockForCaller(written);
    PutInPlace(temporary);
    if (FRequest.Lock)
      FRequest.Lock->MoveTo(std::move(written));
    FlushDirectory();
    if (!FOutcome.Backup.empty())
      RemoveOldBackups(FFile);
  }

  void OpenDirectory() {
    FDirectory =
        TFileDescriptor(::open(FFile.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!FDirectory.IsOpen())
      ThrowSystemError("opening its directory");
  }

  // Opens and locks what is to be replaced; leaves FOld closed when there is no such file.
  void OpenOldFile() {
    struct stat status = {};
    if (::lstat(FFile.c_str(), &status) != 0) {
      if (errno != ENOENT)
        ThrowSystemError("examining it");
      return;
    }
    if (!S_ISREG(status.st_mode))
      Conflict("is " + std::string(KindOfFile(status.st_mode)) + "; nothing was written");
    // Renaming would replace a write-protected file against its owner's wish.
    if (::faccessat(AT_FDCWD, FFile.c_str(), W_OK, AT_EACCESS) != 0)
      ThrowSystemError("writing it");
    if (!FRequest.Lock)
      FOwnLock.emplace(FFile);
    FOld = OpenPlainFile(FFile, "file", O_NOFOLLOW);
    if (::fstat(FOld.Get(), &FOldStatus) != 0)
      ThrowSystemError("examining it");
  }

  // Compares the disk with what is expected and with what is to be written.
  bool IsWorkToDo() {
    if (!FOld.IsOpen()) {
      if (FRequest.Expected && !FRequest.Force)
        Conflict(
            "was removed since it was read; nothing was written (--force-save writes it anew)");
      return true;
    }
    if (!FRequest.Expected && !FRequest.Force)
      Conflict("exists already; nothing was written");
    if (HasContent(FOld, FRequest.Content))
      return false;
    if (!FRequest.Force && !HasContent(FOld, std::array{*FRequest.Expected}))
      ConflictOfContent();
    return true;
  }

  // The caller goes on holding the file after it was replaced, so the new one is locked before
  // anybody can find it.
  void LockForCaller(const TFileDescriptor& written) const {
    if (FRequest.Lock && ::flock(written.Get(), LOCK_EX | LOCK_NB) != 0)
      ThrowSystemError("locking the new content");
  }

  void PutInPlace(TTemporaryFile& temporary) {
    if (FOld.IsOpen() && FRequest.WithBackup)
      MakeBackup();
    try {
      RequireUnchanged();
      temporary.PutInPlace(FFile.filename().native(), FOld.IsOpen() || FRequest.Force);
    } catch (...) {
      std::error_code ignored;
      if (!FOutcome.Backup.empty())
        std::filesystem::remove(FOutcome.Backup, ignored);
      throw;
    }
    FOutcome.Written = true;
  }

  void MakeBackup() {
    RemoveUnfinishedBackups(FFile, FOld);
    struct stat status = {};
    const bool hasFurtherNames = ::fstat(FOld.Get(), &status) == 0 && status.st_nlink > 1;
    try {
      FOutcome.Backup = KeepBackup(FFile, FOld);
    } catch (const std::system_error& error) {
      FOutcome.Warnings.push_back("the old content of " + FFile.string() +
                                  " was not kept as a backup: " + error.what());
    }
    if (hasFurtherNames)
      FOutcome.Warnings.push_back(FFile.string() + " has further names; they keep the old content");
  }

  // An editor does not know our lock and may have written since the comparison.
  void RequireUnchanged() {
    if (FRequest.Force || !FOld.IsOpen())
      return;
    struct stat now = {};
    if (::lstat(FFile.c_str(), &now) != 0 || IdentityOf(now) != IdentityOf(FOldStatus))
      ConflictOfContent();
  }

  void FlushDirectory() const {
    while (::fsync(FDirectory.Get()) != 0) {
      // Some file systems have no such operation.
      if (errno == EINVAL || errno == ENOTSUP)
        return;
      if (errno != EINTR)
        ThrowSystemError("bringing its directory to the disk");
    }
  }

  [[noreturn]] void ConflictOfContent() const {
    Conflict("changed on disk since it was read; nothing was written (--force-save overwrites it)");
  }

  [[noreturn]] void Conflict(const std::string& text) const {
    throw TSaveError(FRequest.Target.string() + " " + text, FRequest.Target);
  }

  [[noreturn]] void Fail(const std::string& reason) const {
    const std::string name = FRequest.Target.string();
    if (FOutcome.Written)
      throw TSaveError(name + " was written but may be lost if the machine stops now: " + reason +
                           "; the new content is in place",
                       FRequest.Target);
    struct stat status = {};
    const bool isThere = ::stat(FRequest.Target.c_str(), &status) == 0;
    throw TSaveError(name + " was not written: " + reason +
                         (isThere ? "; the old content is in place" : "; no file was made"),
                     FRequest.Target);
  }

  const TSaveRequest& FRequest;
  std::filesystem::path FFile;
  TFileDescriptor FDirectory;
  std::optional<TFileLock> FOwnLock;
  TFileDescriptor FOld;
  struct stat FOldStatus = {};
  TSaveOutcome FOutcome;
};

} // namespace

TSaveOutcome SaveFile(const TSaveRequest& request) {
  return TSave(request).Run();
}

} // namespace workbench
