// A short hash of texts, for names and for noticing damage; none that withstands an attacker.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace workbench {

/// For a text that comes in pieces.
class TTextHasher {
public:
  void Add(std::string_view text);
  /// Of what was added so far, as TextHash gives it.
  std::string Digits() const;

private:
  std::uint64_t FHash = 14695981039346656037ULL;
};

/// Sixteen hexadecimal digits, the same on every machine.
std::string TextHash(std::string_view text);

} // namespace workbench
