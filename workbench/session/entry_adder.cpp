#include "workbench/session/entry_adder.h"

#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "package/host/api/target_entries.h"
#include "workbench/platforms/platform_table.h"

#include <algorithm>

namespace workbench {
namespace {

std::string FoldedName(std::string name) {
  std::replace(name.begin(), name.end(), '/', '\\');
  return deployment::UpperCase(name);
}

std::string_view ConfigurationOf(const std::string& name) {
  return name.empty() ? deployment::BaseConfiguration : std::string_view(name);
}

} // namespace

TEntryAdder::TEntryAdder(TOpenProject& project, const TPlatformTable& platforms)
    : FProject(project), FPlatforms(platforms) {
  for (const auto& file : project.Deployment().GetFiles())
    FByName.emplace(FoldedName(file->GetLocalName()), file);
}

TEntryAdder::~TEntryAdder() = default;

std::vector<TEntryAdder::TFile> TEntryAdder::Namesakes(const std::string& localName) const {
  std::vector<TFile> files;
  const auto [first, last] = FByName.equal_range(FoldedName(localName));
  for (auto each = first; each != last; ++each)
    files.push_back(each->second);
  return files;
}

bool TEntryAdder::IsListed(const std::vector<TFile>& namesakes, const std::string& configuration,
                           const std::string& platform) {
  auto& target = FTargets[configuration + '\n' + platform];
  if (!target)
    target = std::make_unique<deployment::TTargetEntries>(
        FProject.Project(), deployment::TDeploymentTarget{configuration, platform});
  // A pair that the project has not set up lists nothing, and has its own entries all the same.
  return std::ranges::any_of(namesakes, [&](const TFile& file) {
    return target->IsListed(*file) ||
           (deployment::HoldsPlatform(*file, platform) &&
            deployment::SameText(ConfigurationOf(file->GetConfiguration()), configuration));
  });
}

// The entry that gets further platforms: one of the same configuration when it is to have several,
// and one whose key a new entry would take away.
TEntryAdder::TFile TEntryAdder::FindOwn(const std::vector<TFile>& namesakes, const TNewEntry& entry,
                                        const std::vector<std::string>& missing) const {
  if (entry.Platforms.size() > 1) {
    for (const TFile& file : namesakes) {
      if (deployment::SameText(ConfigurationOf(file->GetConfiguration()), entry.Configuration))
        return file;
    }
  }
  return FProject.Deployment().FindFile(entry.Configuration, missing.front(), entry.LocalName);
}

TAddOutcome TEntryAdder::Add(const TNewEntry& entry) {
  const std::vector<TFile> namesakes = Namesakes(entry.LocalName);
  std::vector<std::string> missing = entry.Platforms;
  std::erase_if(missing, [&](const std::string& platform) {
    return IsListed(namesakes, entry.Configuration, platform);
  });
  if (missing.empty())
    return TAddOutcome::Present;
  TFile file = FindOwn(namesakes, entry, missing);
  const bool isNew = !file;
  if (isNew) {
    file = FProject.Deployment().AddFile(entry.Configuration, missing.front(), entry.LocalName);
    file->SetDeploymentClass(entry.Class);
    FByName.emplace(FoldedName(entry.LocalName), file);
  }
  for (const std::string& platform : missing)
    FillRecord(entry, platform, *file);
  FProject.MarkChanged(); // records with default values are told to nobody
  return isNew ? TAddOutcome::Added : TAddOutcome::Extended;
}

void TEntryAdder::FillRecord(const TNewEntry& entry, const std::string& platform,
                             deployment::IProjectDeploymentFile& file) const {
  const TPlatform* known = FPlatforms.FindPlatform(platform);
  const std::string byDefault = known ? known->GetDefaultRemoteDir() : ".\\";
  std::string directory = entry.RemoteDir.empty() ? byDefault : entry.RemoteDir;
  if (!entry.SubDirectory.empty()) {
    if (!directory.empty() && !deployment::IsPathDelimiter(directory.back()))
      directory += '\\';
    directory += entry.SubDirectory;
  }
  file.SetEnabled(platform, entry.Enabled);
  file.SetRemoteDir(platform, directory);
  file.SetRemoteName(platform, entry.RemoteName);
}

} // namespace workbench
