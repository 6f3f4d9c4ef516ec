#include "workbench/files/file_reader.h"

#include "package/common/errors.h"

#include <fcntl.h>
#include <optional>
#include <string>

namespace workbench {
namespace {

constexpr int ReadAttempts = 3;

[[noreturn]] void Reject(const std::filesystem::path& file, const std::string& text) {
  throw deployment::TInputError(text, {file.string(), 0});
}

[[noreturn]] void RejectUnreadable(const std::filesystem::path& file, std::string_view what,
                                   int error) {
  Reject(file, "the " + std::string(what) + " cannot be read: " + SystemReason(error));
}

// "an XML file" is spoken with a vowel.
std::string WithArticle(std::string_view what) {
  const bool isVowel = std::string_view("aeiouXM").find(what.front()) != std::string_view::npos;
  return (isVowel ? "an " : "a ") + std::string(what);
}

void RequirePlainFile(const std::filesystem::path& file, std::string_view what, mode_t mode) {
  if (!S_ISREG(mode))
    Reject(file, "the path names " + std::string(KindOfFile(mode)) + ", not " + WithArticle(what));
}

struct stat StatusOf(const TFileDescriptor& opened, const std::filesystem::path& file,
                     std::string_view what) {
  struct stat status = {};
  if (::fstat(opened.Get(), &status) != 0)
    RejectUnreadable(file, what, errno);
  return status;
}

// Reads up to `size` bytes from the start; fewer when the file ends before.
std::size_t ReadFromStart(const TFileDescriptor& opened, char* bytes, std::size_t size,
                          const std::filesystem::path& file, std::string_view what) {
  std::size_t done = 0;
  while (done < size) {
    const ssize_t count =
        ::pread(opened.Get(), bytes + done, size - done, static_cast<off_t>(done));
    if (count == 0)
      break;
    if (count > 0)
      done += static_cast<std::size_t>(count);
    else if (errno != EINTR)
      RejectUnreadable(file, what, errno);
  }
  return done;
}

struct TReadBytes {
  std::size_t Count;
  TFileIdentity Identity;
};

std::optional<TReadBytes> TryRead(const std::filesystem::path& file, const TReserveMemory& reserve,
                                  std::uint64_t limit, std::string_view what) {
  const TFileDescriptor opened = OpenPlainFile(file, what);
  const TFileIdentity before = IdentityOf(StatusOf(opened, file, what));
  const auto size = static_cast<std::uint64_t>(before.Size);
  if (size > limit)
    Reject(file, "the " + std::string(what) + " has " + std::to_string(size) + " bytes; at most " +
                     std::to_string(limit) + " are read");
  // One byte more than the file should have shows that it grew.
  const std::size_t room = static_cast<std::size_t>(size) + 1;
  const std::size_t count = ReadFromStart(opened, reserve(room), room, file, what);
  if (count != size || IdentityOf(StatusOf(opened, file, what)) != before)
    return std::nullopt;
  return TReadBytes{count, before};
}

TReadBytes ReadAtRest(const std::filesystem::path& file, const TReserveMemory& reserve,
                      std::uint64_t limit, std::string_view what) {
  for (int attempt = 0; attempt < ReadAttempts; ++attempt) {
    if (const auto read = TryRead(file, reserve, limit, what))
      return *read;
  }
  Reject(file,
         "the " + std::string(what) + " was changed by another program each time it was read");
}

} // namespace

TFileIdentity IdentityOf(const struct stat& status) {
  return {status.st_dev, status.st_ino, status.st_size, status.st_mtim.tv_sec,
          status.st_mtim.tv_nsec};
}

std::string_view KindOfFile(mode_t mode) {
  if (S_ISDIR(mode))
    return "a directory";
  if (S_ISFIFO(mode))
    return "a pipe";
  if (S_ISSOCK(mode))
    return "a socket";
  return S_ISREG(mode) ? "a file" : "a device";
}

TFileDescriptor OpenPlainFile(const std::filesystem::path& file, std::string_view what,
                              int extraFlags) {
  // Asked before opening, because the mere opening of a device can do something.
  struct stat status = {};
  if (::stat(file.c_str(), &status) != 0)
    RejectUnreadable(file, what, errno);
  RequirePlainFile(file, what, status.st_mode);
  TFileDescriptor opened(
      ::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC | extraFlags));
  if (!opened.IsOpen())
    RejectUnreadable(file, what, errno);
  // Asked again, because another program may have put something else there meanwhile.
  RequirePlainFile(file, what, StatusOf(opened, file, what).st_mode);
  return opened;
}

TFileContent ReadWholeFile(const std::filesystem::path& file, std::uint64_t limit,
                           std::string_view what) {
  std::unique_ptr<char[]> bytes;
  const auto reserve = [&bytes](std::size_t size) {
    bytes = std::make_unique_for_overwrite<char[]>(size);
    return bytes.get();
  };
  const TReadBytes read = ReadAtRest(file, reserve, limit, what);
  return {std::move(bytes), read.Count, read.Identity};
}

std::size_t ReadWholeFileInto(const std::filesystem::path& file, const TReserveMemory& reserve,
                              std::uint64_t limit, std::string_view what) {
  return ReadAtRest(file, reserve, limit, what).Count;
}

} // namespace workbench
