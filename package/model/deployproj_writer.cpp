#include "package/model/deployproj_writer.h"

#include "package/common/delimited_list.h"
#include "package/common/path_text.h"
#include "package/host/api/entry_paths.h"
#include "package/host/api/repositoryfile.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace deployment {
namespace {

// A directory that ends where a profile's path does.
constexpr const char* TargetRoot = ".\\";

// An entry with what is the same for every platform, found out once.
struct TListedFile {
  IProjectDeploymentFile& File;
  std::string Condition;
  bool EnabledEverywhere; ///< by its record for all platforms
  bool Required;
};

// Conditions in the words of the project's builds.
class TBuildConditions {
public:
  /// `names` may be null: the IDE's own words.
  explicit TBuildConditions(const IProjectBuildNames* names) : FNames(names) {}

  std::string Platform(std::string_view platform) const {
    return FNames ? Test(FNames->GetPlatformProperty(), FNames->GetPlatformName(platform))
                  : Test("Platform", platform);
  }
  std::string Configuration(std::string_view configuration) const {
    return FNames ? Test(FNames->GetConfigurationProperty(),
                         FNames->GetConfigurationName(configuration))
                  : Test("Config", configuration);
  }

private:
  static std::string Test(std::string_view property, std::string_view value) {
    return std::string("'$(").append(property).append(")'=='").append(value).append("'");
  }

  const IProjectBuildNames* FNames;
};

std::string ItemCondition(const IProjectDeploymentFile& file, const TBuildConditions& conditions) {
  const std::string& configuration = file.GetConfiguration();
  std::string condition;
  // Every build's configuration comes from the root one.
  if (!configuration.empty() && configuration != BaseConfiguration)
    condition = conditions.Configuration(configuration);
  if (!condition.empty() && !file.GetCondition().empty())
    condition += " And ";
  return condition += file.GetCondition();
}

// Only the record itself counts: the getter alone would answer from another record without one.
bool IsEnabledEverywhere(const IProjectDeploymentFile& file) {
  const auto platforms = file.GetPlatforms();
  return std::find(platforms.begin(), platforms.end(), sAllPlatforms) != platforms.end() &&
         file.GetEnabled(sAllPlatforms);
}

std::vector<TListedFile> ListFiles(const TDeploymentFiles& files,
                                   const IDeploymentClassList& classes,
                                   const TBuildConditions& conditions) {
  std::vector<TListedFile> listed;
  listed.reserve(files.size());
  for (const auto& file : files)
    listed.push_back(TListedFile{*file, ItemCondition(*file, conditions),
                                 IsEnabledEverywhere(*file),
                                 GetDeploymentRequired(*file, classes)});
  return listed;
}

/// Writes the files of one platform.
class TPlatformWriter {
public:
  TPlatformWriter(IMSBuildItemGroup& group, IProjectDeployment& deployment,
                  std::string_view platform, IOTAMessageServices& messages, std::string projectFile)
      : FGroup(group), FDeployment(deployment), FPlatform(platform),
        FBaseDir(GetRemoteBase(deployment, platform)), FMessages(messages),
        FProjectFile(std::move(projectFile)) {}

  void WriteFile(const TListedFile& listed) {
    IProjectDeploymentFile& file = listed.File;
    if (!file.GetEnabled(FPlatform) && !listed.EnabledEverywhere)
      return;
    IMSBuildItem& item = FGroup.AddItem("DeployFile", file.GetLocalName());
    if (!listed.Condition.empty())
      item.SetCondition(listed.Condition);
    const auto operation = static_cast<int>(GetDeploymentOperation(file, FPlatform, FDeployment));
    item.AddMetadata("RemoteDir", RemoteDir(file));
    item.AddMetadata("RemoteName", file.GetRemoteName(FPlatform));
    item.AddMetadata("DeployClass", file.GetDeploymentClass());
    item.AddMetadata("Operation", std::to_string(operation));
    item.AddMetadata("LocalCommand", Commands(&GetDeploymentLocalCommands, file));
    item.AddMetadata("RemoteCommand", Commands(&GetDeploymentRemoteCommands, file));
    item.AddMetadata("Overwrite", file.GetOverwrite(FPlatform) ? "True" : "False");
    if (listed.Required)
      item.AddMetadata("Required", "True");
  }

private:
  using TGetCommands = TCommandList (*)(IProjectDeploymentFile&, std::string_view,
                                        const IDeploymentClassList&);

  // A build takes the directory as it stands, "~" included, so only an absolute one stays.
  std::string RemoteDir(const IProjectDeploymentFile& file) const {
    const std::string stored = GetDeploymentRemoteDir(file, FPlatform, FDeployment);
    if (IsAbsolutePath(stored))
      return WithTrailingDelimiter(stored);
    std::string directory = CanonicalizePath(FBaseDir + stored);
    // A climb out of the base directory must not end at the root of the file system.
    if (stored.starts_with("..") && !directory.empty() && IsPathDelimiter(directory.front()))
      directory.erase(0, 1);
    if (directory.empty())
      return TargetRoot;
    directory = WithTrailingDelimiter(directory);
    if (directory.starts_with("..\\"))
      WarnOfClimb(file, stored);
    return directory;
  }

  // A deploy refuses such a file; a build that goes by the side file would write beside the target.
  void WarnOfClimb(const IProjectDeploymentFile& file, const std::string& directory) const {
    FMessages.AddWarning("\"" + file.GetLocalName() + "\": its remote directory \"" + directory +
                             "\" for \"" + std::string(FPlatform) +
                             "\" goes above the root of the target",
                         {FProjectFile, 0});
  }

  std::string Commands(TGetCommands getCommands, IProjectDeploymentFile& file) const {
    return JoinDelimited(getCommands(file, FPlatform, FDeployment), "\r\n");
  }

  IMSBuildItemGroup& FGroup;
  IProjectDeployment& FDeployment;
  std::string_view FPlatform;
  std::string FBaseDir;
  IOTAMessageServices& FMessages;
  std::string FProjectFile;
};

} // namespace

void WriteDeployProj(VelmorIDEServices& host, ICustomProject& project,
                     IProjectDeployment& deployment) {
  const auto document = host.GetProjectFileUtils().MSBuildLoadProjectDocument(
      RepositoryFile(host.GetAppStrings(), "Deploy\\deploymenttemplate.xml"));
  const TDeploymentFiles files = deployment.GetFiles();
  const TBuildConditions conditions(project.GetBuildNames());
  const std::vector<TListedFile> listed = ListFiles(files, deployment, conditions);
  for (const std::string& platform :
       host.GetPlatformManager().AvailablePlatforms(project.GetPersonality())) {
    IMSBuildItemGroup& group = document->AddItemGroup(conditions.Platform(platform));
    TPlatformWriter writer(group, deployment, platform, host.GetMessageServices(),
                           project.GetProjectFileName());
    for (const TListedFile& file : listed)
      writer.WriteFile(file);
  }
  // The old file stays until the host's save puts the new one in its place whole, or finds it to
  // be the same and leaves it untouched. So a save that fails loses nothing, and builds that look
  // at time stamps see a new one only when something changed.
  document->SaveToFile(ChangeExtension(project.GetProjectFileName(), ".deployproj"));
}

} // namespace deployment
