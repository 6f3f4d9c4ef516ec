#include "workbench/session/solution_projects.h"

#include "package/common/case_fold.h"
#include "package/common/errors.h"
#include "workbench/msbuild/directory_cache.h"
#include "workbench/project/project_settings.h"
#include "workbench/xml/short_text.h"

#include <algorithm>
#include <system_error>

namespace workbench {
namespace {

namespace fs = std::filesystem;

bool IsKnownKind(const fs::path& file) {
  const std::string extension = deployment::LowerCaseAscii(file.extension().string());
  return extension == ".vproj" || extension == ".vcxproj";
}

// Kinds that are no MSBuild project, or one of which only its own tools know what it makes.
bool IsOtherKind(const TOpenProject& project) {
  return !IsKnownKind(project.GivenFileName()) && project.Settings().Personality().empty();
}

} // namespace

TOpenSolution::TOpenSolution(const fs::path& file)
    : FSolution(std::make_shared<const TSolution>(TSolution::Read(file))) {
  FSolution->CheckOrder();
  const fs::path directory = FSolution->File().parent_path();
  TDirectoryCache directories;
  FMembers.reserve(FSolution->Projects().size());
  for (const TSolutionProject& project : FSolution->Projects()) {
    const fs::path there = directories.Find(project.File).value_or(project.File);
    const fs::path name = there.lexically_relative(directory);
    FMembers.push_back({&project, (file.parent_path() / name).lexically_normal(), name.string()});
  }
}

std::string TOpenSolution::WhyNoProject(const TSolutionMember& member) const {
  std::error_code ignored;
  if (fs::is_directory(member.File, ignored))
    return "is a directory";
  const std::string extension = deployment::LowerCaseAscii(member.File.extension().string());
  // Installers are named like projects and are texts of their own.
  const bool isProject = extension.size() > 4 && extension.ends_with("proj") &&
                         extension != ".vdproj" && extension != ".deployproj";
  if (isProject || IsSolutionName(member.File))
    return {};
  return "is no project that this program knows";
}

TOpenProject& TOpenSolution::Open(TSession& session, const TSolutionMember& member,
                                  TOpenPurpose purpose) const {
  const deployment::TErrorPlace place{FSolution->File().string(), member.Project->Line};
  const std::string name = "\"" + ShortText(member.Project->StoredPath) + "\"";
  if (IsSolutionName(member.File))
    throw deployment::TInputError(
        "the solution names " + name + " as a project, which is a solution itself", place);
  std::error_code ignored;
  if (!fs::exists(member.File, ignored))
    throw deployment::TInputError("the solution names a project that is not there: " + name, place);
  return session.Open(member.File, purpose, FSolution);
}

bool HasSomethingToDeploy(TOpenProject& project, std::string_view configuration,
                          std::string_view platform) {
  if (!project.Deployment().IsEmpty() && !project.Deployment().GetFiles().empty())
    return true;
  if (IsOtherKind(project))
    return false;
  const TProjectSettings& settings = project.Settings();
  return std::ranges::any_of(settings.Configurations(), [&](const auto& each) {
    const std::string name = each->GetName();
    if (configuration.empty() ? name == deployment::BaseConfiguration : name != configuration)
      return false;
    if (!platform.empty())
      return !settings.MakesNothing(name, platform);
    return std::ranges::any_of(each->GetPlatforms(), [&](const std::string& known) {
      return !settings.MakesNothing(name, known);
    });
  });
}

} // namespace workbench
