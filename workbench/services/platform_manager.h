// The platform table as the package asks for it.
#pragma once

#include "package/host/api/platforms.h"
#include "workbench/platforms/platform_table.h"
#include "workbench/services/host_event.h"

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// The table must outlive it.
class TPlatformManager final : public deployment::IPlatformManager {
public:
  explicit TPlatformManager(const TPlatformTable& table) : FTable(table) {}

  const deployment::IPlatform* FindPlatform(std::string_view name) const override {
    return FTable.FindPlatform(name);
  }
  /// Every personality can build for every platform of the table.
  std::vector<std::string> AvailablePlatforms(std::string_view /*personality*/) const override {
    return FTable.Names();
  }
  THostEvent<deployment::ICustomProject&, std::string_view>& PlatformAdded() override {
    return FPlatformAdded;
  }
  THostEvent<deployment::ICustomProject&, std::string_view>& PlatformRemoved() override {
    return FPlatformRemoved;
  }

private:
  const TPlatformTable& FTable;
  THostEvent<deployment::ICustomProject&, std::string_view> FPlatformAdded;
  THostEvent<deployment::ICustomProject&, std::string_view> FPlatformRemoved;
};

} // namespace workbench
