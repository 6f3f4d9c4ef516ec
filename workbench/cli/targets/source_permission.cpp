#include "workbench/cli/targets/source_permission.h"

#include "workbench/deploy/plan/source_roots.h"
#include "workbench/files/machine_path.h"
#include "workbench/settings/source_consent.h"

#include <filesystem>

namespace workbench {

void AllowAddedSources(TCommandContext& context, const TOpenProject& project,
                       const std::vector<TEntryChange>& changes) {
  const std::filesystem::path projectFile = std::filesystem::absolute(project.GivenFileName());
  TSourceRoots roots({SourceTreeOf(projectFile)});
  std::vector<std::string> outside;
  for (const TEntryChange& change : changes) {
    if (change.Action != "added" || change.LocalName.find("$(") != std::string::npos)
      continue;
    const std::filesystem::path file =
        (projectFile.parent_path() / ToMachinePath(change.LocalName)).lexically_normal();
    if (!roots.Holds(file))
      outside.push_back(file.string());
  }
  if (!outside.empty())
    AllowSources(context.Session.Settings(), projectFile, outside);
}

} // namespace workbench
