// Memory for a tree that is built once and dropped whole.
#pragma once

#include <cstddef>
#include <cstring>
#include <memory>
#include <new>
#include <string_view>
#include <type_traits>
#include <utility>
#include <vector>

namespace workbench {

/// Hands out memory that lives until the arena does, or until it is wound back whole. Nothing in it
/// is destroyed one by one.
class TArena {
public:
  TArena() = default;
  TArena(const TArena&) = delete;
  TArena& operator=(const TArena&) = delete;

  /// Makes an object whose destructor needs not run.
  template <class TObject, class... TArguments>
  TObject* Make(TArguments&&... arguments) {
    static_assert(std::is_trivially_destructible_v<TObject>);
    return ::new (Allocate(sizeof(TObject), alignof(TObject)))
        TObject(std::forward<TArguments>(arguments)...);
  }

  /// A copy of the text that lives in the arena.
  std::string_view Keep(std::string_view text) {
    if (text.empty())
      return {};
    char* copy = static_cast<char*>(Allocate(text.size(), 1));
    std::memcpy(copy, text.data(), text.size());
    return {copy, text.size()};
  }

  /// Uninitialised memory.
  void* Allocate(std::size_t size, std::size_t alignment) {
    const std::size_t start = (FUsed + alignment - 1) / alignment * alignment;
    if (FChunks.empty() || start + size > FChunks[FCurrent].Size)
      return AllocateInNextChunk(size);
    FUsed = start + size;
    return FChunks[FCurrent].Memory.get() + start;
  }

  /// Forgets what was handed out; the memory is handed out again.
  void WindBack() {
    FCurrent = 0;
    FUsed = 0;
  }

  /// Forgets what was handed out and gives the memory back.
  void Clear() {
    FChunks.clear();
    WindBack();
  }

private:
  static constexpr std::size_t ChunkSize = std::size_t{256} * 1024;

  struct TChunk {
    std::unique_ptr<std::byte[]> Memory;
    std::size_t Size;
  };

  void* AllocateInNextChunk(std::size_t size) {
    std::size_t next = FChunks.empty() ? 0 : FCurrent + 1;
    if (next == FChunks.size() || FChunks[next].Size < size) {
      const std::size_t chunkSize = size > ChunkSize ? size : ChunkSize;
      FChunks.insert(FChunks.begin() + static_cast<std::ptrdiff_t>(next),
                     {std::make_unique_for_overwrite<std::byte[]>(chunkSize), chunkSize});
    }
    FCurrent = next;
    FUsed = size;
    return FChunks[next].Memory.get();
  }

  std::vector<TChunk> FChunks;
  std::size_t FCurrent = 0;
  std::size_t FUsed = 0;
};

} // namespace workbench
