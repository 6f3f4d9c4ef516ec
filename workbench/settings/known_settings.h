// The settings that somebody reads, and what their values may be.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Why the key is none that anything reads; nothing when it is one. Keys that end in a platform
/// take one of `platforms`.
std::optional<std::string> ProblemOfKey(std::string_view key,
                                        const std::vector<std::string>& platforms);

/// Why the value cannot be that of the key, which is a known one; nothing when it can.
std::optional<std::string> ProblemOfValue(std::string_view key, std::string_view value,
                                          const std::vector<std::string>& platforms);

/// The known keys, in the form of a help text: "library-path.PLATFORM" and so on.
std::vector<std::string> KnownSettings();

/// The known keys with the platforms filled in, to find the one that was meant.
std::vector<std::string> SettingNames(const std::vector<std::string>& platforms);

} // namespace workbench
