#include "workbench/services/file_utils.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "package/common/path_text.h"
#include "workbench/files/machine_path.h"
#include "workbench/files/program_image.h"

#include <algorithm>
#include <cstdlib>
#include <sys/stat.h>
#include <vector>

namespace workbench {
namespace {

using deployment::TImageWidth;

bool HasDrive(std::string_view path) {
  return path.size() > 1 && path[1] == ':';
}

// Parts of a canonical path, the drive (or an empty text for the root) first.
std::vector<std::string_view> PartsOf(std::string_view canonical) {
  std::vector<std::string_view> parts =
      deployment::SplitDelimited(canonical, deployment::PathDelimiter);
  if (!parts.empty() && parts.back().empty())
    parts.pop_back();
  return parts;
}

} // namespace

bool TFileUtils::FileExists(std::string_view path) const {
  struct stat status = {};
  return ::stat(ToMachineText(path).c_str(), &status) == 0 && !S_ISDIR(status.st_mode);
}

TImageWidth TFileUtils::IsImage64Bit(std::string_view path) const {
  const TProgramImage image = ReadProgramImage(ToMachinePath(path));
  if (image.Format != TProgramFormat::PE || image.Bits == 0)
    return TImageWidth::Neither;
  return image.Bits == 64 ? TImageWidth::Bits64 : TImageWidth::Bits32;
}

std::string TFileUtils::DescribeImage(std::string_view path) const {
  return DescribeProgramImage(ReadProgramImage(ToMachinePath(path)));
}

std::string TFileUtils::QualifyPath(std::string_view path, std::string_view baseFile) const {
  return MakeAbsolutePath(path, deployment::DirectoryPart(baseFile));
}

std::string TFileUtils::MakeAbsolutePath(std::string_view path, std::string_view directory) const {
  return deployment::CanonicalizePath(deployment::Combine(directory, path));
}

std::string TFileUtils::MakeRelativePath(std::string_view path, std::string_view directory) const {
  if (!deployment::IsAbsolutePath(path) || !deployment::IsAbsolutePath(directory) ||
      HasDrive(path) != HasDrive(directory))
    return std::string(path);
  const std::string target = deployment::CanonicalizePath(path);
  const std::string base = deployment::CanonicalizePath(directory);
  const std::vector<std::string_view> targetParts = PartsOf(target);
  const std::vector<std::string_view> baseParts = PartsOf(base);
  // Names on a drive are one whatever their case; those of this machine are not.
  const auto [from, to] =
      std::mismatch(baseParts.begin(), baseParts.end(), targetParts.begin(), targetParts.end(),
                    [ignoresCase = HasDrive(path)](std::string_view left, std::string_view right) {
                      return left == right || (ignoresCase && deployment::SameText(left, right));
                    });
  if (from == baseParts.begin())
    return std::string(path);
  std::vector<std::string> parts(static_cast<std::size_t>(baseParts.end() - from), "..");
  parts.insert(parts.end(), to, targetParts.end());
  return parts.empty() ? "." : deployment::JoinDelimited(parts, "\\");
}

std::string TFileUtils::GetEnvironmentVariable(std::string_view name) const {
  const char* value = std::getenv(std::string(name).c_str());
  std::string text(value ? value : "");
  if (deployment::UpperCase(name).ends_with("PATH"))
    std::replace(text.begin(), text.end(), ':', ';');
  return text;
}

} // namespace workbench
