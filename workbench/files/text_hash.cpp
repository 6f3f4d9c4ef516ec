#include "workbench/files/text_hash.h"

#include <array>
#include <cstdio>

namespace workbench {

void TTextHasher::Add(std::string_view text) {
  std::uint64_t hash = FHash;
  for (const char c : text) {
    hash ^= static_cast<unsigned char>(c);
    hash *= 1099511628211ULL;
  }
  FHash = hash;
}

std::string TTextHasher::Digits() const {
  std::array<char, 17> digits = {};
  std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(FHash));
  return digits.data();
}

std::string TextHash(std::string_view text) {
  TTextHasher hasher;
  hasher.Add(text);
  return hasher.Digits();
}

} // namespace workbench
