#include "workbench/settings/known_settings.h"

#include "package/common/convert.h"
#include "workbench/settings/consent_texts.h"
#include "workbench/settings/flag_setting.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

// What may stand as a value.
enum class TValueKind { Text, Boolean, Number, Platform };

// A key is its parts joined; a name of the user's own stands between them.
struct TKnownSetting {
  std::string_view Before;
  std::string_view Placeholder; ///< "PLATFORM", "NAME", "PROJECT", or empty for a key that is fixed
  std::string_view After = {};
  TValueKind Value = TValueKind::Text;
};

constexpr std::string_view PlatformPlaceholder = "PLATFORM";
constexpr std::string_view ProjectPlaceholder = "PROJECT";

constexpr std::array<TKnownSetting, 15> Settings{{
    {"library-path.", PlatformPlaceholder},
    {"toolchain-path.", PlatformPlaceholder},
    {"toolchain-osx-directory", ""},
    {"sdk.", "NAME", ".platform", TValueKind::Platform},
    {"sdk.", "NAME", ".ndk-base-path"},
    {"sdk.", "NAME", ".debugger-server"},
    {"sdk-default.", PlatformPlaceholder},
    {"product-name", ""},
    {"language", ""},
    {"DeploymentManager.ShowFeaturedFormAuto", "", "", TValueKind::Boolean},
    {DeployUnaskedSetting, "", "", TValueKind::Boolean},
    {"undo-runs", "", "", TValueKind::Number},
    {"undo-bytes", "", "", TValueKind::Number},
    {AllowedCommandsPrefix, ProjectPlaceholder},
    {AllowedSourcesPrefix, ProjectPlaceholder},
}};

bool IsIn(const std::vector<std::string>& names, std::string_view name) {
  return std::ranges::find(names, name) != names.end();
}

// The part in place of the placeholder; nothing when the key has another form.
std::optional<std::string_view> NameIn(const TKnownSetting& setting, std::string_view key) {
  if (setting.Placeholder.empty())
    return key == setting.Before ? std::optional(std::string_view()) : std::nullopt;
  if (key.size() <= setting.Before.size() + setting.After.size() ||
      !key.starts_with(setting.Before) || !key.ends_with(setting.After))
    return std::nullopt;
  return key.substr(setting.Before.size(),
                    key.size() - setting.Before.size() - setting.After.size());
}

const TKnownSetting* Find(std::string_view key) {
  const auto found = std::ranges::find_if(
      Settings, [&](const TKnownSetting& each) { return NameIn(each, key).has_value(); });
  return found == Settings.end() ? nullptr : &*found;
}

std::string NoPlatform(std::string_view name) {
  return "there is no platform \"" + std::string(name) + "\"";
}

} // namespace

std::optional<std::string> ProblemOfKey(std::string_view key,
                                        const std::vector<std::string>& platforms) {
  const TKnownSetting* setting = Find(key);
  if (!setting)
    return "there is no setting \"" + std::string(key) + "\"";
  if (setting->Placeholder == PlatformPlaceholder && !IsIn(platforms, *NameIn(*setting, key)))
    return NoPlatform(*NameIn(*setting, key)) + " for the setting \"" + std::string(key) + "\"";
  return std::nullopt;
}

std::optional<std::string> ProblemOfValue(std::string_view key, std::string_view value,
                                          const std::vector<std::string>& platforms) {
  const TKnownSetting* setting = Find(key);
  const std::string name = "the setting \"" + std::string(key) + "\" ";
  switch (setting ? setting->Value : TValueKind::Text) {
  case TValueKind::Boolean:
    if (!deployment::TextToBoolean(value))
      return name + "is true or false, not \"" + std::string(value) + "\"";
    break;
  case TValueKind::Number:
    if (value.empty() || value.size() > 15 ||
        value.find_first_not_of("0123456789") != std::string_view::npos)
      return name + "is a whole number, not \"" + std::string(value) + "\"";
    break;
  case TValueKind::Platform:
    if (!IsIn(platforms, value))
      return NoPlatform(value);
    break;
  case TValueKind::Text:
    break;
  }
  return std::nullopt;
}

std::vector<std::string> KnownSettings() {
  std::vector<std::string> names;
  for (const TKnownSetting& setting : Settings) {
    // What a person said yes to is written by the question alone.
    if (setting.Placeholder != ProjectPlaceholder)
      names.push_back(
          std::string(setting.Before).append(setting.Placeholder).append(setting.After));
  }
  return names;
}

std::vector<std::string> SettingNames(const std::vector<std::string>& platforms) {
  std::vector<std::string> names;
  for (const TKnownSetting& setting : Settings) {
    if (setting.Placeholder.empty())
      names.emplace_back(setting.Before);
    if (setting.Placeholder != PlatformPlaceholder)
      continue;
    for (const std::string& platform : platforms)
      names.push_back(std::string(setting.Before) + platform);
  }
  return names;
}

} // namespace workbench
