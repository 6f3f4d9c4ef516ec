// Reads a file of the user as a whole, and nothing but plain files.
#pragma once

#include "workbench/files/file_descriptor.h"

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <functional>
#include <memory>
#include <string_view>
#include <sys/stat.h>
#include <sys/types.h>

namespace workbench {

/// Largest input file that is read: 256 MiB.
inline constexpr std::uint64_t MaximumFileSize = 256ULL * 1024 * 1024;

/// What tells one state of a file on disk from another.
struct TFileIdentity {
  dev_t Device = 0;
  ino_t Inode = 0;
  off_t Size = 0;
  std::int64_t ModifiedSeconds = 0;
  std::int64_t ModifiedNanoseconds = 0;

  bool operator==(const TFileIdentity&) const = default;
};

/// The bytes of a file and what file they came from.
class TFileContent {
public:
  TFileContent() = default;
  TFileContent(std::unique_ptr<char[]> bytes, std::size_t size, const TFileIdentity& identity)
      : FBytes(std::move(bytes)), FSize(size), FIdentity(identity) {}

  /// Good as long as this object, also after a move.
  std::string_view Text() const { return {FBytes.get(), FSize}; }
  const TFileIdentity& Identity() const { return FIdentity; }

private:
  std::unique_ptr<char[]> FBytes;
  std::size_t FSize = 0;
  TFileIdentity FIdentity;
};

/// The identity in a result of stat.
TFileIdentity IdentityOf(const struct stat& status);

/// "a directory", "a pipe", "a socket", "a device" or "a file".
std::string_view KindOfFile(mode_t mode);

/// Opens a plain file for reading, links followed, without ever waiting for another program.
/// `what` says what the file should have been, such as "project file". Throws TInputError for
/// anything that is no plain file or cannot be opened.
TFileDescriptor OpenPlainFile(const std::filesystem::path& file,
                              std::string_view what = "project file", int extraFlags = 0);

/// Reads a plain file; a file that changes meanwhile is read anew, three times at most. Throws
/// TInputError when it cannot be read, is larger than `limit` bytes or does not come to rest.
TFileContent ReadWholeFile(const std::filesystem::path& file, std::uint64_t limit = MaximumFileSize,
                           std::string_view what = "project file");

/// Gives memory for that many bytes; asked again, it replaces what it gave before.
using TReserveMemory = std::function<char*(std::size_t)>;

/// The same into memory that the caller reserves, one byte more than the file has. Returns the
/// number of bytes read.
std::size_t ReadWholeFileInto(const std::filesystem::path& file, const TReserveMemory& reserve,
                              std::uint64_t limit = MaximumFileSize,
                              std::string_view what = "project file");

} // namespace workbench
