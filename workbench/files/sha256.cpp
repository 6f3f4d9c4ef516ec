#include "workbench/files/sha256.h"

#include "workbench/files/file_descriptor.h"
#include "workbench/files/own_modules.h"

#include <algorithm>
#include <fcntl.h>
#include <vector>

namespace workbench {
namespace {

constexpr std::size_t BlockSize = std::size_t(256) * 1024;

} // namespace

TSHA256::TSHA256() {
  static const auto make =
      reinterpret_cast<TNewDigest>(OwnModuleFunction(CodecsModule, NewDigestFunction));
  make(FDigest);
}

std::optional<std::string> FileSHA256(const std::filesystem::path& file,
                                      std::optional<std::uint64_t> size,
                                      const std::function<bool()>& isCancelled) {
  const TFileDescriptor source(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!source.IsOpen())
    return std::nullopt;
  TSHA256 digest;
  std::vector<char> block(BlockSize);
  std::uint64_t left = size.value_or(UINT64_MAX);
  while (left > 0) {
    if (isCancelled && isCancelled())
      return std::nullopt;
    const ssize_t count =
        ::read(source.Get(), block.data(), std::min<std::uint64_t>(left, block.size()));
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0 || (count == 0 && size))
      return std::nullopt;
    if (count == 0)
      break;
    digest.Add({block.data(), static_cast<std::size_t>(count)});
    left -= static_cast<std::uint64_t>(count);
  }
  return digest.Text();
}

} // namespace workbench
