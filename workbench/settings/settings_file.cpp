#include "workbench/settings/settings_file.h"

#include "package/common/errors.h"
#include "workbench/files/file_reader.h"
#include "workbench/files/file_saver.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <optional>
#include <sys/stat.h>

namespace workbench {
namespace {

constexpr std::string_view FileKind = "settings file";
constexpr std::uint64_t LargestFile = std::uint64_t(16) * 1024 * 1024;

[[noreturn]] void Reject(const std::filesystem::path& file, const std::string& text,
                         unsigned line = 0) {
  throw deployment::TInputError(text, {file.string(), line});
}

bool IsThere(const std::filesystem::path& file) {
  std::error_code ignored;
  return std::filesystem::exists(std::filesystem::symlink_status(file, ignored));
}

TSettingValue ToSetting(const std::filesystem::path& file, const std::string& key,
                        const nlohmann::json& value) {
  if (value.is_string())
    return value.get<std::string>();
  // Written by hand: a plain value means its text.
  if (value.is_boolean() || value.is_number())
    return value.dump();
  const bool isList =
      value.is_array() && std::all_of(value.begin(), value.end(),
                                      [](const nlohmann::json& item) { return item.is_string(); });
  if (!isList)
    Reject(file, "the setting \"" + key + "\" is neither a text nor a list of texts");
  return value.get<std::vector<std::string>>();
}

nlohmann::json Parse(const std::filesystem::path& file, std::string_view text) {
  try {
    return nlohmann::json::parse(text);
  } catch (const nlohmann::json::parse_error& error) {
    const std::size_t offset = std::min<std::size_t>(error.byte, text.size());
    const auto line =
        1 + std::count(text.begin(), text.begin() + static_cast<std::ptrdiff_t>(offset), '\n');
    Reject(file,
           "the settings file is damaged at byte " + std::to_string(error.byte) +
               "; mend it or remove it",
           static_cast<unsigned>(line));
  }
}

TSettingValues FromText(const std::filesystem::path& file, std::string_view text) {
  const nlohmann::json document = Parse(file, text);
  if (!document.is_object())
    Reject(file, "the settings file is damaged: it is no JSON object; mend it or remove it", 1);
  TSettingValues values;
  for (const auto& [key, value] : document.items())
    values.insert_or_assign(key, ToSetting(file, key, value));
  return values;
}

std::string ToText(const std::filesystem::path& file, const TSettingValues& values) {
  nlohmann::json document = nlohmann::json::object();
  for (const auto& [key, value] : values)
    std::visit([&, &name = key](const auto& content) { document[name] = content; }, value);
  try {
    return document.dump(2) + "\n";
  } catch (const nlohmann::json::type_error&) {
    Reject(file, "a setting is not UTF-8 text and cannot be kept");
  }
}

// Settings may name hosts and keys, so that the directory is the user's alone.
void MakeDirectory(const std::filesystem::path& file) {
  const std::filesystem::path directory = file.parent_path();
  std::error_code error;
  std::filesystem::create_directories(directory.parent_path(), error);
  if (::mkdir(directory.c_str(), 0700) != 0 && errno != EEXIST)
    throw TSaveError(file.string() + " was not written: its directory cannot be made: " +
                         SystemReason(errno) + "; no file was made",
                     file);
}

TSettingValues ChangePresent(const std::filesystem::path& file,
                             const std::function<void(TSettingValues&)>& change) {
  TFileLock lock(file);
  const TFileContent before = ReadWholeFile(file, LargestFile, FileKind);
  TSettingValues values = FromText(file, before.Text());
  change(values);
  const std::string text = ToText(file, values);
  SaveFile({.Target = file,
            .Content = std::array{std::string_view(text)},
            .Expected = before.Text(),
            .WithBackup = false,
            .Lock = &lock});
  return values;
}

// Nothing when another run made the file meanwhile.
std::optional<TSettingValues> ChangeAbsent(const std::filesystem::path& file,
                                           const std::function<void(TSettingValues&)>& change) {
  TSettingValues values;
  change(values);
  if (values.empty())
    return values;
  const std::string text = ToText(file, values);
  MakeDirectory(file);
  try {
    SaveFile({.Target = file,
              .Content = std::array{std::string_view(text)},
              .Expected = std::nullopt,
              .WithBackup = false,
              .NewFileMode = 0600});
  } catch (const TSaveError&) {
    if (IsThere(file))
      return std::nullopt;
    throw;
  }
  return values;
}

} // namespace

TSettingValues ReadSettingsFile(const std::filesystem::path& file) {
  if (file.empty() || !IsThere(file))
    return {};
  return FromText(file, ReadWholeFile(file, LargestFile, FileKind).Text());
}

TSettingValues ChangeSettingsFile(const std::filesystem::path& file,
                                  const std::function<void(TSettingValues&)>& change) {
  if (file.empty())
    throw TSaveError("the settings were not written: neither XDG_CONFIG_HOME nor HOME names a "
                     "directory; no file was made",
                     file);
  if (!IsThere(file)) {
    if (auto values = ChangeAbsent(file, change))
      return std::move(*values);
  }
  return ChangePresent(file, change);
}

} // namespace workbench
