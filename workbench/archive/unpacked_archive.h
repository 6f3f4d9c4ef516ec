// Archives of this machine, unpacked into a directory of one's own: every member is checked before
// anything of it can go anywhere else.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

namespace workbench {

/// The archive cannot be read, or a member of it may not be unpacked.
class TArchiveError : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

/// One thing that an archive brings.
struct TArchiveMember {
  enum class TKind { File, Directory, Link };
  TKind Kind = TKind::File;
  std::string Name; ///< relative, "/" delimits; no empty part, no ".", no ".."
  /// Where its content stands on this machine, with rights and time stamp; empty for what is no
  /// file. Members that are one file in the archive share it.
  std::filesystem::path LocalFile = {};
  std::string LinkText = {}; ///< relative and leads to a place below the archive's directory
};

/// What an archive may bring.
struct TArchiveLimits {
  std::size_t Members = 200'000;
  std::uint64_t Bytes = std::uint64_t(16) << 30U; ///< of all files, unpacked
};

/// Unpacks a tar archive, compressed or not, or a zip archive into an empty directory, where its
/// files have names of their own. Members are in the archive's order, each name once; none is below
/// one that is no directory. Throws TArchiveError, which names the member, for one that leads out,
/// for what is no file, directory or symbolic link, beyond the limits, and when `isCancelled`;
/// std::system_error when the directory does not take it, TInputError when the module of codecs is
/// not installed.
std::vector<TArchiveMember> UnpackArchive(const std::filesystem::path& archive,
                                          const std::filesystem::path& directory,
                                          const std::function<bool()>& isCancelled,
                                          const TArchiveLimits& limits = {});

/// What does it in the module of codecs.
inline constexpr const char* UnpackFunctionName = "UnpackDeploymentArchive";
using TUnpackFunction = void (*)(const std::filesystem::path& archive,
                                 const std::filesystem::path& directory,
                                 const std::function<bool()>& isCancelled,
                                 const TArchiveLimits& limits,
                                 std::vector<TArchiveMember>& members);

} // namespace workbench
