#include "workbench/settings/command_consent.h"

#include <nlohmann/json.hpp>

#include <string_view>

namespace workbench {
namespace {

using TJsonValue = nlohmann::ordered_json;

constexpr std::string_view Prefix = "allowed-commands.";

std::string KeyOf(const std::filesystem::path& project) {
  return std::string(Prefix) + std::filesystem::weakly_canonical(project).string();
}

std::string TextOf(const std::vector<std::string>& commands) {
  return TJsonValue(commands).dump(-1, ' ', false, TJsonValue::error_handler_t::replace);
}

std::vector<std::string> CommandsOf(const std::string& text) {
  const TJsonValue value = TJsonValue::parse(text, nullptr, /*allow_exceptions=*/false);
  std::vector<std::string> commands;
  for (const TJsonValue& command : value) {
    if (!value.is_array() || !command.is_string())
      return {};
    commands.push_back(command.get<std::string>());
  }
  return commands;
}

} // namespace

bool IsAllowed(const TSettings& settings, const std::filesystem::path& project,
               const std::vector<std::string>& commands) {
  return settings.Get(KeyOf(project)) == TextOf(commands);
}

void Allow(TSettings& settings, const std::filesystem::path& project,
           const std::vector<std::string>& commands) {
  settings.Set(KeyOf(project), TextOf(commands));
}

std::vector<TCommandConsent> ListConsents(const TSettings& settings) {
  std::vector<TCommandConsent> consents;
  for (const auto& [key, text] : settings.List()) {
    if (key.starts_with(Prefix))
      consents.push_back({key, key.substr(Prefix.size()), CommandsOf(text)});
  }
  return consents;
}

} // namespace workbench
