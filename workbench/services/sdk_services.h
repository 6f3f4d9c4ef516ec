// The development kits that the user's settings describe.
#pragma once

#include "package/host/api/platformapi.h"

#include <map>
#include <memory>
#include <string>
#include <string_view>

namespace workbench {

class TSettings;

/// One kit is four settings: "sdk.NAME.platform", without which there is no such kit, and for
/// Android "sdk.NAME.ndk-base-path" and "sdk.NAME.debugger-server". "sdk-default.PLATFORM" names
/// the one that a platform uses by default. Kits live as long as the services.
class TSDKServices final : public deployment::IPlatformSDKServices {
public:
  /// The settings must outlive the object.
  explicit TSDKServices(const TSettings& settings);
  ~TSDKServices() override;

  const deployment::IPlatformSDK* FindSDK(std::string_view name) const override;
  const deployment::IPlatformSDK* GetDefaultSDK(std::string_view platform) const override;
  const deployment::IAndroidSDK* AsAndroidSDK(const deployment::IPlatformSDK& sdk) const override;

private:
  class TKit;

  const TSettings& FSettings;
  // By name; each reads its settings when it is asked.
  mutable std::map<std::string, std::unique_ptr<TKit>, std::less<>> FKits;
};

/// This host can serve Android programs; there is nothing to ask yet.
class TAndroidToolServices final : public deployment::IAndroidToolServices {};

} // namespace workbench
