#include "workbench/cli/context/target.h"

#include "package/common/delimited_list.h"
#include "workbench/cli/context/name_hint.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/project/project_settings.h"

#include <algorithm>
#include <vector>

namespace workbench {
namespace {

std::vector<std::string> KnownPlatforms(TCommandContext& context, const TOpenProject* project) {
  std::vector<std::string> names = context.Session.Platforms().Names();
  if (!project)
    return names;
  for (const TProjectPlatform& platform : project->Settings().Platforms()) {
    if (std::find(names.begin(), names.end(), platform.Name) == names.end())
      names.push_back(platform.Name);
  }
  return names;
}

void WarnUnlessSetUp(TCommandContext& context, const TOpenProject& project, const TTarget& target) {
  const TProjectSettings& settings = project.Settings();
  const auto warn = [&](const std::string& text) {
    context.Output.Warn({text, project.GivenFileName().string(), 0});
  };
  const TBuildConfiguration* configuration = settings.FindConfiguration(target.Configuration);
  if (!configuration) {
    warn("the project has no configuration \"" + target.Configuration + "\"");
    return;
  }
  if (target.AllPlatforms)
    return;
  const std::vector<std::string> platforms = configuration->GetPlatforms();
  if (std::find(platforms.begin(), platforms.end(), target.Platform) == platforms.end())
    warn("the project has not set up configuration \"" + target.Configuration +
         "\" for platform \"" + target.Platform + "\"");
}

} // namespace

bool IsKnownPlatform(TCommandContext& context, const TOpenProject* project,
                     const std::string& platform) {
  return context.Session.Platforms().FindPlatform(platform) ||
         (project && project->Settings().FindPlatform(platform));
}

void CheckPlatform(TCommandContext& context, const TOpenProject* project,
                   const std::string& platform) {
  if (IsKnownPlatform(context, project, platform))
    return;
  const std::vector<std::string> known = KnownPlatforms(context, project);
  throw TUsageError("there is no platform \"" + platform + "\"; known are: " +
                    deployment::JoinDelimited(known, ", ") + HintAt(platform, known));
}

void CheckPlatformOption(TCommandContext& context, const TOpenProject* project) {
  const std::string platform = PlatformOption(context, project);
  if (!platform.empty() && platform != AllPlatformsArgument)
    CheckPlatform(context, project, platform);
}

void WarnOfTarget(TCommandContext& context, const TOpenProject* project,
                  const std::string& reason) {
  CheckPlatformOption(context, project);
  if (!context.Options.Configuration.empty() || !context.Options.Platform.empty())
    context.Output.Warn({reason + "; --config and --platform change nothing", {}, 0});
}

void WarnOfConfiguration(TCommandContext& context, const std::string& reason) {
  if (!context.Options.Configuration.empty())
    context.Output.Warn({reason + "; --config changes nothing", {}, 0});
}

std::string PlatformOption(TCommandContext& context, const TOpenProject* project) {
  const std::string& platform = context.Options.Platform;
  if (!project || platform.empty() || platform == AllPlatformsArgument ||
      IsKnownPlatform(context, project, platform))
    return platform;
  for (const std::string& known : KnownPlatforms(context, project)) {
    if (project->Settings().BuildPlatformName(known) == platform)
      return known;
  }
  return platform;
}

void WarnOfNothingBuilt(TCommandContext& context, TOpenProject& project, const TTarget& target) {
  if (target.AllPlatforms || target.Configuration == deployment::BaseConfiguration)
    return;
  const std::string nothing =
      project.Project().GetNothingToDeploy(target.Configuration, target.Platform);
  if (!nothing.empty())
    context.Output.Warn({nothing, project.GivenFileName().string(), 0});
}

TTarget ChooseTarget(TCommandContext& context, const TOpenProject& project) {
  CheckPlatformOption(context, &project);
  const TCommonOptions& options = context.Options;
  TTarget target;
  target.Configuration = options.Configuration.empty() ? project.Settings().ActiveConfiguration()
                                                       : options.Configuration;
  target.AllPlatforms = options.Platform == AllPlatformsArgument;
  if (!target.AllPlatforms)
    target.Platform = options.Platform.empty() ? project.Settings().ActivePlatform()
                                               : PlatformOption(context, &project);
  WarnUnlessSetUp(context, project, target);
  return target;
}

} // namespace workbench
