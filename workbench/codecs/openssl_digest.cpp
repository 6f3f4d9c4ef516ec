#include "workbench/codecs/openssl_digest.h"

#include <array>
#include <cerrno>
#include <openssl/evp.h>
#include <system_error>

namespace workbench {
namespace {

std::string Hexadecimal(const unsigned char* bytes, std::size_t count) {
  constexpr std::string_view Digits = "0123456789abcdef";
  std::string text;
  text.reserve(2 * count);
  for (std::size_t i = 0; i < count; ++i) {
    text += Digits[bytes[i] >> 4U];
    text += Digits[bytes[i] & 0xfU];
  }
  return text;
}

class TOpenSSLDigest final : public IDigest {
public:
  TOpenSSLDigest() {
    if (!FContext || EVP_DigestInit_ex(FContext.get(), EVP_sha256(), nullptr) != 1)
      throw std::system_error(ENOMEM, std::generic_category(), "computing a digest");
  }

  void Add(std::string_view bytes) override {
    EVP_DigestUpdate(FContext.get(), bytes.data(), bytes.size());
  }
  std::string Text() override {
    std::array<unsigned char, EVP_MAX_MD_SIZE> result{};
    unsigned length = 0;
    EVP_DigestFinal_ex(FContext.get(), result.data(), &length);
    return Hexadecimal(result.data(), length);
  }

private:
  std::unique_ptr<EVP_MD_CTX, decltype(&EVP_MD_CTX_free)> FContext{EVP_MD_CTX_new(),
                                                                   &EVP_MD_CTX_free};
};

} // namespace

std::unique_ptr<IDigest> NewOpenSSLDigest() {
  return std::make_unique<TOpenSSLDigest>();
}

} // namespace workbench
