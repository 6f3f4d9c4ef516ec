// Host unit Envoptions: the user's settings.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// The settings store. Implemented by the host, good as long as it runs.
class ISettingsStore {
public:
  virtual ~ISettingsStore() = default;
  virtual bool ReadBool(std::string_view section, std::string_view key, bool byDefault) const = 0;
  virtual void WriteBool(std::string_view section, std::string_view key, bool value) = 0;
  /// Texts that the user entered under a history name, the newest first.
  virtual std::vector<std::string> ReadHistory(std::string_view name) const = 0;
  virtual void AddToHistory(std::string_view name, std::string_view text) = 0;
};

} // namespace deployment
