// The user's settings on disk: one JSON object of texts and lists.
#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace workbench {

/// A setting is a text, or a list of texts where it is a history.
using TSettingValue = std::variant<std::string, std::vector<std::string>>;
using TSettingValues = std::map<std::string, TSettingValue, std::less<>>;

/// Reads the settings; none when there is no file. Throws TInputError when the file is damaged.
TSettingValues ReadSettingsFile(const std::filesystem::path& file);

/// Reads the settings under a lock, changes them and writes them back; returns what is there then.
/// The file and its directory are made when absent, for the user alone. Throws TInputError when
/// the file is damaged or a text is not UTF-8, and TSaveError when it cannot be written; the file
/// is what it was then.
TSettingValues ChangeSettingsFile(const std::filesystem::path& file,
                                  const std::function<void(TSettingValues&)>& change);

} // namespace workbench
