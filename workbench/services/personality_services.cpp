#include "workbench/services/personality_services.h"

#include "workbench/services/project_module.h"
#include "workbench/settings/settings_store.h"

namespace workbench {
namespace {

constexpr std::string_view Ardent = "Ardent.Personality";
constexpr std::string_view Corvane = "Corvane.Personality";

// The packages that a project names in its settings.
class TPackageService final : public deployment::IPackageService {
public:
  bool GetPackages(deployment::ICustomProject& project, std::string_view configuration,
                   bool /*runtimePackages*/, bool /*recursive*/, std::string_view platform,
                   std::vector<std::string>& packages) const override {
    auto* module = dynamic_cast<TProjectModule*>(&project);
    if (!module)
      return false;
    packages = module->Settings().RuntimePackages(configuration, platform);
    return true;
  }
};

class TSymbolService final : public deployment::ISymbolService {
public:
  TSymbolService(const TPlatformTable& platforms, std::string_view personality)
      : FPlatforms(platforms), FPersonality(personality) {}

  std::string GetDebugSymbolExtension(const deployment::ICustomProject& project,
                                      std::string_view platform) const override {
    if (const auto* module = dynamic_cast<const TProjectModule*>(&project))
      return module->Settings().SymbolExtension(platform);
    const TPlatform* facts = FPlatforms.FindPlatform(platform);
    return facts ? facts->SymbolExtension(FPersonality) : std::string();
  }

private:
  const TPlatformTable& FPlatforms;
  const std::string FPersonality;
};

// Path settings of a personality are settings of the user.
class TEnvironmentService final : public deployment::IEnvironmentService {
public:
  explicit TEnvironmentService(const TSettings& settings) : FSettings(settings) {}

  std::string GetPathSetting(int setting, std::string_view platform) const override {
    constexpr int LibraryPath = 1;
    constexpr int ToolChainPath = 104;
    if (setting != LibraryPath && setting != ToolChainPath)
      return {};
    const std::string key = setting == LibraryPath ? "library-path." : "toolchain-path.";
    return FSettings.Get(key + std::string(platform)).value_or("");
  }

private:
  const TSettings& FSettings;
};

} // namespace

struct TPersonalityServices::TServices {
  TServices(std::string_view personality, const TPlatformTable& platforms,
            const TSettings& settings)
      : Symbols(platforms, personality), Environment(settings) {}

  TPackageService Packages;
  TSymbolService Symbols;
  TEnvironmentService Environment;
};

TPersonalityServices::TPersonalityServices(const TPlatformTable& platforms,
                                           const TSettings& settings)
    : FArdent(std::make_unique<TServices>(Ardent, platforms, settings)),
      FCorvane(std::make_unique<TServices>(Corvane, platforms, settings)) {}

TPersonalityServices::~TPersonalityServices() = default;

TPersonalityServices::TServices* TPersonalityServices::Find(std::string_view personality) {
  if (personality == Ardent)
    return FArdent.get();
  return personality == Corvane ? FCorvane.get() : nullptr;
}

deployment::IPackageService* TPersonalityServices::GetPackageService(std::string_view personality) {
  TServices* services = Find(personality);
  return services ? &services->Packages : nullptr;
}

deployment::ISymbolService* TPersonalityServices::GetSymbolService(std::string_view personality) {
  TServices* services = Find(personality);
  return services ? &services->Symbols : nullptr;
}

deployment::IEnvironmentService*
TPersonalityServices::GetEnvironmentService(std::string_view personality) {
  TServices* services = Find(personality);
  return services ? &services->Environment : nullptr;
}

} // namespace workbench
