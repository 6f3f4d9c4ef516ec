#include "workbench/cli/entries/entry_edit.h"

#include "workbench/cli/context/command.h"

#include <algorithm>

namespace workbench {
namespace {

bool Contains(const std::vector<std::string>& names, const std::string& name) {
  return std::find(names.begin(), names.end(), name) != names.end();
}

void CheckPlatformStays(const TEntryEdit& edit, const deployment::IProjectDeploymentFile& file) {
  if (edit.RemovePlatforms.empty())
    return;
  std::vector<std::string> left = file.GetPlatforms();
  left.insert(left.end(), edit.AddPlatforms.begin(), edit.AddPlatforms.end());
  std::erase_if(left,
                [&](const std::string& name) { return Contains(edit.RemovePlatforms, name); });
  if (left.empty())
    throw TWorkError("\"" + file.GetLocalName() +
                     "\" would lose its last platform; \"remove\" takes it off the list");
}

// A save keeps one command of each kind.
deployment::TCommandList ListOf(const std::string& command) {
  return command.empty() ? deployment::TCommandList() : deployment::TCommandList{command};
}

void ApplyToPlatform(const TEntryEdit& edit, deployment::IProjectDeploymentFile& file,
                     const std::string& platform) {
  if (edit.Enabled)
    file.SetEnabled(platform, *edit.Enabled);
  if (edit.Overwrite)
    file.SetOverwrite(platform, *edit.Overwrite);
  if (edit.RemoteDir)
    file.SetRemoteDir(platform, *edit.RemoteDir);
  if (edit.RemoteName)
    file.SetRemoteName(platform, *edit.RemoteName);
  if (edit.Operation)
    file.SetOperation(platform, *edit.Operation);
  deployment::TFileData& record = *file.GetFileData(platform, /*create=*/true);
  if (edit.LocalCommand)
    record.LocalCommands = ListOf(*edit.LocalCommand);
  if (edit.RemoteCommand)
    record.RemoteCommands = ListOf(*edit.RemoteCommand);
}

} // namespace

bool TEntryEdit::HasPlatformValues() const {
  return Enabled || Overwrite || RemoteDir || RemoteName || Operation || LocalCommand ||
         RemoteCommand;
}

bool TEntryEdit::IsEmpty() const {
  return !HasPlatformValues() && !Required && !Condition && AddPlatforms.empty() &&
         RemovePlatforms.empty();
}

void ApplyEdit(const TEntryEdit& edit, deployment::IProjectDeploymentFile& file,
               const std::vector<std::string>& platforms) {
  CheckPlatformStays(edit, file);
  if (edit.Required)
    file.SetRequired(*edit.Required);
  if (edit.Condition)
    file.SetCondition(*edit.Condition);
  for (const std::string& platform : edit.AddPlatforms)
    file.GetFileData(platform, /*create=*/true);
  if (edit.HasPlatformValues()) {
    for (const std::string& platform : platforms)
      ApplyToPlatform(edit, file, platform);
  }
  for (const std::string& platform : edit.RemovePlatforms)
    file.RemovePlatform(platform);
}

} // namespace workbench
