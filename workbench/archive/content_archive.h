// An archive of contents, each under the hash of what it is.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

struct archive;

namespace workbench {

/// A zip archive while it is written. The same contents in the same order make the same bytes.
class TContentArchive {
public:
  /// Begins the file, which must not be there. Throws TArchiveError.
  explicit TContentArchive(const std::filesystem::path& file);
  ~TContentArchive();
  TContentArchive(const TContentArchive&) = delete;
  TContentArchive& operator=(const TContentArchive&) = delete;

  /// Adds the content of a file, which has that size and SHA-256, the name of the member. Throws
  /// TArchiveError, also when the file is another one meanwhile.
  void Add(const std::filesystem::path& file, std::uint64_t size, const std::string& hash);
  /// Writes the end. Throws TArchiveError.
  void Finish();

private:
  struct TFree {
    void operator()(archive* object) const;
  };
  [[noreturn]] void Raise() const;

  std::unique_ptr<archive, TFree> FArchive;
};

} // namespace workbench
