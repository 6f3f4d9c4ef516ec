// For tests of the questions about entries and targets: a project with a deployment, and profiles.
#pragma once

#include "tests/package/view/memory_profiles.h"
#include "tests/package/view/recording_deployment.h"
#include "tests/support/memory_host.h"
#include "tests/support/memory_project.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

class EntryWorld : public testing::Test {
protected:
  EntryWorld() {
    Host.ProfileServices = &Profiles;
    Host.PlatformManager.Add({"Win32", "Android"});
    Module->Platforms.Supported = {"Win32", "Android"};
    Module->Options.Base.Platforms = {"Win32", "Android"};
    Module->Options.Debug.Platforms = {"Win32", "Android"};
  }

  /// An entry of class "File" with an enabled record of its own for each platform.
  IProjectDeploymentFile& Add(std::string_view localName, std::string_view configuration = "Debug",
                              const std::vector<std::string>& platforms = {"Win32"}) {
    const auto file =
        Deployment.Real.AddFile(configuration, platforms.empty() ? "" : platforms[0], localName);
    for (const std::string& platform : platforms)
      file->SetEnabled(platform, true);
    file->SetDeploymentClass("File");
    return *file;
  }

  TMemoryHost Host;
  TMemoryProfiles Profiles;
  std::shared_ptr<TMemoryProject> Module = std::make_shared<TMemoryProject>();
  TRecordingDeployment Deployment{*Module, Host};
};

} // namespace deployment
