// What this host knows about the languages that projects are written in: packages, symbols, paths.
#pragma once

#include "package/host/api/toolsapi.h"
#include "workbench/platforms/platform_table.h"

#include <memory>
#include <string>
#include <string_view>

namespace workbench {

class TSettings;

/// Serves both personalities; others have no services.
class TPersonalityServices final : public deployment::IOTAPersonalityServices {
public:
  /// Both must outlive the object.
  TPersonalityServices(const TPlatformTable& platforms, const TSettings& settings);
  ~TPersonalityServices() override;

  deployment::IPackageService* GetPackageService(std::string_view personality) override;
  deployment::ISymbolService* GetSymbolService(std::string_view personality) override;
  deployment::IEnvironmentService* GetEnvironmentService(std::string_view personality) override;

private:
  struct TServices;

  TServices* Find(std::string_view personality);

  std::unique_ptr<TServices> FArdent;
  std::unique_ptr<TServices> FCorvane;
};

} // namespace workbench
