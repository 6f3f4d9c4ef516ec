#include "workbench/cli/entries/change_report.h"

namespace workbench {
namespace {

bool IsChange(const TEntryChange& change) {
  return change.Action != "unchanged" && change.Action != "present";
}

std::string Verb(const std::string& action, bool dryRun) {
  if (!dryRun)
    return action;
  if (action == "added")
    return "would add";
  return action == "removed" ? "would remove" : "would change";
}

void PrintLines(TCommandContext& context, const std::vector<TEntryChange>& changes, bool changed,
                bool dryRun) {
  for (const TEntryChange& change : changes) {
    if (IsChange(change))
      context.Output.Line(Verb(change.Action, dryRun) + " " + Visible(change.LocalName) + " for " +
                          Visible(change.Configuration) + ", " + Visible(change.Platform));
  }
  if (!changed)
    context.Output.Line("nothing to do");
}

void PrintDocument(TCommandContext& context, const TOpenProject& project,
                   const std::vector<TEntryChange>& changes, bool changed, bool dryRun) {
  TJson files = TJson::Array();
  for (const TEntryChange& change : changes)
    files.Append({{"localName", change.LocalName},
                  {"configuration", change.Configuration},
                  {"platform", change.Platform},
                  {"action", change.Action}});
  context.Output.Document({{"project", project.GivenFileName().string()},
                           {"changed", changed},
                           {"dryRun", dryRun},
                           {"files", files}});
}

} // namespace

bool SaveAndReport(TCommandContext& context, TOpenProject& project, const TChangeOptions& options,
                   const std::vector<TEntryChange>& changes) {
  const bool changed = project.HasChanges();
  if (changed)
    project.RequireShippedFiles();
  if (!options.IsDry()) {
    const std::size_t told = project.Warnings().size();
    project.Save(options.ForceSave);
    WarnSince(context, project, told);
  }
  if (context.Output.IsJson())
    PrintDocument(context, project, changes, changed, options.IsDry());
  else
    PrintLines(context, changes, changed, options.IsDry());
  return changed;
}

} // namespace workbench
