#include "workbench/cli/entries/changes_output.h"

namespace workbench {

TJson ChangesAsJson(const TTargetChanges& changes) {
  const auto list = [](const std::vector<TChangedEntry>& entries) {
    TJson array = TJson::Array();
    for (const TChangedEntry& entry : entries)
      array.Append({{"localName", entry.LocalName}, {"class", entry.ClassName}});
    return array;
  };
  return {{"added", list(changes.Added)},
          {"modified", list(changes.Modified)},
          {"removed", list(changes.Removed)}};
}

void PrintChanges(TOutput& output, const TTargetChanges& changes, bool dryRun) {
  const auto print = [&](const std::vector<TChangedEntry>& entries, const char* done,
                         const char* planned) {
    for (const TChangedEntry& entry : entries)
      output.Line(std::string(dryRun ? planned : done) + " " + Visible(entry.LocalName) + " [" +
                  Visible(entry.ClassName) + "] for " + Visible(entry.Target));
  };
  print(changes.Added, "added", "would add");
  print(changes.Modified, "modified", "would modify");
  print(changes.Removed, "removed", "would remove");
}

} // namespace workbench
