// Bytes that are filled at one end and taken at the other.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>

namespace workbench {

/// Keeps what it has in one piece. Room is not filled with anything first, since megabytes go
/// through here. Spans and views are good until the buffer grows or bytes are dropped.
class TByteBuffer {
public:
  std::size_t Size() const { return FEnd - FStart; }
  bool IsEmpty() const { return FStart == FEnd; }
  std::string_view View() const { return {FBytes.get() + FStart, Size()}; }
  /// The bytes from a position on, to be changed in place.
  char* At(std::size_t position) { return FBytes.get() + FStart + position; }

  void Append(std::string_view bytes) {
    const std::span<char> room = Room(bytes.size());
    std::ranges::copy(bytes, room.begin());
  }
  /// Appends that many bytes, to be filled.
  std::span<char> Room(std::size_t size) {
    if (FCapacity - FEnd < size)
      MakeRoom(size);
    FEnd += size;
    return {FBytes.get() + (FEnd - size), size};
  }
  /// Takes bytes from the end away.
  void Shrink(std::size_t size) { FEnd -= size; }
  /// Takes bytes from the front away.
  void Drop(std::size_t size) {
    FStart += size;
    if (FStart == FEnd)
      FStart = FEnd = 0;
  }

private:
  void MakeRoom(std::size_t size) {
    const std::size_t used = Size();
    // Moving to the front is worth it when it makes plenty of room.
    if (FCapacity - used >= size && used <= FStart) {
      std::memmove(FBytes.get(), FBytes.get() + FStart, used);
    } else {
      FCapacity = std::max(2 * FCapacity, used + size);
      auto bytes = std::make_unique_for_overwrite<char[]>(FCapacity);
      if (used > 0)
        std::memcpy(bytes.get(), FBytes.get() + FStart, used);
      FBytes = std::move(bytes);
    }
    FStart = 0;
    FEnd = used;
  }

  std::unique_ptr<char[]> FBytes;
  std::size_t FCapacity = 0;
  std::size_t FStart = 0;
  std::size_t FEnd = 0;
};

} // namespace workbench
