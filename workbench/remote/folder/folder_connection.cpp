#include "workbench/remote/folder/folder_connection.h"

#include "workbench/files/file_reader.h"
#include "workbench/files/sha256.h"
#include "workbench/process/command_runner.h"
#include "workbench/remote/folder/file_creation.h"
#include "workbench/remote/folder/unfinished_file.h"
#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <fcntl.h>
#include <linux/magic.h>
#include <random>
#include <sys/stat.h>
#include <sys/vfs.h>
#include <thread>

namespace workbench {
namespace {

constexpr unsigned MostUsualConnections = 4; // more only get in each other's way

timespec TimeSpec(deployment::TFileTime time) {
  const auto since = time.time_since_epoch();
  const auto seconds = std::chrono::floor<std::chrono::seconds>(since);
  return {seconds.count(), (since - seconds).count()};
}

// Tells the unfinished files of one connection from those of every other.
std::string RandomText() {
  std::random_device source;
  std::array<char, 17> text = {};
  std::snprintf(text.data(), text.size(), "%08x%08x", source(), source());
  return text.data();
}

// What a file system keeps of a file. The usual ones keep everything.
struct TKept {
  std::chrono::nanoseconds Resolution = std::chrono::nanoseconds(1);
  bool Modes = true;
};

TKept KeptBy(const std::filesystem::path& folder) {
  struct statfs status = {};
  if (::statfs(folder.c_str(), &status) == 0) {
    if (status.f_type == MSDOS_SUPER_MAGIC)
      return {std::chrono::seconds(2), false};
    if (status.f_type == EXFAT_SUPER_MAGIC)
      return {std::chrono::milliseconds(10), false};
    if (status.f_type == SMB_SUPER_MAGIC || status.f_type == CIFS_SUPER_MAGIC)
      return {std::chrono::nanoseconds(100), false};
  }
  return {};
}

// A file system whose links nobody else would see, or that has none.
bool HasNoLinks(const std::filesystem::path& folder) {
  struct statfs status = {};
  return ::statfs(folder.c_str(), &status) != 0 || status.f_type == MSDOS_SUPER_MAGIC ||
         status.f_type == EXFAT_SUPER_MAGIC || status.f_type == SMB_SUPER_MAGIC ||
         status.f_type == CIFS_SUPER_MAGIC;
}

// The folder with its links resolved.
std::filesystem::path OpenFolder(const std::filesystem::path& folder, TMissingFolder missing) {
  struct stat status = {};
  std::error_code error;
  const bool isThere = ::stat(folder.c_str(), &status) == 0;
  if (isThere && !S_ISDIR(status.st_mode))
    throw TConnectionError(folder.string() + " is " + std::string(KindOfFile(status.st_mode)) +
                           ", not a directory");
  if (!isThere && (errno != ENOENT || missing == TMissingFolder::Refuse))
    error.assign(errno, std::generic_category());
  std::filesystem::path full;
  if (!error)
    full = std::filesystem::weakly_canonical(folder, error);
  if (error)
    throw TConnectionError(folder.string() + " cannot be reached: " + error.message());
  return full;
}

bool IsBelow(const std::filesystem::path& path, const std::filesystem::path& folder) {
  const std::string& text = path.native();
  const std::string& start = folder.native();
  return text.starts_with(start) && (text.size() == start.size() || text[start.size()] == '/');
}

// The deepest part of the path that exists, or of which nobody tells.
struct TExisting {
  std::filesystem::path Path;
  std::error_code Error; // why nobody tells
};

TExisting DeepestExisting(std::filesystem::path path) {
  while (true) {
    std::error_code error;
    const auto status = std::filesystem::symlink_status(path, error);
    const bool isMissing = status.type() == std::filesystem::file_type::not_found;
    if (!isMissing || !path.has_relative_path())
      return {path, isMissing ? std::error_code() : error};
    path = path.parent_path();
  }
}

} // namespace

TFolderConnection::TFolderConnection(const std::filesystem::path& folder, TMissingFolder missing,
                                     const std::atomic<int>* cancelled)
    : FFolder(OpenFolder(folder, missing)), FResolution(KeptBy(FFolder).Resolution),
      FKeepsModes(KeptBy(FFolder).Modes), FKnowsLinks(!HasNoLinks(FFolder)), FCancelled(cancelled),
      FTransfer(RandomText()) {}

unsigned TFolderConnection::UsualConnections() const {
  return std::clamp(std::thread::hardware_concurrency(), 1U, MostUsualConnections);
}

std::vector<TRemoteDirectory> TFolderConnection::Resolve(std::span<const std::string> directories) {
  std::vector<TRemoteDirectory> result;
  result.reserve(directories.size());
  for (const std::string& directory : directories)
    result.push_back(ResolveOne(directory));
  return result;
}

TRemoteDirectory TFolderConnection::ResolveOne(const std::string& directory) const {
  std::filesystem::path wanted = FFolder;
  if (directory.starts_with("~/")) {
    const char* home = std::getenv("HOME");
    if (!home || *home != '/')
      return {.Path = {}, .Problem = "the user has no home directory"};
    wanted = std::filesystem::path(home) / directory.substr(2);
  } else if (!directory.empty()) {
    wanted /= directory;
  }
  const TExisting existing = DeepestExisting(wanted);
  std::error_code error = existing.Error;
  const std::filesystem::path found =
      error ? std::filesystem::path() : std::filesystem::canonical(existing.Path, error);
  if (error)
    return {.Path = {},
            .Problem = existing.Path.string() + " cannot be followed: " + error.message()};
  struct stat status = {};
  if (::stat(found.c_str(), &status) != 0)
    return {.Path = {}, .Problem = found.string() + ": " + SystemReason(errno)};
  if (!S_ISDIR(status.st_mode))
    return {.Path = {},
            .Problem = found.string() + " is " + std::string(KindOfFile(status.st_mode)) +
                       ", not a directory"};
  const std::filesystem::path rest = wanted.lexically_relative(existing.Path);
  const bool exists = rest == ".";
  const std::filesystem::path full = exists ? found : found / rest;
  return {.Path = full.string(), .IsInside = IsBelow(full, FFolder), .Exists = exists};
}

std::vector<TRemoteStatus> TFolderConnection::Examine(std::span<const TRemoteName> names) {
  std::vector<TRemoteStatus> result;
  result.reserve(names.size());
  for (const TRemoteName& name : names)
    result.push_back(ExamineOne(name));
  return result;
}

TRemoteStatus TFolderConnection::ExamineOne(const TRemoteName& name) {
  struct stat status = {};
  try {
    if (::fstatat(FDirectories.Open(name.Directory), name.Name.c_str(), &status,
                  AT_SYMLINK_NOFOLLOW) != 0)
      ThrowSystemError("examining it");
  } catch (const std::system_error& error) {
    const bool isMissing = error.code() == std::errc::no_such_file_or_directory;
    return {.Problem = isMissing ? std::string() : error.what()};
  }
  TRemoteStatus result;
  result.Kind = S_ISREG(status.st_mode)   ? TRemoteKind::File
                : S_ISDIR(status.st_mode) ? TRemoteKind::Directory
                : S_ISLNK(status.st_mode) ? TRemoteKind::Link
                                          : TRemoteKind::Other;
  result.Size = static_cast<std::uint64_t>(status.st_size);
  result.Modified = FileTimeOf(status.st_mtim);
  result.Mode = status.st_mode & 0777;
  return result;
}

std::vector<std::string>
TFolderConnection::MakeDirectories(std::span<const std::string> directories) {
  std::vector<std::string> problems;
  problems.reserve(directories.size());
  for (const std::string& directory : directories) {
    problems.emplace_back();
    try {
      FDirectories.Make(directory);
    } catch (const std::system_error& error) {
      problems.back() = error.what();
    }
  }
  return problems;
}

void TFolderConnection::RemoveUnfinished(std::span<const TSendRequest> files) {
  for (const std::string& directory : DirectoriesOf(files)) {
    try {
      RemoveUnfinishedFiles(FDirectories.Open(directory));
    } catch (const std::system_error&) {
      continue; // what cannot be opened fails with the files that go there
    }
  }
}

void TFolderConnection::Send(ISendJob& job) {
  while (const TSendRequest* request = job.Next()) {
    try {
      FTransfer.Send(FDirectories.Open(request->Target.Directory), *request, job);
    } catch (const std::system_error& error) {
      job.FileDone(*request, {.Problem = error.what()});
    }
  }
  FTransfer.Finish(job);
}

std::vector<std::string> TFolderConnection::Hashes(std::span<const TRemoteName> names) {
  std::vector<std::string> result;
  result.reserve(names.size());
  for (const TRemoteName& name : names) {
    std::string& hash = result.emplace_back();
    if (IsCancelled())
      throw TConnectionError("the run was interrupted");
    try {
      const TFileDescriptor file = OpenFile(name);
      TSHA256 digest;
      ReadOpened(file.Get(), [&](std::string_view bytes) {
        digest.Add(bytes);
        return !IsCancelled();
      });
      hash = digest.Text();
    } catch (const std::system_error&) {
      continue;
    }
  }
  return result;
}

TRemoteContent TFolderConnection::ReadFile(const TRemoteName& name, std::uint64_t limit) {
  TRemoteContent content;
  try {
    const TFileDescriptor file = OpenFile(name);
    content.IsThere = true;
    ReadOpened(file.Get(), [&](std::string_view bytes) {
      content.Text.append(bytes);
      return content.Text.size() <= limit;
    });
    if (content.Text.size() > limit)
      content.Problem = "it is larger than " + std::to_string(limit) + " bytes";
  } catch (const std::system_error& error) {
    if (error.code() != std::errc::no_such_file_or_directory)
      content.Problem = error.what();
  }
  return content;
}

// A plain file; whoever put something else in its place is not waited for.
TFileDescriptor TFolderConnection::OpenFile(const TRemoteName& name) {
  TFileDescriptor file(::openat(FDirectories.Open(name.Directory), name.Name.c_str(),
                                O_RDONLY | O_NONBLOCK | O_NOFOLLOW | O_CLOEXEC));
  struct stat status = {};
  if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0)
    ThrowSystemError("reading it");
  if (!S_ISREG(status.st_mode))
    throw std::system_error(EINVAL, std::generic_category(),
                            "reading it: it is " + std::string(KindOfFile(status.st_mode)));
  return file;
}

