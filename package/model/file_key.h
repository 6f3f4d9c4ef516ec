// The key of a file entry: configuration, platform and local name joined without a separator.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace deployment {

/// The parts of a key. What counts is the joined text: keys that were cut differently are the same
/// key, so a whole key may stand in any one part. The views are the caller's.
struct TFileKey {
  std::string_view Configuration;
  std::string_view Platform;
  std::string_view LocalName;
};

/// A hash of the joined text.
std::size_t HashKey(const TFileKey& key);

/// True when both join to the same text, compared exactly.
bool SameKey(const TFileKey& left, const TFileKey& right);

std::string JoinKey(const TFileKey& key);

} // namespace deployment
