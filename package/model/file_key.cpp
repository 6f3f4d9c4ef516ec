#include "package/model/file_key.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace deployment {
namespace {

constexpr auto Powers = [] {
  std::array<std::uint64_t, 9> powers{1};
  for (std::size_t i = 1; i < powers.size(); ++i)
    powers[i] = powers[i - 1] * 0x100000001B3U;
  return powers;
}();

std::array<std::string_view, 3> Parts(const TFileKey& key) {
  return {key.Configuration, key.Platform, key.LocalName};
}

std::size_t KeySize(const TFileKey& key) {
  return key.Configuration.size() + key.Platform.size() + key.LocalName.size();
}

} // namespace

std::size_t HashKey(const TFileKey& key) {
  // A polynomial of the bytes, which does not see where one part ends and the next begins. Eight
  // bytes are taken in one step, since their products do not wait for each other.
  std::uint64_t hash = 0;
  for (std::string_view part : Parts(key)) {
    for (; part.size() >= 8; part.remove_prefix(8)) {
      std::uint64_t sum = 0;
      for (std::size_t i = 0; i < 8; ++i)
        sum += static_cast<unsigned char>(part[i]) * Powers[7 - i];
      hash = hash * Powers[8] + sum;
    }
    for (const char c : part)
      hash = hash * Powers[1] + static_cast<unsigned char>(c);
  }
  hash *= 0x9E3779B97F4A7C15U;
  return static_cast<std::size_t>(hash ^ (hash >> 32));
}

bool SameKey(const TFileKey& left, const TFileKey& right) {
  if (KeySize(left) != KeySize(right))
    return false;
  auto leftParts = Parts(left);
  auto rightParts = Parts(right);
  auto* leftPart = leftParts.data();
  auto* rightPart = rightParts.data();
  for (std::size_t rest = KeySize(left); rest > 0;) {
    const std::size_t length = std::min(leftPart->size(), rightPart->size());
    if (leftPart->substr(0, length) != rightPart->substr(0, length))
      return false;
    rest -= length;
    leftPart->remove_prefix(length);
    rightPart->remove_prefix(length);
    // With text left on both sides, a part that is used up is never the last one.
    if (rest > 0 && leftPart->empty())
      ++leftPart;
    if (rest > 0 && rightPart->empty())
      ++rightPart;
  }
  return true;
}

std::string JoinKey(const TFileKey& key) {
  std::string text;
  text.reserve(KeySize(key));
  return text.append(key.Configuration).append(key.Platform).append(key.LocalName);
}

} // namespace deployment
