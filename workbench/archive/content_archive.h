// An archive of contents, each under the hash of what it is.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <string>

namespace workbench {

/// A zip archive while it is written. The same contents in the same order make the same bytes.
class IContentArchive {
public:
  virtual ~IContentArchive() = default;
  /// Adds the content of a file, which has that size and SHA-256, the name of the member. Throws
  /// TArchiveError, also when the file is another one meanwhile.
  virtual void Add(const std::filesystem::path& file, std::uint64_t size,
                   const std::string& hash) = 0;
  /// Writes the end. Throws TArchiveError.
  virtual void Finish() = 0;
};

/// The function by which the module of codecs begins one.
inline constexpr const char* NewContentArchiveFunction = "NewDeploymentContentArchive";
using TNewContentArchive = void (*)(const std::filesystem::path& file,
                                    std::unique_ptr<IContentArchive>& archive);

/// Begins the file, which must not be there. Throws TArchiveError.
std::unique_ptr<IContentArchive> NewContentArchive(const std::filesystem::path& file);

} // namespace workbench