TRemoteCreation TFolderConnection::CreateFile(const TRemoteName& name, std::string_view text,
                                              deployment::TFileTime time) {
  try {
    const int directory = FDirectories.Open(name.Directory);
    return CreateFileIn(directory, {name.Name, FTransfer.NextName()}, text, TimeSpec(time));
  } catch (const std::system_error& error) {
    return {TRemoteCreation::TResult::Failed, error.what()};
  }
}

std::string TFolderConnection::Rename(const TRemoteName& name, const std::string& newName) {
  try {
    const int directory = FDirectories.Open(name.Directory);
    if (::renameat(directory, name.Name.c_str(), directory, newName.c_str()) != 0)
      ThrowSystemError("renaming it");
  } catch (const std::system_error& error) {
    return error.what();
  }
  return {};
}

std::vector<std::string> TFolderConnection::Stamp(std::span<const TRemoteStamp> stamps) {
  std::vector<std::string> problems;
  problems.reserve(stamps.size());
  for (const TRemoteStamp& stamp : stamps) {
    try {
      StampOne(stamp);
      problems.emplace_back();
    } catch (const std::system_error& error) {
      problems.emplace_back(error.what());
    }
  }
  return problems;
}

void TFolderConnection::StampOne(const TRemoteStamp& stamp) {
  if (stamp.Mode && ::fchmod(OpenFile(stamp.Name).Get(), *stamp.Mode) != 0)
    ThrowSystemError("setting its rights");
  if (!stamp.Time)
    return;
  const timespec times[2] = {{0, UTIME_OMIT}, TimeSpec(*stamp.Time)};
  if (::utimensat(FDirectories.Open(stamp.Name.Directory), stamp.Name.Name.c_str(), times,
                  AT_SYMLINK_NOFOLLOW) != 0)
    ThrowSystemError("setting the time stamp");
}

