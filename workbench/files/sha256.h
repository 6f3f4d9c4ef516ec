// SHA-256, as hexadecimal text.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace workbench {

/// The digest of bytes that come in pieces.
class TSHA256 {
public:
  /// Throws std::system_error where there is no memory for it.
  TSHA256();
  ~TSHA256();
  TSHA256(const TSHA256&) = delete;
  TSHA256& operator=(const TSHA256&) = delete;

  void Add(std::string_view bytes);
  /// The digest of all that was added; nothing may be added any more.
  std::string Text();

private:
  struct TState;
  std::unique_ptr<TState> FState;
};

/// Of the first `size` bytes of the file, or of all of it. Nothing when it cannot be read or is
/// shorter.
std::optional<std::string> FileSHA256(const std::filesystem::path& file,
                                      std::optional<std::uint64_t> size = std::nullopt);

} // namespace workbench
