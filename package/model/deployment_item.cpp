#include "package/model/deployment_item.h"

#include "package/common/case_fold.h"

#include <algorithm>

namespace deployment {

const std::string& EmptyText() {
  static const std::string Empty;
  return Empty;
}

std::vector<std::string> TDeploymentItem::GetPlatforms() const {
  std::vector<std::string> names;
  names.reserve(FPlatforms.Count());
  for (const auto& pair : FPlatforms)
    names.push_back(pair.Key);
  return names;
}

void TDeploymentItem::RemovePlatform(std::string_view platform) {
  if (FPlatforms.Remove(platform))
    Modified();
}

void TDeploymentItem::SetCondition(std::string_view value) {
  Store(FCondition, value);
}

void TDeploymentItem::SetRequired(bool value) {
  Store(FRequired, value);
}

const std::string& TDeploymentItem::GetRemoteDir(std::string_view platform) const {
  const TDeployData* data = GetData(platform);
  return data ? data->RemoteDir : EmptyText();
}

void TDeploymentItem::SetRemoteDir(std::string_view platform, std::string_view value) {
  Store(GetData(platform, /*create=*/true)->RemoteDir, value);
}

TDeployOperation TDeploymentItem::GetOperation(std::string_view platform) const {
  const TDeployData* data = GetData(platform);
  return data ? data->Operation : TDeployOperation::Default;
}

void TDeploymentItem::SetOperation(std::string_view platform, TDeployOperation value) {
  Store(GetData(platform, /*create=*/true)->Operation, value);
}

TCommandList* TDeploymentItem::GetLocalCommands(std::string_view platform) {
  TDeployData* data = GetData(platform, /*create=*/false);
  return data ? &data->LocalCommands : nullptr;
}

TCommandList* TDeploymentItem::GetRemoteCommands(std::string_view platform) {
  TDeployData* data = GetData(platform, /*create=*/false);
  return data ? &data->RemoteCommands : nullptr;
}

TDeployData* TDeploymentItem::GetData(std::string_view platform, bool create) {
  const auto* found = FPlatforms.Find(platform);
  if (!found && create)
    found = &FPlatforms.Set(platform, CreateData());
  if (!found)
    found = FPlatforms.Find(FallbackPlatform);
  return found ? found->get() : nullptr;
}

const TDeployData* TDeploymentItem::GetData(std::string_view platform) const {
  const auto* found = FPlatforms.Find(platform);
  if (!found)
    found = FPlatforms.Find(FallbackPlatform);
  return found ? found->get() : nullptr;
}

bool TDeploymentItem::HasPlatform(std::string_view platform) const {
  return std::any_of(FPlatforms.begin(), FPlatforms.end(),
                     [&](const auto& pair) { return SameText(pair.Key, platform); });
}

std::unique_ptr<TDeployData> TDeploymentItem::CreateData() const {
  return std::make_unique<TDeployData>();
}

void TDeploymentItem::Modified() {
  if (FOwner)
    FOwner->ItemModified(*this);
}

} // namespace deployment
