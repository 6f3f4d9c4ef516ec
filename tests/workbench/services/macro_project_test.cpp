#include "workbench/services/macro_utils.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace workbench {
namespace {

using namespace deployment;

// A project whose only option is "OutputDir", set for Release on Android.
class TProject : public ICustomProject, public IOTAProjectOptionsConfigurations {
public:
  IProjectDeployment* GetProjectDeployment() const override { return nullptr; }
  std::string GetProjectFileName() const override { return "/home/ada/demo.vproj"; }
  std::string GetModuleName() const override { return "demo"; }
  std::string GetBaseName(std::string_view /*configuration*/,
                          std::string_view /*platform*/) const override {
    return "demo";
  }
  std::string GetPersonality() const override { return "Ardent.Personality"; }
  std::string GetApplicationType(std::string_view, std::string_view) const override { return {}; }
  std::string GetNothingToDeploy(std::string_view, std::string_view) const override { return {}; }
  std::string GetFrameworkType() const override { return {}; }
  std::string GetProjectOption(std::string_view) const override { return {}; }
  std::string GetCurrentPlatform() const override { return "Android"; }
  std::string GetCurrentConfiguration() const override { return "Release"; }
  std::string GetOutputFileName(std::string_view, std::string_view) const override { return {}; }
  std::string GetOutputKind(std::string_view /*configuration*/,
                            std::string_view /*platform*/) const override {
    return {};
  }
  std::vector<std::string> GetCompleteFileList(std::string_view, std::string_view) const override {
    return {};
  }
  bool GetModified() const override { return false; }
  void SetModified(bool) override {}
  IOTAProjectOptionsConfigurations* GetOptionsConfigurations() override { return this; }
  IOTAProjectPlatforms* GetProjectPlatforms() override { return nullptr; }
  IPlatformOptions* GetPlatformOptions() override { return nullptr; }
  IBuildOptions* GetBuildOptions() override { return nullptr; }
  ICorvaneCompilerOptions* GetCorvaneCompilerOptions() override { return nullptr; }
  IProjectBuildNames* GetBuildNames() override { return nullptr; }

  std::vector<const IOTABuildConfiguration*> GetConfigurations() const override { return {}; }
  const IOTABuildConfiguration& GetBaseConfiguration() const override {
    throw std::logic_error("not asked by these tests");
  }
  std::string GetOptionValue(std::string_view configuration, std::string_view platform,
                             std::string_view option) const override {
    const bool isSet = configuration == "Release" && platform == "Android" && option == "OutputDir";
    return isSet ? "out" : "";
  }
  std::string GetBaseProperty(std::string_view) const override { return {}; }
  void SetBaseProperty(std::string_view, std::string_view) override {}
};

TEST(MacroUtils, ExpandsTheMacrosThatAProjectHasForATarget) {
  const TMacroUtils macros("/opt/root");
  TProject project;
  EXPECT_EQ(macros.ExpandRootMacro("$(ZELK)\\$(platform)\\$(Config)\\$(CONFIGURATION)\\x", project,
                                   "Release", "Android"),
            "\\opt\\root\\Android\\Release\\Release\\x");
  EXPECT_EQ(macros.ExpandRootMacro("$(OutputDir)\\$(Unknown)", project, "Release", "Android"),
            "out\\$(Unknown)");
}

} // namespace
} // namespace workbench
