#include "workbench/cli/context/target.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "workbench/cli/context/name_hint.h"
#include "workbench/msbuild/environment.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/project/project_settings.h"

#include <algorithm>
#include <initializer_list>
#include <string_view>
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

std::vector<std::string> KnownConfigurations(const TOpenProject& project) {
  std::vector<std::string> names;
  for (const auto& configuration : project.Settings().Configurations())
    names.push_back(configuration->GetName());
  return names;
}

void CheckConfiguration(const TOpenProject& project, const std::string& configuration) {
  if (project.Settings().FindConfiguration(configuration))
    return;
  const std::vector<std::string> known = KnownConfigurations(project);
  throw TUsageError("the project has no configuration \"" + configuration + "\"; it has: " +
                    deployment::JoinDelimited(known, ", ") + HintAt(configuration, known));
}

void WarnUnlessSetUp(TCommandContext& context, const TOpenProject& project, const TTarget& target) {
  const auto warn = [&](const std::string& text) {
    context.Output.Warn({text, project.GivenFileName().string(), 0});
  };
  const TBuildConfiguration* configuration =
      project.Settings().FindConfiguration(target.Configuration);
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

// The environment variable that a property has this value from, when the project gives it none of
// its own; empty when there is no such variable. Projects ask for properties ignoring case.
std::string VariableWith(std::initializer_list<std::string_view> properties,
                         std::string_view value) {
  for (const auto& variable : ProcessEnvironment()) {
    for (const std::string_view property : properties) {
      if (variable.Text == value && deployment::SameText(variable.Name, property))
        return variable.Name;
    }
  }
  return {};
}

// A build server may have a variable of such a name for purposes of its own.
void CheckEnvironment(TCommandContext& context, const TOpenProject& project) {
  const TProjectSettings& settings = project.Settings();
  const auto note = [&](const std::string& variable, const std::string& what,
                        const std::string& value, bool isKnown, const std::string& option) {
    if (variable.empty())
      return;
    const std::string text =
        "the " + what + " \"" + value + "\" comes from the environment variable " + variable;
    if (!isKnown)
      throw TUsageError(text + ", and there is none of that name; name one with " + option);
    context.Output.Warn(
        {text + "; " + option + " takes another", project.GivenFileName().string(), 0});
  };
  if (context.Options.Configuration.empty()) {
    const std::string& active = settings.ActiveConfiguration();
    note(VariableWith({"Config", "Configuration"}, active), "configuration", active,
         settings.FindConfiguration(active) != nullptr, "--config");
  }
  if (context.Options.Platform.empty()) {
    const std::string& active = settings.ActivePlatform();
    std::string variable = VariableWith({"Platform"}, active);
    if (variable.empty())
      variable = VariableWith({"Platform"}, settings.BuildPlatformName(active));
    note(variable, "platform", active,
         IsKnownPlatform(context, nullptr, active) || settings.FindPlatform(active), "--platform");
  }
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

void CheckConfigurationOption(TCommandContext& context, const TOpenProject& project) {
  if (!context.Options.Configuration.empty())
    CheckConfiguration(project, context.Options.Configuration);
}

void CheckTargetOptions(TCommandContext& context, const TOpenProject* project) {
  CheckPlatformOption(context, project);
  if (project)
    CheckConfigurationOption(context, *project);
}

void WarnOfTarget(TCommandContext& context, const TOpenProject* project,
                  const std::string& reason) {
  CheckTargetOptions(context, project);
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
  CheckTargetOptions(context, &project);
  CheckEnvironment(context, project);
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
