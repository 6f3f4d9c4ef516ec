// Changes of the user's settings that wait to be written.
#pragma once

#include "workbench/settings/settings_store.h"

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// The settings as they will be: those on disk under the changes made so far.
class TSettingsEdit {
public:
  /// The settings must outlive the object.
  explicit TSettingsEdit(TSettings& settings) : FSettings(settings) {}

  /// Empty when unset.
  std::string Get(std::string_view key) const;
  /// An empty text unsets the key.
  void Set(std::string_view key, const std::string& text);
  void Unset(std::string_view key) { Set(key, {}); }
  /// All keys that will be set, with their texts, sorted by key.
  std::vector<std::pair<std::string, std::string>> List() const;
  bool HasChanges() const { return !FChanges.empty(); }

  /// Writes every change on its own. The reason for each that could not be written; those wait on.
  std::vector<std::string> Apply();

private:
  TSettings& FSettings;
  std::map<std::string, std::optional<std::string>, std::less<>> FChanges;
};

} // namespace workbench
