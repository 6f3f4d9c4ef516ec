// SHA-256 of files of this machine, as hexadecimal text.
#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>

namespace workbench {

/// Of the first `size` bytes of the file, or of all of it. Nothing when it cannot be read or is
/// shorter.
std::optional<std::string> FileSHA256(const std::filesystem::path& file,
                                      std::optional<std::uint64_t> size = std::nullopt);

} // namespace workbench
