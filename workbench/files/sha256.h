// SHA-256, as hexadecimal text.
#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace workbench {

/// A digest that is being computed, as the module of codecs does it.
class IDigest {
public:
  virtual ~IDigest() = default;
  virtual void Add(std::string_view bytes) = 0;
  /// The digest of all that was added; nothing may be added any more.
  virtual std::string Text() = 0;
};

/// Module and function that make one. The function throws std::system_error where there is no
/// memory for it.
inline constexpr std::string_view CodecsModule = "deployment-codecs.so";
inline constexpr const char* NewDigestFunction = "NewDeploymentDigest";
using TNewDigest = void (*)(std::unique_ptr<IDigest>& digest);

/// The digest of bytes that come in pieces.
class TSHA256 {
public:
  /// Throws std::system_error where there is no memory for it, and TInputError when the module is
  /// not installed.
  TSHA256();

  void Add(std::string_view bytes) { FDigest->Add(bytes); }
  /// The digest of all that was added; nothing may be added any more.
  std::string Text() { return FDigest->Text(); }

private:
  std::unique_ptr<IDigest> FDigest;
};

/// Of the first `size` bytes of the file, or of all of it. Nothing when it cannot be read, is
/// shorter, or the work is cancelled, which is asked between blocks.
std::optional<std::string> FileSHA256(const std::filesystem::path& file,
                                      std::optional<std::uint64_t> size = std::nullopt,
                                      const std::function<bool()>& isCancelled = {});

} // namespace workbench
