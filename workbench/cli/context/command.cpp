#include "workbench/cli/context/command.h"

#include <CLI/CLI.hpp>

namespace workbench {

void AddChangeOptions(CLI::App& app, TChangeOptions& options) {
  app.add_flag("--dry-run", options.DryRun, "Say what would change; change nothing");
  app.add_flag("--yes", options.Yes, "Answer every question with yes");
  app.add_flag("--force-save", options.ForceSave,
               "Overwrite a project that changed on disk since it was read");
}

void AddProjectArgument(CLI::App& app, std::string& project, bool required) {
  auto* option = app.add_option("PROJECT", project, "Project file");
  if (required)
    option->required();
}

TOpenProject& OpenProject(TCommandContext& context, const std::string& file, TOpenPurpose purpose) {
  if (file.empty())
    throw TUsageError("the name of the project file is empty");
  TOpenProject& project = context.Session.Open(file, purpose);
  WarnSince(context, project, 0);
  return project;
}

void WarnSince(TCommandContext& context, const TOpenProject& project, std::size_t told) {
  for (std::size_t i = told; i < project.Warnings().size(); ++i)
    context.Output.Warn(project.Warnings()[i]);
}

} // namespace workbench