std::string TFolderConnection::Remove(const TRemoteName& name) {
  try {
    if (::unlinkat(FDirectories.Open(name.Directory), name.Name.c_str(), 0) != 0 && errno != ENOENT)
      ThrowSystemError("removing it");
  } catch (const std::system_error& error) {
    return error.what();
  }
  return {};
}

std::vector<std::string> TFolderConnection::RemoveAll(std::span<const TRemoteName> names) {
  std::vector<std::string> problems;
  problems.reserve(names.size());
  for (const TRemoteName& name : names)
    problems.push_back(Remove(name));
  return problems;
}

std::vector<TRemoteLink> TFolderConnection::ReadLinks(std::span<const TRemoteName> names) {
  std::vector<TRemoteLink> result;
  result.reserve(names.size());
  for (const TRemoteName& name : names) {
    try {
      result.push_back({.Text = ReadLinkIn(FDirectories.Open(name.Directory), name.Name)});
    } catch (const std::system_error& error) {
      result.push_back({.Problem = error.what()});
    }
  }
  return result;
}

std::string TFolderConnection::MakeLink(const TRemoteName& name, const std::string& text) {
  try {
    FTransfer.MakeLink(FDirectories.Open(name.Directory), name.Name, text);
  } catch (const std::system_error& error) {
    return error.what();
  }
  return {};
}

std::string TFolderConnection::RunCommand(const std::string& command, const std::string& directory,
                                          const THearLine& hear,
                                          const std::atomic<int>& cancelled) {
  return RunCommandLine(command, directory, hear, cancelled);
}

} // namespace workbench
