// Host unit Uiutils: questions about files of this machine. Path text is package/common's.
#pragma once

#include <string>
#include <string_view>

namespace deployment {

/// What a program file was built for.
enum class TImageWidth { Neither, Bits32, Bits64 };

/// Implemented by the host, which alone turns stored text into paths of this machine.
class IFileUtils {
public:
  virtual ~IFileUtils() = default;
  /// True when the path names a file (links followed), not a directory.
  virtual bool FileExists(std::string_view path) const = 0;
  /// Reads the header of a program file. Neither when it is none or cannot be read.
  virtual TImageWidth IsImage64Bit(std::string_view path) const = 0;
  /// What the file is by its first bytes, as words for a message ("64-bit ELF program for
  /// x86-64"); "no program" when it is none or cannot be read.
  virtual std::string DescribeImage(std::string_view path) const = 0;
  /// The path made absolute against the directory of a base file.
  virtual std::string QualifyPath(std::string_view path, std::string_view baseFile) const = 0;
  /// The path made absolute against a directory.
  virtual std::string MakeAbsolutePath(std::string_view path, std::string_view directory) const = 0;
  /// The path as seen from a directory, with "\" as delimiter; unchanged when there is no way.
  virtual std::string MakeRelativePath(std::string_view path, std::string_view directory) const = 0;
  /// An environment variable with the delimiter of lists turned into ";"; empty when unset.
  virtual std::string GetEnvironmentVariable(std::string_view name) const = 0;
};

} // namespace deployment
