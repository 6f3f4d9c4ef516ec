#include "workbench/settings/command_consent.h"

#include <nlohmann/json.hpp>

#include <string_view>

namespace workbench {
namespace {

using TJsonValue = nlohmann::ordered_json;

constexpr std::string_view Prefix = "allowed-commands.";

std::string FullName(const std::filesystem::path& project) {
  return std::filesystem::weakly_canonical(project).string();
}

std::string KeyOf(const std::filesystem::path& project, const std::string& place) {
  return std::string(Prefix) + FullName(project) + " > " + place;
}

std::string TextOf(const std::filesystem::path& project, const std::string& place,
                   const std::vector<std::string>& commands) {
  return TJsonValue{{"project", FullName(project)}, {"place", place}, {"commands", commands}}.dump(
      -1, ' ', false, TJsonValue::error_handler_t::replace);
}

// A text that was damaged by hand is about the project of its key, and allows nothing.
TCommandConsent ConsentOf(const std::string& key, const std::string& text) {
  try {
    const TJsonValue value = TJsonValue::parse(text);
    return {key, value.at("project").get<std::string>(), value.at("place").get<std::string>(),
            value.at("commands").get<std::vector<std::string>>()};
  } catch (const TJsonValue::exception&) {
    return {key, key.substr(Prefix.size()), {}, {}};
  }
}

} // namespace

bool IsAllowed(const TSettings& settings, const std::filesystem::path& project,
               const std::string& place, const std::vector<std::string>& commands) {
  return settings.Get(KeyOf(project, place)) == TextOf(project, place, commands);
}

void Allow(TSettings& settings, const std::filesystem::path& project, const std::string& place,
           const std::vector<std::string>& commands) {
  settings.Set(KeyOf(project, place), TextOf(project, place, commands));
}

std::vector<TCommandConsent> ListConsents(const TSettings& settings) {
  std::vector<TCommandConsent> consents;
  for (const auto& [key, text] : settings.List()) {
    if (key.starts_with(Prefix))
      consents.push_back(ConsentOf(key, text));
  }
  return consents;
}

} // namespace workbench
