#include "workbench/cli/context/command.h"

namespace workbench {

void AddChangeOptions(IOptions& options, TChangeOptions& change) {
  options.Flag("--dry-run", change.DryRun, "Say what would change; change nothing");
  options.Flag("--yes", change.Yes, "Answer every question with yes");
  options.Flag("--force-save", change.ForceSave,
               "Overwrite a project that changed on disk since it was read");
}

void AddProjectArgument(IOptions& options, std::string& project, bool required) {
  IOption& option = options.Text("PROJECT", project, "Project file");
  if (required)
    option.Required();
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
