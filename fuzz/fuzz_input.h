// The bytes that a fuzz target is given, taken apart, and the rules that it holds results against.
#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <string_view>

namespace workbench::fuzz {

/// Ends the program, which the fuzzer reports with the input, when a rule does not hold. `shown` is
/// what to look at.
inline void Require(bool holds, std::string_view rule, std::string_view shown = {}) {
  if (holds)
    return;
  std::fprintf(stderr, "the rule is broken: %.*s\n%.*s\n", static_cast<int>(rule.size()),
               rule.data(), static_cast<int>(shown.size()), shown.data());
  std::abort();
}

/// Two texts that must be one.
inline void RequireEqual(std::string_view left, std::string_view right, std::string_view rule) {
  if (left != right)
    Require(false, rule, std::string(left) + "\n--- and not ---\n" + std::string(right));
}

/// Takes choices and texts from the front of the input. What is asked for behind its end is zero
/// or empty, so that every input means something.
class TFuzzInput {
public:
  TFuzzInput(const std::uint8_t* data, std::size_t size)
      : FRest(reinterpret_cast<const char*>(data), size) {}

  bool IsAtEnd() const { return FRest.empty(); }
  std::uint8_t Byte() {
    if (FRest.empty())
      return 0;
    const auto byte = static_cast<std::uint8_t>(FRest.front());
    FRest.remove_prefix(1);
    return byte;
  }
  std::size_t Below(std::size_t end) { return Byte() % end; }
  bool Flag() { return (Byte() & 1U) != 0; }
  /// A text of at most 255 bytes.
  std::string_view Text() { return Take(Byte()); }
  /// A line without its end.
  std::string_view Line() {
    const std::string_view line = Take(std::min(FRest.find('\n'), FRest.size()));
    FRest.remove_prefix(FRest.empty() ? 0 : 1);
    return line;
  }
  /// All that is left.
  std::string_view Rest() { return Take(FRest.size()); }

private:
  std::string_view Take(std::size_t size) {
    const std::string_view taken = FRest.substr(0, size);
    FRest.remove_prefix(taken.size());
    return taken;
  }

  std::string_view FRest;
};

} // namespace workbench::fuzz
