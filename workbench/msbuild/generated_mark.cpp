#include "workbench/msbuild/generated_mark.h"

#include "package/common/errors.h"
#include "workbench/files/file_reader.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

constexpr std::size_t TailSize = 512; // holds the mark in every encoding

std::string TailOf(const std::filesystem::path& file) {
  const TFileDescriptor opened = OpenPlainFile(file, "side file");
  struct stat status = {};
  if (::fstat(opened.Get(), &status) != 0)
    return {};
  std::array<char, TailSize> bytes = {};
  const off_t start = std::max<off_t>(status.st_size - static_cast<off_t>(bytes.size()), 0);
  const ssize_t count = ::pread(opened.Get(), bytes.data(), bytes.size(), start);
  return {bytes.data(), static_cast<std::size_t>(std::max<ssize_t>(count, 0))};
}

} // namespace

std::string GeneratedMark(std::string_view listHash) {
  return "<!-- made from the list with the hash " + std::string(listHash) + " -->";
}

bool HasGeneratedMark(const std::filesystem::path& file, std::string_view listHash) {
  try {
    std::string tail = TailOf(file);
    std::erase(tail, '\0'); // of UTF-16
    tail.erase(tail.find_last_not_of("\r\n") + 1);
    return tail.ends_with(GeneratedMark(listHash));
  } catch (const deployment::TInputError&) {
    return false;
  }
}

} // namespace workbench
