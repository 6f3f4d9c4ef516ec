#include "workbench/files/sha256.h"

#include "workbench/files/file_descriptor.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <memory>
#include <openssl/evp.h>
#include <vector>

namespace workbench {
namespace {

constexpr std::size_t BlockSize = std::size_t(256) * 1024;

using TDigest = std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)>;

std::string Hexadecimal(const unsigned char* bytes, std::size_t count) {
  constexpr std::string_view Digits = "0123456789abcdef";
  std::string text;
  for (std::size_t i = 0; i < count; ++i) {
    text += Digits[bytes[i] >> 4U];
    text += Digits[bytes[i] & 0xfU];
  }
  return text;
}

} // namespace

std::optional<std::string> FileSHA256(const std::filesystem::path& file,
                                      std::optional<std::uint64_t> size) {
  const TFileDescriptor source(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  const TDigest digest(EVP_MD_CTX_new(), &EVP_MD_CTX_free);
  if (!source.IsOpen() || !digest || EVP_DigestInit_ex(digest.get(), EVP_sha256(), nullptr) != 1)
    return std::nullopt;
  std::vector<char> block(BlockSize);
  std::uint64_t left = size.value_or(UINT64_MAX);
  while (left > 0) {
    const ssize_t count =
        ::read(source.Get(), block.data(), std::min<std::uint64_t>(left, block.size()));
    if (count < 0 && errno == EINTR)
      continue;
    if (count < 0 || (count == 0 && size))
      return std::nullopt;
    if (count == 0)
      break;
    EVP_DigestUpdate(digest.get(), block.data(), static_cast<std::size_t>(count));
    left -= static_cast<std::uint64_t>(count);
  }
  std::array<unsigned char, EVP_MAX_MD_SIZE> result{};
  unsigned length = 0;
  EVP_DigestFinal_ex(digest.get(), result.data(), &length);
  return Hexadecimal(result.data(), length);
}

} // namespace workbench
