// deploymgr show: the whole deployment of a project.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/document_stream.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/entry_filter.h"
#include "workbench/cli/entries/entry_json.h"
#include "workbench/cli/entries/entry_text.h"
#include "workbench/project/project_settings.h"

#include <algorithm>

namespace workbench {
namespace {

class TShowCommand final : public ICommand {
public:
  std::string Name() const override { return "show"; }
  std::string Summary() const override { return "Show files, classes and roots of a project"; }
  void AddOptions(IOptions& options) override { AddProjectArgument(options, FProject); }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    CheckFilterOptions(context, project);
    if (context.Output.IsJson())
      ShowJson(context, project);
    else
      ShowText(context, project);
    return exit_status::Done;
  }

private:
  // File by file: a list of a hundred thousand never stands in memory as a document.
  static void ShowJson(TCommandContext& context, TOpenProject& project) {
    TDocumentStream document(context.Output);
    document.Member("project", project.GivenFileName().string());
    document.Member("version", project.SectionVersionRead());
    document.StartList("files");
    for (const auto& file : project.Deployment().GetFiles()) {
      if (FitsOptions(*file, context.Options))
        document.Item(FileAsJson(*file));
    }
    document.EndList();
    TJson roots = TJson::Object();
    for (const auto& root : project.Deployment().GetProjectRoots())
      roots.Add(root.Key, root.Value);
    document.Member("classes", ClassesAsJson(project.Deployment().GetClasses()));
    document.Member("projectRoots", roots);
    document.End();
  }

  static void ShowText(TCommandContext& context, TOpenProject& project) {
    TOutput& output = context.Output;
    for (const auto& file : project.Deployment().GetFiles()) {
      if (FitsOptions(*file, context.Options))
        output.Line(FileLine(*file, output));
    }
    for (const auto& root : project.Deployment().GetProjectRoots())
      output.Line("root of " + Visible(root.Key) + ": " +
                  (root.Value.empty() ? "(none)" : Visible(root.Value)));
    ShowClasses(context, project);
  }

  // Classes of platforms that the project is not for are many, and say nothing about it.
  static void ShowClasses(TCommandContext& context, TOpenProject& project) {
    TOutput& output = context.Output;
    std::size_t others = 0;
    for (const auto& deploymentClass : project.Deployment().GetClasses()) {
      if (IsOfProject(*deploymentClass, context, project))
        output.Line("class " + ClassLine(*deploymentClass, output));
      else
        ++others;
    }
    if (others > 0 && output.IsTerminal())
      output.Line(output.Dim(std::to_string(others) +
                             " classes of other platforms; \"deploymgr classes\" shows them"));
  }

  static bool IsOfProject(const deployment::IProjectDeploymentClass& deploymentClass,
                          const TCommandContext& context, const TOpenProject& project) {
    const std::string& chosen = context.Options.Platform;
    const bool isChosen = !chosen.empty() && chosen != AllPlatformsArgument;
    const std::vector<std::string> platforms = deploymentClass.GetPlatforms();
    return std::ranges::any_of(platforms, [&](const std::string& platform) {
      return platform == deployment::FallbackPlatform ||
             (isChosen ? platform == chosen : project.Settings().FindPlatform(platform) != nullptr);
    });
  }

  std::string FProject;
};

} // namespace

std::unique_ptr<ICommand> MakeShowCommand() {
  return std::make_unique<TShowCommand>();
}

} // namespace workbench
