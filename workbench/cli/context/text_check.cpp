#include "workbench/cli/context/text_check.h"

#include "package/common/errors.h"
#include "workbench/cli/context/command.h"
#include "workbench/msbuild/msbuild_condition.h"
#include "workbench/msbuild/values/msbuild_escapes.h"
#include "workbench/project/project_settings.h"
#include "workbench/project/project_text.h"
#include "workbench/services/variable_references.h"
#include "workbench/text/storable_text.h"

#include <optional>

namespace workbench {
namespace {

// A target as the project evaluates it.
class TTargetConditions final : public IConditionContext {
public:
  TTargetConditions(const TProjectSettings& settings, std::string configuration,
                    std::string platform)
      : FSettings(settings), FConfiguration(std::move(configuration)),
        FPlatform(std::move(platform)) {}

  // A property function is not carried out here: its value counts as not known.
  TExpanded Expand(std::string_view text) const override {
    TExpanded expanded;
    const auto value = [&](std::string_view name) -> std::optional<std::string> {
      constexpr std::string_view FunctionMarks = "[.(";
      if (name.find_first_of(FunctionMarks) == std::string_view::npos)
        return FSettings.Option(FConfiguration, FPlatform, name);
      expanded.Unknown = std::make_shared<TUnknownValue>();
      return std::nullopt;
    };
    expanded.Text = UnescapeMSBuild(ReplaceVariables(text, value));
    return expanded;
  }
  // Which file is there says nothing about the condition being valid.
  bool Exists(std::string_view /*path*/) const override { return false; }

private:
  const TProjectSettings& FSettings;
  const std::string FConfiguration;
  const std::string FPlatform;
};

} // namespace

void CheckStorable(const std::string& what, std::string_view text) {
  if (!IsStorable(text))
    throw TUsageError(what + " \"" + std::string(text) +
                      "\" holds characters that a project cannot hold");
}

void CheckName(const std::string& what, const std::string& name) {
  if (!IsProjectName(name))
    throw TUsageError(what + " \"" + name + "\" holds characters that a project cannot hold there");
}

void CheckCondition(const std::string& condition, const TOpenProject& project,
                    const deployment::IProjectDeploymentFile& file) {
  for (const std::string& platform : file.GetPlatforms()) {
    const TTargetConditions target(project.Settings(), file.GetConfiguration(), platform);
    try {
      EvaluateCondition(condition, target, {});
    } catch (const deployment::TInputError& error) {
      throw TUsageError("--condition: " + std::string(error.what()));
    }
  }
}

} // namespace workbench
