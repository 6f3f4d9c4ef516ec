#include "workbench/services/sdk_services.h"

#include "workbench/settings/settings_store.h"

namespace workbench {

class TSDKServices::TKit final : public deployment::IAndroidSDK {
public:
  TKit(std::string name, const TSettings& settings) : FName(std::move(name)), FSettings(settings) {}

  bool Exists() const { return !GetPlatform().empty(); }
  std::string GetName() const override { return FName; }
  std::string GetPlatform() const override { return Setting("platform"); }
  std::string GetNDKBasePath() const override { return Setting("ndk-base-path"); }
  std::string GetDebuggerServerPath() const override { return Setting("debugger-server"); }

private:
  std::string Setting(std::string_view what) const {
    return FSettings.Get(std::string("sdk.").append(FName).append(".").append(what)).value_or("");
  }

  const std::string FName;
  const TSettings& FSettings;
};

TSDKServices::TSDKServices(const TSettings& settings) : FSettings(settings) {}

TSDKServices::~TSDKServices() = default;

const deployment::IPlatformSDK* TSDKServices::FindSDK(std::string_view name) const {
  if (name.empty())
    return nullptr;
  auto found = FKits.find(name);
  if (found == FKits.end())
    found = FKits.emplace(name, std::make_unique<TKit>(std::string(name), FSettings)).first;
  return found->second->Exists() ? found->second.get() : nullptr;
}

const deployment::IPlatformSDK* TSDKServices::GetDefaultSDK(std::string_view platform) const {
  return FindSDK(FSettings.Get(std::string("sdk-default.").append(platform)).value_or(""));
}

const deployment::IAndroidSDK*
TSDKServices::AsAndroidSDK(const deployment::IPlatformSDK& sdk) const {
  return sdk.GetPlatform() == "Android" ? dynamic_cast<const TKit*>(&sdk) : nullptr;
}

} // namespace workbench
