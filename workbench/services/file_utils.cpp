#include "workbench/services/file_utils.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "package/common/errors.h"
#include "package/common/path_text.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/machine_path.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdlib>
#include <optional>
#include <vector>

namespace workbench {
namespace {

using deployment::TImageWidth;

constexpr off_t OffsetOfHeaderOffset = 0x3c;

// The little-endian number of `TNumber`'s size at an offset; nothing behind the end.
template <class TNumber>
std::optional<TNumber> NumberAt(const TFileDescriptor& file, off_t offset) {
  std::array<unsigned char, sizeof(TNumber)> bytes = {};
  ssize_t count = -1;
  do {
    count = ::pread(file.Get(), bytes.data(), bytes.size(), offset);
  } while (count < 0 && errno == EINTR);
  if (count != static_cast<ssize_t>(bytes.size()))
    return std::nullopt;
  std::uint64_t value = 0;
  for (std::size_t i = bytes.size(); i > 0; --i)
    value = value << 8 | bytes[i - 1];
  return static_cast<TNumber>(value);
}

TImageWidth WidthOfMachine(std::uint16_t machine) {
  switch (machine) {
  case 0x014c: // x86
  case 0x01c0: // ARM
  case 0x01c4: // ARM with Thumb-2
    return TImageWidth::Bits32;
  case 0x0200: // Itanium
  case 0x8664: // x86-64
  case 0xaa64: // ARM64
    return TImageWidth::Bits64;
  default:
    return TImageWidth::Neither;
  }
}

TImageWidth ReadImageWidth(const TFileDescriptor& file) {
  constexpr std::uint16_t programMark = 0x5a4d;    // "MZ"
  constexpr std::uint32_t headerMark = 0x00004550; // "PE", 0, 0
  if (NumberAt<std::uint16_t>(file, 0) != programMark)
    return TImageWidth::Neither;
  const auto header = NumberAt<std::uint32_t>(file, OffsetOfHeaderOffset);
  if (!header || NumberAt<std::uint32_t>(file, *header) != headerMark)
    return TImageWidth::Neither;
  const auto machine = NumberAt<std::uint16_t>(file, off_t(*header) + 4);
  return machine ? WidthOfMachine(*machine) : TImageWidth::Neither;
}

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
  std::error_code ignored;
  const auto status = std::filesystem::status(ToMachinePath(path), ignored);
  return std::filesystem::exists(status) && !std::filesystem::is_directory(status);
}

TImageWidth TFileUtils::IsImage64Bit(std::string_view path) const {
  try {
    return ReadImageWidth(OpenPlainFile(ToMachinePath(path), "program"));
  } catch (const deployment::TInputError&) {
    return TImageWidth::Neither;
  }
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
