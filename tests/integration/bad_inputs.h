// Damaged and hostile files of every kind, and what is said of each.
#pragma once

#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace integration {

/// One of them. "%D" stands for the directory of the test, in contents and in the message.
struct TDamage {
  std::string Name;
  std::vector<std::pair<std::string, std::string>> Files; ///< name and content
  std::vector<std::string> Command;
  int Status;
  std::string Message; ///< part of what is said
};

inline void PrintTo(const TDamage& damage, std::ostream* stream) {
  *stream << damage.Name;
}
inline std::string NameOfDamage(const testing::TestParamInfo<TDamage>& info) {
  return info.param.Name;
}

/// Where the user's own files stand.
inline constexpr const char* SettingsName = "home/.config/deployment-manager/settings.json";
inline constexpr const char* ProfilesName = "home/.config/deployment-manager/profiles.json";
inline constexpr const char* UserTableName = "home/.config/deployment-manager/platforms.xml";

/// Writes the files and runs the command: it ends with its status and its sentence, prints no
/// result when it could not read something, and every file is what it was.
void ExpectToldAndLeftAlone(const TDamage& damage);

/// A project "p.vproj" with this below its properties.
std::string ProjectHolding(std::string_view text);
/// The same with a list: these entries, and the output of the project switched off.
std::string ProjectListing(std::string_view entries);
/// An entry of such a list, for Win32; `values` are elements of its platform, `more` attributes.
std::string DeployedFile(const std::string& name, const std::string& values,
                         const std::string& more = {});

} // namespace integration
