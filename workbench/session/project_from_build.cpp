#include "workbench/session/project_from_build.h"

#include "workbench/deploy/plan/source_roots.h"
#include "workbench/files/machine_path.h"
#include "workbench/project/labelled_items.h"
#include "workbench/project/project_text.h"
#include "workbench/settings/source_consent.h"

#include <utility>

namespace workbench {
namespace {

namespace fs = std::filesystem;

// The project before anything is taken; what it remembers of the build is nothing yet.
std::string EmptyBuildProject(const TBuildSource& source, const TInstallPlan& plan,
                              const TBuildRecord& record) {
  TProjectValues values;
  values.ApplicationType = "Utility";
  values.Personality = "Build.Personality";
  values.Framework = "None";
  values.Platforms = {source.Platform};
  values.ActivePlatform = source.Platform;
  values.Configurations = plan.Configurations;
  values.ActiveConfiguration =
      source.Configuration.empty() ? plan.Configurations.front() : source.Configuration;
  values.MoreItems = LabelledGroupMarkup(BuildItemsLabel, ItemsOf(record), {TXmlLayout(), "  "});
  return ProjectText(values);
}

std::vector<std::string> AddedNames(const TBuildRefresh& done) {
  std::vector<std::string> names;
  for (const TListUpdate& update : done.Updates) {
    if (update.Action == TListUpdate::TAction::Added)
      names.push_back(update.LocalName);
  }
  return names;
}

} // namespace

void CheckBuildConfigurations(const TInstallPlan& plan) {
  for (const std::string& configuration : plan.Configurations) {
    if (!IsProjectName(configuration))
      throw deployment::TInputError("the build's configuration \"" + configuration +
                                    "\" holds characters that a project cannot hold there");
  }
}

TMadeProject CreateFromBuild(TSession& session, const fs::path& file, const TBuildSource& source,
                             const TInstallPlan& plan) {
  CheckBuildConfigurations(plan);
  TBuildRecord record;
  record.Directory = StoredFromProject(fs::absolute(source.Directory),
                                       fs::absolute(file).lexically_normal().parent_path());
  record.Platform = source.Platform;
  record.Components = source.Components;
  session.Create(file, EmptyBuildProject(source, plan, record));
  TOpenProject* project = nullptr;
  TBuildRefresh done;
  try {
    project = &session.Open(file, TOpenPurpose::Edit);
    done = ApplyInstallPlan(*project, std::move(record), plan);
    project->SaveProjectFile(/*force=*/false);
  } catch (...) {
    if (project)
      session.Close(*project);
    std::error_code ignored;
    fs::remove(file, ignored); // half a project is worse than none
    throw;
  }
  try {
    project->Export();
    AllowListedSources(session, *project, AddedNames(done));
  } catch (...) {
    session.Close(*project);
    throw;
  }
  return {*project, std::move(done)};
}

void AllowListedSources(TSession& session, const TOpenProject& project,
                        const std::vector<std::string>& localNames) {
  const fs::path projectFile = fs::absolute(project.GivenFileName());
  TSourceRoots roots({SourceTreeOf(projectFile)});
  std::vector<std::string> outside;
  for (const std::string& name : localNames) {
    if (name.find("$(") != std::string::npos)
      continue;
    const fs::path file = (projectFile.parent_path() / ToMachinePath(name)).lexically_normal();
    if (!roots.Holds(file))
      outside.push_back(file.string());
  }
  if (!outside.empty())
    AllowSources(session.Settings(), projectFile, outside);
}

} // namespace workbench
