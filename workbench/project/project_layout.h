// Which configurations and platforms a project names, and in which words.
#pragma once

#include "workbench/msbuild/msbuild_evaluation.h"
#include "workbench/project/build_configuration.h"

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

/// Who wrote the project, as far as it matters for reading it.
enum class TProjectDialect {
  Own,        ///< items BuildConfiguration and TargetPlatform
  MSBuildCpp, ///< items ProjectConfiguration, as MSBuild C++ projects have them
};

/// What a project says about its targets.
struct TProjectLayout {
  TProjectDialect Dialect = TProjectDialect::Own;
  std::vector<TConfigurationRecord> Configurations;
  std::vector<TProjectPlatform> Platforms; ///< never empty
  std::string ActiveConfiguration;         ///< never empty
  std::string ActivePlatform;              ///< never empty
};

/// Reads the layout from an evaluation without a target. `lastResort` is the platform of a project
/// that names none at all.
TProjectLayout ReadProjectLayout(TMSBuildEvaluation& evaluation, std::string_view lastResort);

/// Global properties under which a project is evaluated for a target.
TNamedTexts TargetProperties(TProjectDialect dialect, std::string_view configuration,
                             std::string_view platform);

/// What unset properties of the dialect count as for a target platform.
TNamedTexts DialectDefaults(TProjectDialect dialect, std::string_view platform);

/// The names between ";", blanks around them and empty ones dropped.
std::vector<std::string> SplitNames(std::string_view list);

} // namespace workbench
