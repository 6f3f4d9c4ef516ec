// An index over numbered slots: the slots whose text has the same hash hang on one chain.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

namespace deployment {

/// Number of a place in a list.
using TSlot = std::uint32_t;
inline constexpr TSlot NoSlot = 0xFFFFFFFF;

/// Linking and unlinking cost the same whatever the number of slots. A chain gives the slot that
/// was linked last first. Different texts may share a hash; who asks compares the texts.
class TSlotChains {
public:
  /// The slot must not be linked.
  void Link(TSlot slot, std::size_t hash);
  void Unlink(TSlot slot);
  /// A slot with that hash; NoSlot when there is none.
  TSlot First(std::size_t hash) const;
  /// The next slot of the same hash; NoSlot behind the last one.
  TSlot Next(TSlot slot) const;
  void Clear();

private:
  struct TLink {
    std::uint32_t Hash = 0;
    TSlot Previous = Unlinked; ///< NoSlot at the head of a bucket
    TSlot Next = NoSlot;
  };
  static constexpr TSlot Unlinked = NoSlot - 1;

  TSlot& HeadOf(std::uint32_t hash) { return FHeads[hash & (FHeads.size() - 1)]; }
  TSlot SkipOthers(TSlot slot, std::uint32_t hash) const;
  void PushFront(TSlot slot);
  void Grow();

  std::vector<TLink> FLinks;
  // Heads of the buckets; a power of two of them.
  std::vector<TSlot> FHeads;
  std::size_t FLinked = 0;
};

} // namespace deployment
