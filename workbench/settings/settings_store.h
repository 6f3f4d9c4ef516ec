// The user's settings: for the "settings" command, and as the package's store.
#pragma once

#include "package/host/api/envoptions.h"
#include "workbench/settings/settings_file.h"
#include "workbench/text/warning.h"

#include <filesystem>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace workbench {

/// Hears of a setting that was not understood, once for each.
using TWarningHandler = std::function<void(const TWarning&)>;

/// Where the user's settings live; empty when the user has no home directory.
std::filesystem::path UserSettingsFile();

/// The settings of one file, read when this object is made. Every change reads the file anew under
/// a lock and writes it at once, so that runs side by side do not lose each other's changes.
class TSettings : public deployment::ISettingsStore {
public:
  /// An absent file is one without settings. Throws TInputError when the file is damaged; it is
  /// never overwritten then.
  explicit TSettings(std::filesystem::path file, TWarningHandler warn = {});

  const std::filesystem::path& File() const { return FFile; }

  /// Takes over what other programs wrote. Throws TInputError when the file is damaged; what was
  /// known stays then.
  void ReadAnew();

  /// The text under a key such as "library-path.Win32"; nothing when unset.
  std::optional<std::string> Get(std::string_view key) const;
  /// All keys with their texts, sorted by key. Histories are not among them.
  std::vector<std::pair<std::string, std::string>> List() const;
  /// Throws TInputError for a key that is empty or has control characters, and TSaveError.
  void Set(std::string_view key, std::string_view value);
  /// False when the key was not set. Throws TSaveError.
  bool Unset(std::string_view key);

  /// A text that is no Boolean counts as unset and is warned of.
  bool ReadBool(std::string_view section, std::string_view key, bool byDefault) const override;
  /// Throws as Set does.
  void WriteBool(std::string_view section, std::string_view key, bool value) override;
  std::vector<std::string> ReadHistory(std::string_view name) const override;
  /// A text that is there already moves to the front. Throws as Set does.
  void AddToHistory(std::string_view name, std::string_view text) override;

private:
  void Change(const std::function<void(TSettingValues&)>& change);

  std::filesystem::path FFile;
  TWarningHandler FWarn;
  TSettingValues FValues;
  mutable std::set<std::string, std::less<>> FWarned;
};

} // namespace workbench
