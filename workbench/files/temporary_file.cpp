#include "workbench/files/temporary_file.h"

#include <climits>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <random>
#include <sys/stat.h>
#include <sys/uio.h>
#include <vector>

namespace workbench {
namespace {

constexpr std::string_view RandomCharacters = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::size_t RandomLength = 6;
constexpr std::string_view Suffix = ".tmp";
constexpr int NameAttempts = 100;
constexpr std::size_t VectorsPerCall = 64;
constexpr std::size_t CompareBlock = std::size_t(1) << 20;
constexpr std::chrono::hours StaleAge(24);

// ".NAME.", cut so that the whole name stays within what file systems allow.
std::string NamePrefix(std::string_view targetName) {
  constexpr std::size_t limit = NAME_MAX - 2 - RandomLength - Suffix.size();
  std::string prefix(".");
  prefix += targetName.substr(0, limit);
  return prefix + ".";
}

std::string RandomName(std::string_view targetName, std::random_device& source) {
  std::uniform_int_distribution<std::size_t> index(0, RandomCharacters.size() - 1);
  std::string name = NamePrefix(targetName);
  for (std::size_t i = 0; i < RandomLength; ++i)
    name.push_back(RandomCharacters[index(source)]);
  return name.append(Suffix);
}

bool IsTemporaryName(std::string_view name, std::string_view prefix) {
  if (name.size() != prefix.size() + RandomLength + Suffix.size() || !name.starts_with(prefix) ||
      !name.ends_with(Suffix))
    return false;
  return name.substr(prefix.size(), RandomLength).find_first_not_of(RandomCharacters) ==
         std::string_view::npos;
}

std::vector<iovec> ToVectors(std::span<const std::string_view> pieces) {
  std::vector<iovec> vectors;
  vectors.reserve(pieces.size());
  for (const std::string_view piece : pieces) {
    // writev takes its source as a pointer to non-const but does not write to it.
    if (!piece.empty())
      vectors.push_back({const_cast<char*>(piece.data()), piece.size()});
  }
  return vectors;
}

void WriteAll(int file, std::span<const std::string_view> pieces) {
  std::vector<iovec> vectors = ToVectors(pieces);
  std::size_t first = 0;
  while (first < vectors.size()) {
    const std::size_t count = std::min(vectors.size() - first, VectorsPerCall);
    const ssize_t result = ::writev(file, &vectors[first], static_cast<int>(count));
    if (result < 0 && errno == EINTR)
      continue;
    if (result == 0)
      errno = EIO;
    if (result <= 0)
      ThrowSystemError("writing the new content");
    auto written = static_cast<std::size_t>(result);
    while (first < vectors.size() && written >= vectors[first].iov_len)
      written -= vectors[first++].iov_len;
    if (written > 0) {
      vectors[first].iov_base = static_cast<char*>(vectors[first].iov_base) + written;
      vectors[first].iov_len -= written;
    }
  }
}

std::size_t ReadBlock(int file, char* bytes, std::size_t size, off_t offset) {
  while (true) {
    const ssize_t count = ::pread(file, bytes, size, offset);
    if (count >= 0)
      return static_cast<std::size_t>(count);
    if (errno != EINTR)
      ThrowSystemError("reading the content on disk");
  }
}

// Compares one piece with the file from the offset on.
bool HasPieceAt(int file, std::string_view piece, off_t offset, std::vector<char>& block) {
  while (!piece.empty()) {
    const std::size_t count =
        ReadBlock(file, block.data(), std::min(block.size(), piece.size()), offset);
    if (count == 0 || std::memcmp(block.data(), piece.data(), count) != 0)
      return false;
    piece.remove_prefix(count);
    offset += static_cast<off_t>(count);
  }
  return true;
}

} // namespace

bool HasContent(const TFileDescriptor& file, std::span<const std::string_view> pieces) {
  struct stat status = {};
  if (::fstat(file.Get(), &status) != 0)
    ThrowSystemError("examining the content on disk");
  std::size_t size = 0;
  for (const std::string_view piece : pieces)
    size += piece.size();
  if (static_cast<std::size_t>(status.st_size) != size)
    return false;
  std::vector<char> block(std::min(size, CompareBlock));
  off_t offset = 0;
  for (const std::string_view piece : pieces) {
    if (!HasPieceAt(file.Get(), piece, offset, block))
      return false;
    offset += static_cast<off_t>(piece.size());
  }
  return true;
}

TTemporaryFile::TTemporaryFile(const TFileDescriptor& directory, std::string_view targetName,
                               mode_t mode)
    : FDirectory(directory) {
  std::random_device source;
  for (int attempt = 0; !FFile.IsOpen(); ++attempt) {
    FName = RandomName(targetName, source);
    FFile = TFileDescriptor(::openat(directory.Get(), FName.c_str(),
                                     O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode));
    if (!FFile.IsOpen() && (errno != EEXIST || attempt >= NameAttempts))
      ThrowSystemError("making a temporary file beside it");
  }
}

TTemporaryFile::~TTemporaryFile() {
  if (!FInPlace)
    ::unlinkat(FDirectory.Get(), FName.c_str(), 0);
}

void TTemporaryFile::Write(std::span<const std::string_view> pieces) {
  WriteAll(FFile.Get(), pieces);
  while (::fsync(FFile.Get()) != 0) {
    if (errno != EINTR)
      ThrowSystemError("bringing the new content to the disk");
  }
  // After EINTR the descriptor is closed all the same, and the content was flushed before.
  if (::close(FFile.Release()) != 0 && errno != EINTR)
    ThrowSystemError("closing the temporary file");
}

TFileDescriptor TTemporaryFile::ReadBack(std::span<const std::string_view> pieces) const {
  TFileDescriptor file(
      ::openat(FDirectory.Get(), FName.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
  if (!file.IsOpen())
    ThrowSystemError("reading the new content back");
  if (!HasContent(file, pieces)) {
    errno = EIO;
    ThrowSystemError("comparing the new content with what reached the disk");
  }
  return file;
}

void TTemporaryFile::PutInPlace(const std::string& name, bool mayReplace) {
  const int directory = FDirectory.Get();
  if (mayReplace) {
    FInPlace = ::renameat(directory, FName.c_str(), directory, name.c_str()) == 0;
  } else {
    FInPlace =
        ::renameat2(directory, FName.c_str(), directory, name.c_str(), RENAME_NOREPLACE) == 0;
    // A file system without this kind of renaming: the second name refuses to replace as well,
    // and the first one goes with this object.
    if (!FInPlace && (errno == EINVAL || errno == ENOSYS) &&
        ::linkat(directory, FName.c_str(), directory, name.c_str(), 0) == 0)
      return;
  }
  if (!FInPlace)
    ThrowSystemError("putting the new content in place");
}

void RemoveStaleTemporaryFiles(const std::filesystem::path& directory,
                               std::string_view targetName) {
  const std::string prefix = NamePrefix(targetName);
  const auto oldest = std::filesystem::file_time_type::clock::now() - StaleAge;
  std::error_code ignored; // what cannot be examined or removed is left alone
  std::filesystem::directory_iterator entry(directory, ignored);
  for (; !ignored && entry != std::filesystem::directory_iterator(); entry.increment(ignored)) {
    if (!IsTemporaryName(entry->path().filename().string(), prefix))
      continue;
    std::error_code error;
    const bool isPlain = std::filesystem::is_regular_file(entry->symlink_status(error));
    const auto written = entry->last_write_time(error);
    if (!error && isPlain && written < oldest)
      std::filesystem::remove(entry->path(), error);
  }
}

} // namespace workbench
