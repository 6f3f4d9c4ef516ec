#include "package/view/target_values.h"

#include "package/host/api/platforms.h"
#include "package/host/api/target_entries.h"

#include <algorithm>
#include <vector>

namespace deployment::target_values {
namespace {

// The platforms that speak for all of them.
std::vector<std::string> OwnPlatforms(const IProjectDeploymentFile& file) {
  std::vector<std::string> platforms = file.GetPlatforms();
  std::erase(platforms, sAllPlatforms);
  return platforms;
}

template <class TSet>
void SetForEach(const IProjectDeploymentFile& file, std::string_view platform, TSet set) {
  if (platform != sAllPlatforms)
    return set(platform);
  for (const std::string& own : OwnPlatforms(file))
    set(std::string_view(own));
}

template <class TGet>
auto GetFromAll(const IProjectDeploymentFile& file, std::string_view platform, TGet get) {
  if (platform != sAllPlatforms)
    return get(platform);
  const std::vector<std::string> platforms = OwnPlatforms(file);
  if (platforms.empty())
    return get(platform);
  auto value = get(std::string_view(platforms.front()));
  const bool agree = std::all_of(platforms.begin() + 1, platforms.end(),
                                 [&](const std::string& own) { return get(own) == value; });
  return agree ? value : get(platform);
}

} // namespace

bool CanEdit(const IProjectDeploymentFile& file, std::string_view platform) {
  return platform == sAllPlatforms ? !OwnPlatforms(file).empty() : HoldsPlatform(file, platform);
}

bool GetEnabled(const IProjectDeploymentFile& file, std::string_view platform) {
  if (platform != sAllPlatforms)
    return file.GetEnabled(platform);
  const std::vector<std::string> platforms = OwnPlatforms(file);
  return !platforms.empty() &&
         std::all_of(platforms.begin(), platforms.end(),
                     [&](const std::string& own) { return file.GetEnabled(own); });
}

bool GetOverwrite(const IProjectDeploymentFile& file, std::string_view platform) {
  return GetFromAll(file, platform, [&](std::string_view each) { return file.GetOverwrite(each); });
}

std::string GetRemoteDir(const IProjectDeploymentFile& file, std::string_view platform,
                         const IDeploymentClassList& classes) {
  return GetFromAll(file, platform, [&](std::string_view each) {
    return GetDeploymentRemoteDir(file, each, classes);
  });
}

std::string GetRemoteName(const IProjectDeploymentFile& file, std::string_view platform) {
  return GetFromAll(file, platform,
                    [&](std::string_view each) { return file.GetRemoteName(each); });
}

void SetEnabled(IProjectDeploymentFile& file, std::string_view platform, bool value) {
  SetForEach(file, platform, [&](std::string_view each) { file.SetEnabled(each, value); });
}

void SetOverwrite(IProjectDeploymentFile& file, std::string_view platform, bool value) {
  SetForEach(file, platform, [&](std::string_view each) { file.SetOverwrite(each, value); });
}

void SetRemoteDir(IProjectDeploymentFile& file, std::string_view platform, std::string_view value) {
  SetForEach(file, platform, [&](std::string_view each) { file.SetRemoteDir(each, value); });
}

void SetRemoteName(IProjectDeploymentFile& file, std::string_view platform,
                   std::string_view value) {
  SetForEach(file, platform, [&](std::string_view each) { file.SetRemoteName(each, value); });
}

} // namespace deployment::target_values
