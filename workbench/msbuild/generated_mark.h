// The last line of a generated project: which list it was made from.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace workbench {

/// A comment with the hash of the list, so that a file that was left behind by a save which was cut
/// short is noticed.
std::string GeneratedMark(std::string_view listHash);

/// True when the file ends with the mark of that list. False for one that is missing, cut off or
/// cannot be read.
bool HasGeneratedMark(const std::filesystem::path& file, std::string_view listHash);

} // namespace workbench
