#include "workbench/cli/context/command.h"

#include "package/common/delimited_list.h"
#include "package/common/errors.h"
#include "workbench/cli/context/project_argument.h"
#include "workbench/project/cpp/solution.h"

#include <algorithm>

namespace workbench {
namespace {

constexpr std::size_t NamesShown = 8;

[[noreturn]] void RaiseSolution(const std::filesystem::path& file) {
  std::vector<std::string> names;
  try {
    const TSolution solution = TSolution::Read(file);
    names.reserve(solution.Projects().size());
    for (const TSolutionProject& project : solution.Projects())
      names.push_back(project.StoredPath);
  } catch (const deployment::TInputError&) {
    names.clear(); // another command says what is wrong with it
  }
  std::string text = "this is a solution; name one of the projects in it";
  if (!names.empty()) {
    const bool isCut = names.size() > NamesShown;
    names.resize(std::min(names.size(), NamesShown));
    text += ": " + deployment::JoinDelimited(names, ", ") + (isCut ? ", ..." : "");
  }
  throw deployment::TInputError(
      text + " (the whole is taken by list, status, reconcile, deploy, export and open)",
      {file.string(), 0});
}

} // namespace

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

void AddProjectsArgument(IOptions& options, std::string& project) {
  options.Text("PROJECT", project, "Project file, or a solution for all of its projects")
      .Required();
}

void AddProjectArgument(IOptions& options, std::string& project, bool required) {
  IOption& option = options.Text("PROJECT", project, "Project file");
  if (required)
    option.Required();
}

TOpenProject& OpenProject(TCommandContext& context, const std::string& file, TOpenPurpose purpose) {
  const std::filesystem::path found = FindProject(file);
  if (IsSolutionName(found))
    RaiseSolution(found);
  context.Session.CheckInstallation();
  try {
    TOpenProject& project = context.Session.Open(found, purpose);
    WarnSince(context, project, 0);
    return project;
  } catch (const deployment::TInputError&) {
    if (HasProjectName(found) || MayBeXml(found))
      throw;
    throw deployment::TInputError("this is no project: MSBuild projects are XML files",
                                  {found.string(), 0});
  }
}

void WarnSince(TCommandContext& context, const TOpenProject& project, std::size_t told) {
  for (std::size_t i = told; i < project.Warnings().size(); ++i)
    context.Output.Warn(project.Warnings()[i]);
}

} // namespace workbench
