#include "workbench/settings/settings_file.h"

#include "package/common/errors.h"
#include "workbench/json/private_json_file.h"

namespace workbench {
namespace {

TPrivateJsonFile FileAt(const std::filesystem::path& file) {
  return {file, "settings"};
}

TSettingValue ToSetting(const std::string& key, const TJson& value) {
  if (value.IsText())
    return value.AsText();
  if (value.IsArray())
    return value.AsTexts(key);
  if (value.IsNull() || value.IsObject())
    throw deployment::TInputError("\"" + key + "\" is neither a text nor a list of texts");
  // Written by hand: a plain value means its text.
  return JsonText(value, -1);
}

TSettingValues FromJson(const TJson& document) {
  TSettingValues values;
  for (const auto& [key, value] : document.AsObject())
    values.insert_or_assign(key, ToSetting(key, value));
  return values;
}

TJson ToJson(const TSettingValues& values) {
  TJson document = TJson::Object();
  for (const auto& [key, value] : values)
    std::visit([&, &name = key](const auto& content) { document.Add(name, content); }, value);
  return document;
}

} // namespace

TSettingValues ReadSettingsFile(const std::filesystem::path& file) {
  TSettingValues values;
  FileAt(file).Read([&](const TJson& document) { values = FromJson(document); });
  return values;
}

TSettingValues ChangeSettingsFile(const std::filesystem::path& file,
                                  const std::function<void(TSettingValues&)>& change) {
  TSettingValues before;
  TSettingValues after;
  FileAt(file).Change([&](const TJson& document) { before = FromJson(document); },
                      [&]() -> std::optional<TJson> {
                        after = before;
                        change(after);
                        if (after.empty() && before.empty())
                          return std::nullopt;
                        return ToJson(after);
                      });
  return after;
}

} // namespace workbench
