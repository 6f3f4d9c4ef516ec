#include "workbench/files/sha256.h"

#include "workbench/files/file_descriptor.h"

#include <algorithm>
#include <array>
#include <fcntl.h>
#include <memory>
#include <openssl/evp.h>
#include <system_error>
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

struct TSHA256::TState {
  TDigest Digest{EVP_MD_CTX_new(), &EVP_MD_CTX_free};
};

TSHA256::TSHA256() : FState(std::make_unique<TState>()) {
  if (!FState->Digest || EVP_DigestInit_ex(FState->Digest.get(), EVP_sha256(), nullptr) != 1)
    throw std::system_error(ENOMEM, std::generic_category(), "computing a digest");
}

TSHA256::~TSHA256() = default;

void TSHA256::Add(std::string_view bytes) {
  EVP_DigestUpdate(FState->Digest.get(), bytes.data(), bytes.size());
}

std::string TSHA256::Text() {
  std::array<unsigned char, EVP_MAX_MD_SIZE> result{};
  unsigned length = 0;
  EVP_DigestFinal_ex(FState->Digest.get(), result.data(), &length);
  return Hexadecimal(result.data(), length);
}

std::optional<std::string> FileSHA256(const std::filesystem::path& file,
                                      std::optional<std::uint64_t> size) {
  const TFileDescriptor source(::open(file.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!source.IsOpen())
    return std::nullopt;
  TSHA256 digest;
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
    digest.Add({block.data(), static_cast<std::size_t>(count)});
    left -= static_cast<std::uint64_t>(count);
  }
  return digest.Text();
}

} // namespace workbench
