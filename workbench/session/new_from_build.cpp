#include "workbench/session/new_from_build.h"

#include "workbench/project/build_import/build_directory.h"

#include <utility>

namespace workbench {
namespace {

namespace fs = std::filesystem;

// The project before anything is taken; what it remembers of the build is nothing yet.
std::string ProjectOfBuild(TProjectValues values, const TBuildRecord& record) {
  values.MoreItems = LabelledGroupMarkup(BuildItemsLabel, ItemsOf(record), {TXmlLayout(), "  "});
  return ProjectText(values);
}

} // namespace

TProjectValues ValuesForBuild(const std::string& platform) {
  TProjectValues values;
  values.ApplicationType = "Utility";
  values.Personality = "Build.Personality";
  values.Framework = "None";
  values.Platforms = {platform};
  values.ActivePlatform = platform;
  return values;
}

TOpenProject& CreateFromBuild(TSession& session, const fs::path& file, TProjectValues values,
                              const TBuildSource& source, const TInstallPlan& plan,
                              TBuildRefresh& done) {
  const fs::path directory = fs::absolute(file).lexically_normal().parent_path();
  TBuildRecord record;
  record.Directory = StoredFromProject(fs::absolute(source.Directory), directory);
  record.Platform = values.Platforms.front();
  record.Components = source.Components;
  session.Create(file, ProjectOfBuild(std::move(values), record));
  TOpenProject& project = session.Open(file, TOpenPurpose::Edit);
  try {
    done = ApplyInstallPlan(project, std::move(record), plan);
    project.SaveProjectFile(/*force=*/false);
  } catch (...) {
    std::error_code ignored;
    fs::remove(file, ignored); // half a project is worse than none
    throw;
  }
  project.Export();
  return project;
}

} // namespace workbench
