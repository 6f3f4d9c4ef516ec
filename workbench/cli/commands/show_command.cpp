// deploymgr show: the whole deployment of a project.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/entry_filter.h"
#include "workbench/cli/entries/entry_json.h"
#include "workbench/cli/entries/entry_text.h"

namespace workbench {
namespace {

class TShowCommand final : public ICommand {
public:
  std::string Name() const override { return "show"; }
  std::string Summary() const override { return "Show files, classes and roots of a project"; }
  void AddOptions(IOptions& options) override { AddProjectArgument(options, FProject); }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    CheckPlatformOption(context, &project);
    if (context.Output.IsJson())
      ShowJson(context, project);
    else
      ShowText(context, project);
    return exit_status::Done;
  }

private:
  // File by file: a list of a hundred thousand never stands in memory as a document.
  static void ShowJson(TCommandContext& context, TOpenProject& project) {
    TOutput& output = context.Output;
    output.Write("{\n  \"project\": " + JsonText(TJson(project.GivenFileName().string()), -1) +
                 ",\n  \"version\": " + std::to_string(project.SectionVersionRead()) +
                 ",\n  \"files\": [");
    const char* separator = "\n    ";
    for (const auto& file : project.Deployment().GetFiles()) {
      if (!FitsOptions(*file, context.Options))
        continue;
      output.Write(separator);
      output.Write(JsonText(FileAsJson(*file), -1));
      separator = ",\n    ";
    }
    TJson roots = TJson::object();
    for (const auto& root : project.Deployment().GetProjectRoots())
      roots[root.Key] = root.Value;
    output.Write(
        "\n  ],\n  \"classes\": " + JsonText(ClassesAsJson(project.Deployment().GetClasses()), -1) +
        ",\n  \"projectRoots\": " + JsonText(roots, -1) + "\n}\n");
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
    const auto classes = project.Deployment().GetClasses();
    for (const auto& deploymentClass : classes)
      output.Line("class " + ClassLine(*deploymentClass, output));
  }

  std::string FProject;
};

} // namespace

std::unique_ptr<ICommand> MakeShowCommand() {
  return std::make_unique<TShowCommand>();
}

} // namespace workbench
