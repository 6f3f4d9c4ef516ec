#include "workbench/settings/settings_store.h"

#include "package/common/convert.h"
#include "package/common/errors.h"
#include "workbench/files/user_directories.h"

#include <algorithm>

namespace workbench {
namespace {

constexpr std::size_t HistoryLength = 20;
constexpr std::string_view HistoryPrefix = "history.";

std::string KeyOf(std::string_view section, std::string_view key) {
  return std::string(section).append(".").append(key);
}

bool IsControl(char c) {
  return static_cast<unsigned char>(c) < ' ' || c == '\x7f';
}

void RequireKey(std::string_view key) {
  if (key.empty())
    throw deployment::TInputError("the name of a setting is empty");
  if (std::any_of(key.begin(), key.end(), IsControl))
    throw deployment::TInputError("the name of a setting has a control character");
  if (key.starts_with(HistoryPrefix))
    throw deployment::TInputError("the setting \"" + std::string(key) +
                                  "\" is a history, which grows by what is entered");
}

} // namespace

std::filesystem::path UserSettingsFile() {
  const std::filesystem::path directory = UserConfigDirectory();
  return directory.empty() ? directory : directory / "settings.json";
}

TSettings::TSettings(std::filesystem::path file, TWarningHandler warn)
    : FFile(std::move(file)), FWarn(std::move(warn)), FValues(ReadSettingsFile(FFile)) {}

void TSettings::ReadAnew() {
  FValues = ReadSettingsFile(FFile);
}

std::optional<std::string> TSettings::Get(std::string_view key) const {
  const auto found = FValues.find(key);
  const auto* text = found == FValues.end() ? nullptr : std::get_if<std::string>(&found->second);
  return text ? std::optional(*text) : std::nullopt;
}

std::vector<std::pair<std::string, std::string>> TSettings::List() const {
  std::vector<std::pair<std::string, std::string>> list;
  for (const auto& [key, value] : FValues) {
    if (const auto* text = std::get_if<std::string>(&value))
      list.emplace_back(key, *text);
  }
  return list;
}

void TSettings::Set(std::string_view key, std::string_view value) {
  RequireKey(key);
  Change([&](TSettingValues& values) {
    values.insert_or_assign(std::string(key), std::string(value));
  });
}

bool TSettings::Unset(std::string_view key) {
  bool wasSet = false;
  Change([&](TSettingValues& values) {
    const auto found = values.find(key);
    wasSet = found != values.end();
    if (wasSet)
      values.erase(found);
  });
  return wasSet;
}

bool TSettings::ReadBool(std::string_view section, std::string_view key, bool byDefault) const {
  const std::string name = KeyOf(section, key);
  const std::optional<std::string> text = Get(name);
  if (!text)
    return byDefault;
  const std::optional<bool> value = deployment::TextToBoolean(*text);
  if (!value && FWarn && FWarned.insert(name).second)
    FWarn({"the setting \"" + name + "\" is \"" + *text +
               "\", which is neither true nor false; it counts as " +
               std::string(deployment::BooleanToText(byDefault)),
           FFile.string()});
  return value.value_or(byDefault);
}

void TSettings::WriteBool(std::string_view section, std::string_view key, bool value) {
  Set(KeyOf(section, key), deployment::BooleanToText(value));
}

std::vector<std::string> TSettings::ReadHistory(std::string_view name) const {
  const auto found = FValues.find(std::string(HistoryPrefix).append(name));
  const auto* texts =
      found == FValues.end() ? nullptr : std::get_if<std::vector<std::string>>(&found->second);
  return texts ? *texts : std::vector<std::string>();
}

void TSettings::AddToHistory(std::string_view name, std::string_view text) {
  Change([&](TSettingValues& values) {
    TSettingValue& value = values[std::string(HistoryPrefix).append(name)];
    const auto* present = std::get_if<std::vector<std::string>>(&value);
    std::vector<std::string> texts = present ? *present : std::vector<std::string>();
    std::erase(texts, text);
    texts.insert(texts.begin(), std::string(text));
    texts.resize(std::min(texts.size(), HistoryLength));
    value = std::move(texts);
  });
}

void TSettings::Change(const std::function<void(TSettingValues&)>& change) {
  FValues = ChangeSettingsFile(FFile, change);
}

} // namespace workbench
