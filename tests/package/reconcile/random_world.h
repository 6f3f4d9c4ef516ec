// For tests of reconciliation: worlds made by chance, small enough that names meet each other
// often, and a host that can fail at any of its calls.
#pragma once

#include "tests/package/reconcile/reconcile_world.h"

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

/// Counts the questions that a host is asked, and fails at one of them.
class THostCalls {
public:
  /// Throws when the call is the one that is to fail.
  void Count() {
    ++FCount;
    if (FCount == FFailing)
      throw std::runtime_error("the host fails");
  }
  /// The call that fails from now on, counted from 1; 0 for none.
  void FailAt(std::size_t call) {
    FCount = 0;
    FFailing = call;
  }
  std::size_t Counted() const { return FCount; }

private:
  std::size_t FCount = 0;
  std::size_t FFailing = 0;
};

struct TFailingHost : TMemoryHost {
  explicit TFailingHost(THostCalls& calls) : Calls(calls) {}
  TMemoryPlatforms& GetPlatformManager() override {
    Calls.Count();
    return TMemoryHost::GetPlatformManager();
  }
  TMemoryMacroUtils& GetMacroUtils() override {
    Calls.Count();
    return TMemoryHost::GetMacroUtils();
  }
  TMemoryFileUtils& GetFileUtils() override {
    Calls.Count();
    return TMemoryHost::GetFileUtils();
  }
  TMemorySettings& GetSettings() override {
    Calls.Count();
    return TMemoryHost::GetSettings();
  }
  TMemoryMessages& GetMessageServices() override {
    Calls.Count();
    return TMemoryHost::GetMessageServices();
  }
  IOTAPersonalityServices* GetPersonalityServices() override {
    Calls.Count();
    return TMemoryHost::GetPersonalityServices();
  }
  IPlatformSDKServices* GetSDKServices() override {
    Calls.Count();
    return TMemoryHost::GetSDKServices();
  }
  IAndroidToolServices* GetAndroidToolServices() override {
    Calls.Count();
    return TMemoryHost::GetAndroidToolServices();
  }
  THostCalls& Calls;
};

struct TFailingProject : TMemoryProject {
  explicit TFailingProject(THostCalls& calls) : Calls(calls) {}
  std::string GetProjectFileName() const override {
    Calls.Count();
    return TMemoryProject::GetProjectFileName();
  }
  std::string GetBaseName(std::string_view configuration,
                          std::string_view platform) const override {
    Calls.Count();
    return TMemoryProject::GetBaseName(configuration, platform);
  }
  std::string GetPersonality() const override {
    Calls.Count();
    return TMemoryProject::GetPersonality();
  }
  std::string GetApplicationType(std::string_view configuration,
                                 std::string_view platform) const override {
    Calls.Count();
    return TMemoryProject::GetApplicationType(configuration, platform);
  }
  std::string GetOutputFileName(std::string_view configuration,
                                std::string_view platform) const override {
    Calls.Count();
    return TMemoryProject::GetOutputFileName(configuration, platform);
  }
  std::vector<std::string> GetCompleteFileList(std::string_view configuration,
                                               std::string_view platform) const override {
    Calls.Count();
    return TMemoryProject::GetCompleteFileList(configuration, platform);
  }
  IOTAProjectOptionsConfigurations* GetOptionsConfigurations() override {
    Calls.Count();
    return TMemoryProject::GetOptionsConfigurations();
  }
  IPlatformOptions* GetPlatformOptions() override {
    Calls.Count();
    return TMemoryProject::GetPlatformOptions();
  }
  IBuildOptions* GetBuildOptions() override {
    Calls.Count();
    return TMemoryProject::GetBuildOptions();
  }
  THostCalls& Calls;
};

/// A project whose settings and list are changed by chance.
class TRandomWorld {
public:
  explicit TRandomWorld(unsigned seed);

  IProjectDeployment& Deployment() { return *Project.GetProjectDeployment(); }
  /// Changes one thing: a setting of the project, a file on disk or an entry of the list.
  void Change();
  /// Every entry with everything that it says, in order.
  std::string Text();
  std::string AnyPlatform();
  std::string AnyConfiguration() { return OneOf({"Debug", "Debug", "Release"}); }
  bool Chance(unsigned percent) { return FRandom() % 100 < percent; }
  std::size_t Below(std::size_t limit) { return FRandom() % limit; }

  THostCalls Calls;
  TFailingHost Host{Calls};
  TMemoryPersonalities Personalities;
  TMemorySDKs SDKs;
  struct : IAndroidToolServices {
  } AndroidTools;
  TNoStorage Storage;
  TFailingProject Project{Calls}; // last: it closes first

private:
  std::string OneOf(std::initializer_list<const char*> texts) {
    return *(texts.begin() + FRandom() % texts.size());
  }
  std::string AnyName();
  void AddPlatforms();
  void SetAnyOption();
  void SetOutput();
  void SetProject();
  void SetPackages();
  void AddEntry();
  void EditEntry();

  std::mt19937 FRandom;
};

} // namespace deployment
