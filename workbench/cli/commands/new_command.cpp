// deploymgr new: writes a project.
#include "package/common/application_type.h"
#include "package/common/delimited_list.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/commands/new_from_build.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/name_hint.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/context/text_check.h"
#include "workbench/files/save_error.h"
#include "workbench/project/project_text.h"

#include <algorithm>

namespace workbench {
namespace {

std::vector<std::string> NamesIn(const std::string& option, const std::string& list) {
  std::vector<std::string> names;
  for (const std::string_view item : deployment::SplitDelimited(list, ',')) {
    const std::string name(item);
    if (name.empty())
      throw TUsageError(option + " holds an empty name");
    if (std::find(names.begin(), names.end(), name) != names.end())
      throw TUsageError(std::string(option).append(" names \"").append(name).append("\" twice"));
    names.push_back(name);
  }
  if (names.empty())
    throw TUsageError(option + " holds no name");
  return names;
}

class TNewCommand final : public ICommand {
public:
  std::string Name() const override { return "new"; }
  std::string Summary() const override { return "Write a new project"; }

  void AddOptions(IOptions& options) override {
    const auto notFromBuild = [this](IOption& option) {
      FNotFromBuild.push_back(&option.ShowDefault());
    };
    AddProjectArgument(options, FProject);
    notFromBuild(options.Text("--type", FValues.ApplicationType, "Kind of program"));
    notFromBuild(options.Text("--personality", FValues.Personality, "Language personality"));
    notFromBuild(options.Text("--framework", FValues.Framework, "Framework of the user interface"));
    notFromBuild(options.Text("--platforms", FPlatforms, "Target platforms, with commas"));
    notFromBuild(
        options.Text("--configs", FConfigurations, "Configurations besides Base, with commas"));
    FFromBuild = &options
                      .Text("--from-build", FBuild,
                            "Build directory of CMake or Meson: its install rules make the list of "
                            "platform -p")
                      .ValueName("DIR");
    options
        .Texts("--component", FComponents,
               "Take the install rules of this component (repeatable); without it, of all")
        .ValueName("NAME");
    options.Flag("--dry-run", FDryRun, "Say what would be written; write nothing");
    options.Flag("--yes", FYes, "Answer every question with yes (a new project asks none)");
  }

  int Run(TCommandContext& context) override {
    if (FProject.empty())
      throw TUsageError("the name of the project file is empty");
    CheckStorable("the project file", FProject);
    // Stored paths take it for a delimiter; such a project could not be opened.
    if (FProject.find('\\') != std::string::npos)
      throw TUsageError("the project file \"" + FProject + "\" holds a \"\\\"");
    std::filesystem::path file = FProject;
    if (!file.has_extension())
      file += ".vproj";
    context.Session.CheckInstallation();
    if (FFromBuild->IsGiven()) {
      NewFromBuild(context, file, BuildSource(context), FDryRun);
      return exit_status::Done;
    }
    if (!FComponents.empty())
      throw TUsageError("--component goes with --from-build");
    ReadNames(context);
    if (FDryRun && std::filesystem::exists(file))
      throw TSaveError("\"" + file.string() + "\" exists already; nothing would be written", file);
    if (!FDryRun)
      context.Session.Create(file, ProjectText(FValues));
    if (context.Output.IsJson())
      context.Output.Document({{"project", file.string()},
                               {"changed", true},
                               {"dryRun", FDryRun},
                               {"files", TJson::Array()}});
    context.Output.Line((FDryRun ? "would write " : "wrote ") + Visible(file.string()));
    return exit_status::Done;
  }

private:
  TBuildSource BuildSource(TCommandContext& context) const {
    if (FBuild.empty())
      throw TUsageError("the name of the build directory is empty");
    for (const IOption* option : FNotFromBuild) {
      if (option->IsGiven())
        throw TUsageError(option->Name() + " does not go with --from-build, which names it itself");
    }
    const std::string& platform = context.Options.Platform;
    if (platform.empty())
      throw TUsageError("--from-build wants the platform that the build is for: -p NAME");
    CheckPlatform(context, nullptr, platform);
    if (platform == AllPlatformsArgument)
      throw TUsageError("a build is for one platform, not for all");
    for (const std::string& component : FComponents)
      CheckStorable("--component", component);
    return {.Directory = FBuild,
            .Components = FComponents,
            .Platform = platform,
            .Configuration = context.Options.Configuration};
  }

  // The common options choose what is active in the new project.
  void ReadNames(TCommandContext& context) {
    FValues.Platforms = NamesIn("--platforms", FPlatforms);
    for (const std::string& platform : FValues.Platforms)
      CheckPlatform(context, nullptr, platform);
    FValues.Configurations = NamesIn("--configs", FConfigurations);
    std::erase(FValues.Configurations, std::string(deployment::BaseConfiguration));
    for (const std::string& configuration : FValues.Configurations)
      CheckName("configuration", configuration);
    CheckType();
    CheckName("personality", FValues.Personality);
    CheckName("framework", FValues.Framework);
    FValues.ActivePlatform = Chosen("--platform", context.Options.Platform, FValues.Platforms);
    FValues.ActiveConfiguration =
        Chosen("--config", context.Options.Configuration, FValues.Configurations);
  }

  void CheckType() const {
    const std::vector<std::string> known = deployment::ApplicationTypes();
    if (std::find(known.begin(), known.end(), FValues.ApplicationType) == known.end())
      throw TUsageError("there is no kind of program \"" + FValues.ApplicationType +
                        "\"; known are: " + deployment::JoinDelimited(known, ", ") +
                        HintAt(FValues.ApplicationType, known));
  }

  static std::string Chosen(const std::string& option, const std::string& name,
                            const std::vector<std::string>& names) {
    if (name.empty())
      return names.empty() ? std::string(deployment::BaseConfiguration) : names.front();
    if (std::find(names.begin(), names.end(), name) == names.end())
      throw TUsageError(option + " \"" + name + "\" is not among those of the new project");
    return name;
  }

  std::string FProject;
  std::string FPlatforms = "Win32";
  std::string FConfigurations = "Debug,Release";
  TProjectValues FValues;
  std::string FBuild;
  std::vector<std::string> FComponents;
  const IOption* FFromBuild = nullptr;
  std::vector<const IOption*> FNotFromBuild; // what the build says, or what would not fit it
  bool FDryRun = false;
  bool FYes = false;
};

} // namespace

std::unique_ptr<ICommand> MakeNewCommand() {
  return std::make_unique<TNewCommand>();
}

} // namespace workbench
