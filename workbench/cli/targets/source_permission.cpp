#include "workbench/cli/targets/source_permission.h"

#include "workbench/session/project_from_build.h"

namespace workbench {

void AllowAddedSources(TCommandContext& context, const TOpenProject& project,
                       const std::vector<TEntryChange>& changes) {
  std::vector<std::string> added;
  for (const TEntryChange& change : changes) {
    if (change.Action == "added")
      added.push_back(change.LocalName);
  }
  AllowListedSources(context.Session, project, added);
}

} // namespace workbench
