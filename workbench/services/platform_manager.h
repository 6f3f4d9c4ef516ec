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
  /// Every personality can build for every platform of the table, and for what one of its projects
  /// is set up for, as long as that is the one at hand.
  std::vector<std::string> AvailablePlatforms(std::string_view /*personality*/) const override {
    std::vector<std::string> names = FTable.Names();
    names.insert(names.end(), FFurther.begin(), FFurther.end());
    return names;
  }

  /// Work for a project that may be built for platforms beyond the table, while it stands.
  class TProjectWork {
  public:
    /// The manager must outlive the object; names of the table count once.
    TProjectWork(TPlatformManager& manager, const std::vector<std::string>& platforms)
        : FManager(manager) {
      for (const std::string& name : platforms) {
        if (!FManager.FindPlatform(name))
          FManager.FFurther.push_back(name);
      }
    }
    ~TProjectWork() { FManager.FFurther.clear(); }
    TProjectWork(const TProjectWork&) = delete;
    TProjectWork& operator=(const TProjectWork&) = delete;

  private:
    TPlatformManager& FManager;
  };

  THostEvent<deployment::ICustomProject&, std::string_view>& PlatformAdded() override {
    return FPlatformAdded;
  }
  THostEvent<deployment::ICustomProject&, std::string_view>& PlatformRemoved() override {
    return FPlatformRemoved;
  }

private:
  const TPlatformTable& FTable;
  std::vector<std::string> FFurther;
  THostEvent<deployment::ICustomProject&, std::string_view> FPlatformAdded;
  THostEvent<deployment::ICustomProject&, std::string_view> FPlatformRemoved;
};

} // namespace workbench
