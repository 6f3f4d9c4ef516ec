#include "workbench/desktop/dialogs/settings/settings_edit.h"

#include <exception>

namespace workbench {

std::string TSettingsEdit::Get(std::string_view key) const {
  const auto change = FChanges.find(key);
  return change == FChanges.end() ? FSettings.Get(key).value_or("") : change->second.value_or("");
}

void TSettingsEdit::Set(std::string_view key, const std::string& text) {
  const std::optional<std::string> wanted = text.empty() ? std::nullopt : std::optional(text);
  if (FSettings.Get(key) == wanted)
    FChanges.erase(std::string(key));
  else
    FChanges.insert_or_assign(std::string(key), wanted);
}

std::vector<std::pair<std::string, std::string>> TSettingsEdit::List() const {
  std::map<std::string, std::string> all;
  for (const auto& [key, text] : FSettings.List())
    all.emplace(key, text);
  for (const auto& [key, text] : FChanges) {
    if (text)
      all.insert_or_assign(key, *text);
    else
      all.erase(key);
  }
  return {all.begin(), all.end()};
}

std::vector<std::string> TSettingsEdit::Apply() {
  std::vector<std::string> problems;
  for (auto change = FChanges.begin(); change != FChanges.end();) {
    const auto& [key, text] = *change;
    try {
      if (text)
        FSettings.Set(key, *text);
      else
        FSettings.Unset(key);
      change = FChanges.erase(change);
    } catch (const std::exception& error) {
      problems.push_back(key + ": " + error.what());
      ++change;
    }
  }
  return problems;
}

} // namespace workbench
