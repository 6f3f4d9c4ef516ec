#include "package/host/api/deploymentapi.h"

namespace deployment {
namespace {

using TGetCommands = TCommandList* (IProjectDeploymentItem::*)(std::string_view);

TCommandList EffectiveCommands(IProjectDeploymentFile& file, std::string_view platform,
                               const IDeploymentClassList& classes, TGetCommands getCommands) {
  const TCommandList* commands = (file.*getCommands)(platform);
  if (commands && !commands->empty())
    return *commands;
  const auto fileClass = classes.FindClass(file.GetDeploymentClass());
  const TCommandList* classCommands = fileClass ? ((*fileClass).*getCommands)(platform) : nullptr;
  return classCommands ? *classCommands : TCommandList();
}

} // namespace

std::string GetDeploymentRemoteDir(const IProjectDeploymentFile& file, std::string_view platform,
                                   const IDeploymentClassList& classes) {
  const std::string& own = file.GetRemoteDir(platform);
  if (!own.empty())
    return own;
  const auto fileClass = classes.FindClass(file.GetDeploymentClass());
  return fileClass ? fileClass->GetRemoteDir(platform) : std::string();
}

TDeployOperation GetDeploymentOperation(const IProjectDeploymentFile& file,
                                        std::string_view platform,
                                        const IDeploymentClassList& classes) {
  const TDeployOperation own = file.GetOperation(platform);
  if (own != TDeployOperation::Default)
    return own;
  const auto fileClass = classes.FindClass(file.GetDeploymentClass());
  return fileClass ? fileClass->GetOperation(platform) : own;
}

bool GetDeploymentRequired(const IProjectDeploymentFile& file,
                           const IDeploymentClassList& classes) {
  if (file.GetRequired())
    return true;
  const auto fileClass = classes.FindClass(file.GetDeploymentClass());
  return fileClass && fileClass->GetRequired();
}

TCommandList GetDeploymentLocalCommands(IProjectDeploymentFile& file, std::string_view platform,
                                        const IDeploymentClassList& classes) {
  return EffectiveCommands(file, platform, classes, &IProjectDeploymentItem::GetLocalCommands);
}

TCommandList GetDeploymentRemoteCommands(IProjectDeploymentFile& file, std::string_view platform,
                                         const IDeploymentClassList& classes) {
  return EffectiveCommands(file, platform, classes, &IProjectDeploymentItem::GetRemoteCommands);
}

} // namespace deployment
