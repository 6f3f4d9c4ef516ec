// A text put together from pieces of another one and pieces of its own, without copying.
#pragma once

#include <cstddef>
#include <deque>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// Pieces in order. Those that are borrowed must outlive it.
class TTextPieces {
public:
  TTextPieces() = default;
  TTextPieces(const TTextPieces&) = delete;
  TTextPieces& operator=(const TTextPieces&) = delete;

  /// Adds a piece that somebody else keeps. One that follows the last piece in memory is joined
  /// with it.
  void Borrow(std::string_view piece) {
    if (piece.empty())
      return;
    const bool mayJoin =
        !FPieces.empty() && FPieces.size() != FMarkStart && FPieces.size() != FMarkEnd;
    if (mayJoin && FPieces.back().data() + FPieces.back().size() == piece.data())
      FPieces.back() = {FPieces.back().data(), FPieces.back().size() + piece.size()};
    else
      FPieces.push_back(piece);
  }

  /// Adds a piece and keeps it.
  void Own(std::string piece) {
    if (!piece.empty())
      FPieces.emplace_back(FOwned.emplace_back(std::move(piece)));
  }

  const std::vector<std::string_view>& Pieces() const { return FPieces; }

  /// What is added between these two can be asked for apart.
  void StartMark() { FMarkStart = FPieces.size(); }
  void EndMark() { FMarkEnd = FPieces.size(); }
  /// Empty when nothing was marked.
  std::span<const std::string_view> Marked() const {
    return FMarkEnd == NoMark ? std::span<const std::string_view>()
                              : std::span(FPieces).subspan(FMarkStart, FMarkEnd - FMarkStart);
  }

private:
  static constexpr std::size_t NoMark = std::size_t(-1);

  std::vector<std::string_view> FPieces;
  std::deque<std::string> FOwned; // never moves what it holds
  std::size_t FMarkStart = NoMark;
  std::size_t FMarkEnd = NoMark;
};

} // namespace workbench
