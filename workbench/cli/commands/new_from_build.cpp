#include "workbench/cli/commands/new_from_build.h"

#include "workbench/cli/entries/build_changes.h"
#include "workbench/cli/targets/source_permission.h"
#include "workbench/files/save_error.h"
#include "workbench/project/build_import/build_directory.h"

#include <algorithm>

namespace workbench {
namespace {

namespace fs = std::filesystem;

std::vector<TEntryChange> WouldAdd(TCommandContext& context, const fs::path& directory,
                                   const std::string& platform, const TInstallPlan& plan) {
  std::vector<TWarning> warnings = plan.Warnings;
  std::vector<TEntryChange> changes;
  for (const TTakenFile& taken : TakenFiles(plan, directory, warnings))
    changes.push_back({taken.LocalName, taken.Configuration, platform, "added"});
  for (const TWarning& warning : warnings)
    context.Output.Warn(warning);
  return changes;
}

void Report(TCommandContext& context, const fs::path& file, const TInstallPlan& plan,
            const std::vector<TEntryChange>& changes, bool dryRun) {
  TJson files = TJson::Array();
  for (const TEntryChange& change : changes)
    files.Append({{"localName", change.LocalName},
                  {"configuration", change.Configuration},
                  {"platform", change.Platform},
                  {"action", change.Action}});
  if (context.Output.IsJson())
    context.Output.Document(
        {{"project", file.string()}, {"changed", true}, {"dryRun", dryRun}, {"files", files}});
  context.Output.Line((dryRun ? "would write " : "wrote ") + Visible(file.string()) + " with " +
                      std::to_string(changes.size()) + (changes.size() == 1 ? " file" : " files") +
                      " that " + plan.Tool + " installs");
}

} // namespace

void NewFromBuild(TCommandContext& context, const fs::path& file, const TBuildSource& source,
                  bool dryRun) {
  std::error_code ignored;
  if (fs::exists(file, ignored))
    throw TSaveError("\"" + file.string() + "\" exists already; nothing " +
                         (dryRun ? "would be written" : "was written"),
                     file);
  const TInstallPlan plan = ReadBuildDirectory(source.Directory, source.Components, !dryRun);
  CheckBuildConfigurations(plan);
  if (!source.Configuration.empty() &&
      std::ranges::find(plan.Configurations, source.Configuration) == plan.Configurations.end())
    throw TUsageError("the build makes no configuration \"" + source.Configuration + "\"");
  if (dryRun) {
    const fs::path directory = fs::absolute(file).lexically_normal().parent_path();
    return Report(context, file, plan, WouldAdd(context, directory, source.Platform, plan), dryRun);
  }
  const TMadeProject made = CreateFromBuild(context.Session, file, source, plan);
  Report(context, file, plan, BuildChanges(context, made.Project, source.Platform, made.Done),
         dryRun);
}

} // namespace workbench
