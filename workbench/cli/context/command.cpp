#include "workbench/cli/context/command.h"

#include "package/common/case_fold.h"
#include "package/common/errors.h"
#include "workbench/cli/context/project_argument.h"

namespace workbench {

void AddChangeOptions(IOptions& options, TChangeOptions& change) {
  options.Flag("--dry-run", change.DryRun, "Say what would change; change nothing");
  options.Flag("--yes", change.Yes, "Answer every question with yes");
  options.Flag("--force-save", change.ForceSave,
               "Overwrite a project that changed on disk since it was read");
}

void AddCheckOption(IOptions& options, TChangeOptions& change) {
  options.Flag("--check", change.Check,
               "Change nothing; end with 7 when something would change, else with 0");
}

int StatusOf(const TChangeOptions& change, bool changed) {
  return change.Check && changed ? exit_status::WouldChange : exit_status::Done;
}

void AddProjectArgument(IOptions& options, std::string& project, bool required) {
  IOption& option = options.Text("PROJECT", project, "Project file");
  if (required)
    option.Required();
}

TOpenProject& OpenProject(TCommandContext& context, const std::string& file, TOpenPurpose purpose) {
  const std::filesystem::path found = FindProject(file);
  context.Session.CheckInstallation();
  try {
    TOpenProject& project = context.Session.Open(found, purpose);
    WarnSince(context, project, 0);
    return project;
  } catch (const deployment::TInputError&) {
    if (HasProjectName(found) || MayBeXml(found))
      throw;
    const bool isSolution = deployment::SameText(found.extension().string(), ".sln");
    throw deployment::TInputError(isSolution ? "this is a solution; name one of the projects in it"
                                             : "this is no project: MSBuild projects are XML files",
                                  {found.string(), 0});
  }
}

void WarnSince(TCommandContext& context, const TOpenProject& project, std::size_t told) {
  for (std::size_t i = told; i < project.Warnings().size(); ++i)
    context.Output.Warn(project.Warnings()[i]);
}

} // namespace workbench
