#include "workbench/cli/entries/entry_text.h"

#include "package/common/delimited_list.h"

#include <array>

namespace workbench {
namespace {

std::string PlatformText(deployment::IProjectDeploymentFile& file, const std::string& platform) {
  const deployment::TFileData& data = *file.GetFileData(platform, /*create=*/false);
  std::string text = platform + "=" + data.RemoteDir;
  if (!data.RemoteDir.empty() && data.RemoteDir.back() != '\\' && data.RemoteDir.back() != '/')
    text += "\\";
  text += file.GetRemoteName(platform);
  if (!data.Enabled)
    text += " (off)";
  if (!data.Overwrite)
    text += " (kept when present)";
  if (data.Operation != deployment::TDeployOperation::Default)
    text += " (" + OperationName(data.Operation) + ")";
  return text;
}

} // namespace

std::string OperationName(deployment::TDeployOperation operation) {
  constexpr std::array<const char*, deployment::DeployOperationCount> Names{
      "copy", "copy-executable", "unpack", "run", "run-and-remove", "remove", "default"};
  return Names[static_cast<std::size_t>(operation)];
}

std::string FileLine(deployment::IProjectDeploymentFile& file, const TOutput& output) {
  const std::string configuration =
      file.GetConfiguration().empty() ? "every configuration" : file.GetConfiguration();
  std::string details = file.GetDeploymentClass() + ", " + configuration;
  if (file.GetRequired())
    details += ", required";
  if (!file.GetCondition().empty())
    details += ", if " + file.GetCondition();
  std::string line =
      output.Bold(Visible(file.GetLocalName())) + "  " + output.Dim("[" + Visible(details) + "]");
  for (const std::string& platform : file.GetPlatforms())
    line += "  " + Visible(PlatformText(file, platform));
  return line;
}

std::string ClassLine(deployment::IProjectDeploymentClass& deploymentClass, const TOutput& output) {
  std::string line = output.Bold(Visible(deploymentClass.GetClassId()));
  if (!deploymentClass.GetDescription().empty())
    line += "  " + Visible(deploymentClass.GetDescription());
  for (const std::string& platform : deploymentClass.GetPlatforms())
    line += "  " + output.Dim(Visible(platform + "=" + deploymentClass.GetRemoteDir(platform)));
  return line;
}

std::string EntryName(const deployment::IProjectDeploymentFile& file) {
  const std::string configuration =
      file.GetConfiguration().empty() ? "every configuration" : file.GetConfiguration();
  return file.GetLocalName() + " (" + configuration + "; " +
         deployment::JoinDelimited(file.GetPlatforms(), ", ") + ")";
}

} // namespace workbench
