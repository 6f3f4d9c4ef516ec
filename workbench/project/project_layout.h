// Which configurations and platforms a project names, and in which words.
#pragma once

#include "workbench/msbuild/msbuild_evaluation.h"
#include "workbench/project/build_configuration.h"

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// A platform that a project is set up for.
struct TProjectPlatform {
  std::string Name;
  std::string Profile; ///< name of the assigned remote profile; empty for none
  std::string SDK;     ///< name of the assigned kit; empty for none
};

/// Properties that a project is given: those of the command line, and the environment.
struct TOutsideProperties {
  TNamedTexts Environment;
  TNamedTexts Given;

  /// The value that was given, else that of the environment, names compared ignoring case; nothing
  /// when neither has it.
  std::optional<std::string> Find(std::string_view name) const;
};

/// What a project says about its targets.
struct TProjectLayout {
  std::vector<TConfigurationRecord> Configurations;
  std::vector<TProjectPlatform> Platforms; ///< never empty
  std::string ActiveConfiguration;         ///< never empty
  std::string ActivePlatform;              ///< never empty
};

/// Reads the layout of a project of this system from an evaluation without a target. `lastResort`
/// is the platform of a project that names none at all.
TProjectLayout ReadProjectLayout(TMSBuildEvaluation& evaluation, std::string_view lastResort);

/// The platforms that the items TargetPlatform name.
std::vector<TProjectPlatform> ReadTargetPlatforms(const std::vector<TProjectItem>& items);

/// Adds the configurations' platforms to a layout whose project has no list of its own, or else
/// `active`.
void CollectPlatforms(TProjectLayout& layout, const std::string& active);

/// Says that an item is left out because something about it is not known.
TEvaluationNote UnknownItemNote(const TProjectItem& item, const TUnknownValue& unknown);

/// The names between ";", blanks around them and empty ones dropped.
std::vector<std::string> SplitNames(std::string_view list);

} // namespace workbench
