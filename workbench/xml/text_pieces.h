// A text put together from pieces of another one and pieces of its own, without copying.
#pragma once

#include <deque>
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
    if (!FPieces.empty() && FPieces.back().data() + FPieces.back().size() == piece.data())
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

private:
  std::vector<std::string_view> FPieces;
  std::deque<std::string> FOwned; // never moves what it holds
};

} // namespace workbench
