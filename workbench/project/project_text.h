// The text of a new project file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// What a new project is made of. Names hold no characters that XML or MSBuild would take for
/// their own.
struct TProjectValues {
  std::string ApplicationType = "Application";
  std::string Personality = "Ardent.Personality";
  std::string Framework = "Form";
  std::vector<std::string> Platforms;
  std::vector<std::string> Configurations; ///< besides "Base"
  std::string ActivePlatform;
  std::string ActiveConfiguration;
  std::string MoreItems; ///< a group of items as markup; empty for none
};

/// True for what can name a configuration and the like: names stand in conditions and in ";"-lists
/// of projects.
bool IsProjectName(std::string_view name);

/// A project that any MSBuild engine evaluates. Its section is made when it is created.
std::string ProjectText(const TProjectValues& values);

} // namespace workbench
