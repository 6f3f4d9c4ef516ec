#include "workbench/files/text_hash.h"

#include <array>
#include <cstdint>
#include <cstdio>

namespace workbench {

std::string TextHash(std::string_view text) {
  std::uint64_t hash = 14695981039346656037ULL;
  for (const char c : text) {
    hash ^= static_cast<unsigned char>(c);
    hash *= 1099511628211ULL;
  }
  std::array<char, 17> digits = {};
  std::snprintf(digits.data(), digits.size(), "%016llx", static_cast<unsigned long long>(hash));
  return digits.data();
}

} // namespace workbench
