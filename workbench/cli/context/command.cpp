#include "workbench/cli/context/command.h"

#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "workbench/project/cpp/solution.h"

#include <algorithm>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

bool IsProjectName(const fs::path& file) {
  const std::string extension = deployment::LowerCaseAscii(file.extension().string());
  return extension.ends_with("proj") && extension != ".deployproj";
}

// A directory stands for the one project in it.
fs::path ProjectIn(const fs::path& directory) {
  std::vector<std::string> names;
  std::error_code error;
  for (fs::directory_iterator entry(directory, error), end; !error && entry != end;
       entry.increment(error)) {
    std::error_code ignored;
    if (IsProjectName(entry->path()) && entry->is_regular_file(ignored))
      names.push_back(entry->path().filename().string());
  }
  std::ranges::sort(names);
  if (names.empty())
    return directory; // which is refused as what it is
  if (names.size() > 1)
    throw TUsageError("there are several projects in the directory \"" + directory.string() +
                      "\": " + deployment::JoinDelimited(names, ", "));
  return directory / names.front();
}

[[noreturn]] void RefuseSolution(const fs::path& file) {
  std::vector<std::string> names;
  for (const TSolutionProject& project : TSolution::Read(file).Projects())
    names.push_back(project.StoredPath);
  throw TUsageError("\"" + file.string() + "\" is a solution; name one of its projects: " +
                    deployment::JoinDelimited(names, ", "));
}

} // namespace

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
  std::error_code ignored;
  const bool isDirectory = fs::is_directory(file, ignored);
  if (deployment::SameText(fs::path(file).extension().string(), ".sln") && !isDirectory)
    RefuseSolution(file);
  TOpenProject& project =
      context.Session.Open(isDirectory ? ProjectIn(file) : fs::path(file), purpose);
  WarnSince(context, project, 0);
  return project;
}

void WarnSince(TCommandContext& context, const TOpenProject& project, std::size_t told) {
  for (std::size_t i = told; i < project.Warnings().size(); ++i)
    context.Output.Warn(project.Warnings()[i]);
}

} // namespace workbench
