// The commands of projects that the user said yes to. They stand among the user's settings, so that
// no project can bring a yes of its own.
#pragma once

#include "workbench/settings/settings_store.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// A yes, as it is kept: to commands at a place, or to files beyond the project's tree.
struct TConsent {
  std::string Key;                     ///< of the setting
  std::string Project;                 ///< full path of the project file
  std::string Place = {};              ///< where the project goes when commands run; else empty
  std::vector<std::string> Texts = {}; ///< the commands, or the full paths of the files
};

/// True when the user said yes before to exactly these commands, in this order, of the project,
/// when it is deployed to that place. Throws TInputError, with the settings file, when what is kept
/// of them cannot be understood.
bool IsAllowed(const TSettings& settings, const std::filesystem::path& project,
               const std::string& place, const std::vector<std::string>& commands);
/// Keeps the user's yes; it takes the place of an earlier one for the same project and place.
/// Throws as TSettings::Set does.
void Allow(TSettings& settings, const std::filesystem::path& project, const std::string& place,
           const std::vector<std::string>& commands);
/// Every yes that is kept, by key. One that was damaged by hand has no texts.
std::vector<TConsent> ListConsents(const TSettings& settings);

} // namespace workbench
