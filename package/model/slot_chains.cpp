#include "package/model/slot_chains.h"

#include <algorithm>

namespace deployment {

void TSlotChains::Link(TSlot slot, std::size_t hash) {
  if (FLinked >= FHeads.size())
    Grow();
  if (slot >= FLinks.size())
    FLinks.resize(std::size_t{slot} + 1);
  FLinks[slot].Hash = static_cast<std::uint32_t>(hash);
  PushFront(slot);
  ++FLinked;
}

void TSlotChains::Unlink(TSlot slot) {
  TLink& link = FLinks[slot];
  if (link.Previous == NoSlot)
    HeadOf(link.Hash) = link.Next;
  else
    FLinks[link.Previous].Next = link.Next;
  if (link.Next != NoSlot)
    FLinks[link.Next].Previous = link.Previous;
  link = TLink();
  --FLinked;
}

TSlot TSlotChains::First(std::size_t hash) const {
  if (FHeads.empty())
    return NoSlot;
  const auto wanted = static_cast<std::uint32_t>(hash);
  return SkipOthers(FHeads[wanted & (FHeads.size() - 1)], wanted);
}

TSlot TSlotChains::Next(TSlot slot) const {
  return SkipOthers(FLinks[slot].Next, FLinks[slot].Hash);
}

void TSlotChains::Clear() {
  FLinks.clear();
  FHeads.clear();
  FLinked = 0;
}

TSlot TSlotChains::SkipOthers(TSlot slot, std::uint32_t hash) const {
  while (slot != NoSlot && FLinks[slot].Hash != hash)
    slot = FLinks[slot].Next;
  return slot;
}

void TSlotChains::PushFront(TSlot slot) {
  TLink& link = FLinks[slot];
  TSlot& head = HeadOf(link.Hash);
  link.Previous = NoSlot;
  link.Next = head;
  if (head != NoSlot)
    FLinks[head].Previous = slot;
  head = slot;
}

void TSlotChains::Grow() {
  constexpr std::size_t Least = 16;
  FHeads.assign(std::max(Least, FHeads.size() * 2), NoSlot);
  for (std::size_t slot = 0; slot < FLinks.size(); ++slot) {
    if (FLinks[slot].Previous != Unlinked)
      PushFront(static_cast<TSlot>(slot));
  }
}

} // namespace deployment
