#include "workbench/settings/command_consent.h"

#include "package/common/errors.h"
#include "workbench/json/json.h"

#include <string_view>

namespace workbench {
namespace {

constexpr std::string_view Prefix = "allowed-commands.";

constexpr std::string_view Separator = " > ";

std::string KeyOf(const std::filesystem::path& project, const std::string& place) {
  return std::string(Prefix) + std::filesystem::weakly_canonical(project).string() +
         std::string(Separator) + place;
}

std::string TextOf(const std::vector<std::string>& commands) {
  return JsonText(commands, -1);
}

std::vector<std::string> CommandsOf(const std::string& text) {
  return ParseJson(text).AsTexts();
}

std::vector<std::string> CommandsOrNone(const std::string& text) {
  try {
    return CommandsOf(text);
  } catch (const deployment::TInputError&) {
    return {};
  }
}

} // namespace

bool IsAllowed(const TSettings& settings, const std::filesystem::path& project,
               const std::string& place, const std::vector<std::string>& commands) {
  const std::string key = KeyOf(project, place);
  const std::optional<std::string> text = settings.Get(key);
  try {
    return text && CommandsOf(*text) == commands;
  } catch (const deployment::TInputError& error) {
    throw deployment::TInputError("the setting \"" + key + "\" is damaged: " + error.what() +
                                      "; \"settings unset\" removes it",
                                  {settings.File().string(), 0});
  }
}

void Allow(TSettings& settings, const std::filesystem::path& project, const std::string& place,
           const std::vector<std::string>& commands) {
  settings.Set(KeyOf(project, place), TextOf(commands));
}

std::vector<TCommandConsent> ListConsents(const TSettings& settings) {
  std::vector<TCommandConsent> consents;
  for (const auto& [key, text] : settings.List()) {
    if (!key.starts_with(Prefix))
      continue;
    const std::string name = key.substr(Prefix.size());
    const std::size_t end = name.rfind(Separator);
    const bool hasPlace = end != std::string::npos;
    consents.push_back({key, name.substr(0, end),
                        hasPlace ? name.substr(end + Separator.size()) : std::string(),
                        CommandsOrNone(text)});
  }
  return consents;
}

} // namespace workbench
