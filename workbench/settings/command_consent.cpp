#include "workbench/settings/command_consent.h"

#include "package/common/errors.h"
#include "workbench/settings/consent_texts.h"

#include <string_view>

namespace workbench {
namespace {

constexpr std::string_view Separator = " > ";

std::string KeyOf(const std::filesystem::path& project, const std::string& place) {
  return std::string(AllowedCommandsPrefix) + std::filesystem::weakly_canonical(project).string() +
         std::string(Separator) + place;
}

std::vector<std::string> TextsOrNone(const std::string& value) {
  try {
    return ConsentTextsOf(value);
  } catch (const deployment::TInputError&) {
    return {};
  }
}

} // namespace

bool IsAllowed(const TSettings& settings, const std::filesystem::path& project,
               const std::string& place, const std::vector<std::string>& commands) {
  const std::string key = KeyOf(project, place);
  return settings.Get(key) && ConsentTexts(settings, key) == commands;
}

void Allow(TSettings& settings, const std::filesystem::path& project, const std::string& place,
           const std::vector<std::string>& commands) {
  settings.Set(KeyOf(project, place), TextOfConsent(commands));
}

std::vector<TConsent> ListConsents(const TSettings& settings) {
  std::vector<TConsent> consents;
  for (const auto& [key, value] : settings.List()) {
    if (key.starts_with(AllowedSourcesPrefix))
      consents.push_back({.Key = key,
                          .Project = key.substr(AllowedSourcesPrefix.size()),
                          .Texts = TextsOrNone(value)});
    if (!key.starts_with(AllowedCommandsPrefix))
      continue;
    const std::string name = key.substr(AllowedCommandsPrefix.size());
    const std::size_t end = name.rfind(Separator);
    const bool hasPlace = end != std::string::npos;
    consents.push_back({key, name.substr(0, end),
                        hasPlace ? name.substr(end + Separator.size()) : std::string(),
                        TextsOrNone(value)});
  }
  return consents;
}

} // namespace workbench
