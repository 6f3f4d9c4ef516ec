// What a yes of the user is kept as: a list of texts under a key of the settings.
#pragma once

#include "workbench/settings/settings_store.h"

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Begins the keys of consents to commands; the project's path and the place follow.
inline constexpr std::string_view AllowedCommandsPrefix = "allowed-commands.";
/// Begins the keys of consents to files beyond the project's tree; the project's path follows.
inline constexpr std::string_view AllowedSourcesPrefix = "allowed-sources.";

/// The texts under a key; none when it is not set. Throws TInputError, with the settings file, for
/// one that was damaged by hand.
std::vector<std::string> ConsentTexts(const TSettings& settings, const std::string& key);
/// The texts of a setting's value. Throws TInputError.
std::vector<std::string> ConsentTextsOf(const std::string& value);
/// The value of a setting for these texts.
std::string TextOfConsent(const std::vector<std::string>& texts);

} // namespace workbench
