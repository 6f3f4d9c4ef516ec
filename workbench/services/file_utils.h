// The package's questions about files, answered on the disk of this machine.
#pragma once

#include "package/host/api/uiutils.h"

#include <string>
#include <string_view>

namespace workbench {

/// Paths in arguments and results are stored paths.
class TFileUtils : public deployment::IFileUtils {
public:
  bool FileExists(std::string_view path) const override;
  /// Knows the headers of Windows programs. A header that is cut off is none.
  deployment::TImageWidth IsImage64Bit(std::string_view path) const override;
  /// Knows the programs of Windows, Linux, Android and Apple's systems.
  std::string DescribeImage(std::string_view path) const override;
  std::string QualifyPath(std::string_view path, std::string_view baseFile) const override;
  std::string MakeAbsolutePath(std::string_view path, std::string_view directory) const override;
  std::string MakeRelativePath(std::string_view path, std::string_view directory) const override;
  /// Variables whose name ends in "PATH" hold lists; others come as they are.
  std::string GetEnvironmentVariable(std::string_view name) const override;
};

} // namespace workbench
