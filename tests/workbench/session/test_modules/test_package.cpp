// A package that notes the steps of its life in the history "package" of the settings store.
#include "package/host/api/package.h"

namespace {

class TTestPackage : public deployment::IPackage {
public:
  explicit TTestPackage(deployment::VelmorIDEServices& host) : FHost(host) {}
  ~TTestPackage() override { FHost.GetSettings().AddToHistory("package", "destroyed"); }
  void Start() override { FHost.GetSettings().AddToHistory("package", "started"); }
  void IDERegister() override { FHost.GetSettings().AddToHistory("package", "registered"); }
  std::string BaseRegKey() const override { return {}; }
  void Stop() override { FHost.GetSettings().AddToHistory("package", "stopped"); }

private:
  deployment::VelmorIDEServices& FHost;
};

} // namespace

extern "C" __attribute__((visibility("default"))) bool
CreateDeploymentPackage(deployment::VelmorIDEServices& host, std::uint32_t interfaceVersion,
                        std::unique_ptr<deployment::IPackage>& package) {
  if (interfaceVersion != deployment::PackageInterfaceVersion)
    return false;
  package = std::make_unique<TTestPackage>(host);
  return true;
}
