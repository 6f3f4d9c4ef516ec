// A dictionary that keeps insertion order, so that what is written from it keeps the user's order.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace deployment {

/// String keys, compared exactly, each with one value. Iteration is in order of insertion; a value
/// that replaces another takes its place. Small dictionaries are searched, larger ones get a hash
/// index, so that a look-up costs the same whatever the size. The dictionary owns its values.
template <class TValue>
class TOrderedDictionary {
public:
  struct TPair {
    std::string Key;
    TValue Value;
  };

  /// The value under the key, or null.
  TValue* Find(std::string_view key) { return FindIn(*this, key); }
  const TValue* Find(std::string_view key) const { return FindIn(*this, key); }

  /// Stores the value under the key, in place of the one that is there; returns the stored value.
  TValue& Set(std::string_view key, TValue value) {
    if (TValue* found = Find(key)) {
      *found = std::move(value);
      return *found;
    }
    FPairs.push_back(TPair{std::string(key), std::move(value)});
    if (FIndex)
      FIndex->emplace(FPairs.back().Key, FPairs.size() - 1);
    else if (FPairs.size() > SearchLimit)
      BuildIndex();
    return FPairs.back().Value;
  }

  /// Removes the key; false when it is absent. The order of the others stays.
  bool Remove(std::string_view key) {
    const std::size_t position = PositionOf(key);
    if (position == FPairs.size())
      return false;
    FPairs.erase(FPairs.begin() + static_cast<std::ptrdiff_t>(position));
    FIndex.reset();
    if (FPairs.size() > SearchLimit)
      BuildIndex();
    return true;
  }

  void Clear() {
    FPairs.clear();
    FIndex.reset();
  }

  bool IsEmpty() const { return FPairs.empty(); }
  std::size_t Count() const { return FPairs.size(); }
  auto begin() const { return FPairs.begin(); }
  auto end() const { return FPairs.end(); }

private:
  // Up to this many keys a plain search beats a hash table, and most dictionaries stay below.
  static constexpr std::size_t SearchLimit = 8;

  struct THash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const {
      return std::hash<std::string_view>()(text);
    }
  };
  using TIndex = std::unordered_map<std::string, std::size_t, THash, std::equal_to<>>;

  template <class TSelf>
  static auto FindIn(TSelf& self, std::string_view key) -> decltype(&self.FPairs[0].Value) {
    const std::size_t position = self.PositionOf(key);
    return position == self.FPairs.size() ? nullptr : &self.FPairs[position].Value;
  }

  std::size_t PositionOf(std::string_view key) const {
    if (FIndex) {
      const auto found = FIndex->find(key);
      return found == FIndex->end() ? FPairs.size() : found->second;
    }
    std::size_t position = 0;
    while (position < FPairs.size() && FPairs[position].Key != key)
      ++position;
    return position;
  }

  void BuildIndex() {
    FIndex = std::make_unique<TIndex>();
    FIndex->reserve(FPairs.size() * 2);
    for (std::size_t position = 0; position < FPairs.size(); ++position)
      FIndex->emplace(FPairs[position].Key, position);
  }

  std::vector<TPair> FPairs;
  std::unique_ptr<TIndex> FIndex;
};

} // namespace deployment
