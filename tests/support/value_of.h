// Values of a map by key, where a missing one counts as empty.
#pragma once

#include <string>
#include <string_view>

namespace deployment {

/// The value under the key; empty when there is none.
template <class TMap>
std::string ValueOf(const TMap& map, std::string_view key) {
  const auto found = map.find(std::string(key));
  return found == map.end() ? std::string() : found->second;
}

} // namespace deployment
