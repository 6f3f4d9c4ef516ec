// For tests of reconciliation: a project with its deployment in a host that knows seven platforms,
// and what a reconcile leaves as lines of text.
#pragma once

#include "package/model/deployment_module_handler.h"
#include "package/reconcile/deploy_module_reconciler.h"
#include "tests/support/memory_host.h"
#include "tests/support/memory_project.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace deployment {

/// Personalities with their services; a service can be taken away.
struct TMemoryPersonalities : IOTAPersonalityServices {
  struct TPackages : IPackageService {
    bool GetPackages(ICustomProject&, std::string_view, bool runtimePackages, bool recursive,
                     std::string_view, std::vector<std::string>& packages) const override {
      ++Asked;
      BothFlags = runtimePackages && recursive;
      packages = Names;
      return Answers;
    }
    std::vector<std::string> Names;
    bool Answers = true;
    mutable int Asked = 0;
    mutable bool BothFlags = false;
  };
  struct TSymbols : ISymbolService {
    std::string GetDebugSymbolExtension(const ICustomProject& /*project*/,
                                        std::string_view platform) const override {
      const auto found = Extensions.find(platform);
      return found == Extensions.end() ? std::string() : found->second;
    }
    std::map<std::string, std::string, std::less<>> Extensions;
  };
  struct TEnvironment : IEnvironmentService {
    std::string GetPathSetting(int setting, std::string_view platform) const override {
      const auto found = Paths.find({setting, std::string(platform)});
      return found == Paths.end() ? std::string() : found->second;
    }
    std::map<std::pair<int, std::string>, std::string> Paths;
  };

  IPackageService* GetPackageService(std::string_view personality) override {
    return Without.contains("packages") || personality.empty() ? nullptr : &Packages;
  }
  ISymbolService* GetSymbolService(std::string_view) override {
    return Without.contains("symbols") ? nullptr : &Symbols;
  }
  IEnvironmentService* GetEnvironmentService(std::string_view personality) override {
    return Without.contains(std::string("environment of ").append(personality))
               ? nullptr
               : &Environments[std::string(personality)];
  }

  TPackages Packages;
  TSymbols Symbols;
  std::map<std::string, TEnvironment> Environments;
  std::set<std::string, std::less<>> Without;
};

/// Kits by name, and the default ones by platform.
struct TMemorySDKs : IPlatformSDKServices {
  struct TKit : IAndroidSDK {
    std::string GetName() const override { return Name; }
    std::string GetPlatform() const override { return Platform; }
    std::string GetNDKBasePath() const override { return NDKBasePath; }
    std::string GetDebuggerServerPath() const override { return DebuggerServer; }
    std::string Name;
    std::string Platform = "Android";
    std::string NDKBasePath;
    std::string DebuggerServer;
  };

  const IPlatformSDK* FindSDK(std::string_view name) const override {
    const auto found = Kits.find(name);
    return found == Kits.end() ? nullptr : &found->second;
  }
  const IPlatformSDK* GetDefaultSDK(std::string_view platform) const override {
    const auto found = Defaults.find(platform);
    return found == Defaults.end() ? nullptr : FindSDK(found->second);
  }
  const IAndroidSDK* AsAndroidSDK(const IPlatformSDK& sdk) const override {
    return sdk.GetPlatform() == "Android" ? dynamic_cast<const IAndroidSDK*>(&sdk) : nullptr;
  }

  std::map<std::string, TKit, std::less<>> Kits;
  std::map<std::string, std::string, std::less<>> Defaults;
};

/// A deployment without a template.
struct TNoStorage : IDeploymentStorage {
  void ReadDefaultDeployment(ICustomProject&, IProjectDeployment& deployment) override {
    for (const auto& [name, directories] : Classes) {
      const auto deploymentClass = deployment.CreateClass();
      deploymentClass->SetClassId(name);
      for (const auto& [platform, directory] : directories)
        deploymentClass->SetRemoteDir(platform, directory);
      deployment.AddClass(deploymentClass);
    }
  }
  void WriteMSB(ICustomProject&, IProjectDeployment&) override {}

  std::map<std::string, std::map<std::string, std::string>> Classes; ///< directories by platform
};

/// What listeners hear, in words.
struct TChangeLog : IProjectDeploymentNotifier {
  void ItemChanged(IProjectDeploymentItem& item, TDeploymentItemAction action) override {
    constexpr const char* Words[] = {"added ", "modified ", "removed "};
    const auto* file = dynamic_cast<const IProjectDeploymentFile*>(&item);
    Lines.push_back(Words[static_cast<int>(action)] +
                    (file ? file->GetLocalName() : std::string("a class")));
  }
  void Loaded(std::string_view) override {}
  void Destroyed() override {}

  std::vector<std::string> Lines;
};

struct TReconcileJournal : IReconcileJournal {
  void Record(const TReconcileReason& reason) override { Reasons.push_back(reason); }
  std::vector<TReconcileReason> Reasons;
};

/// Debug and Release for seven platforms. The project is the application "App" in C:\work\App.
class TReconcileWorld {
public:
  TReconcileWorld();

  IProjectDeployment& Deployment() { return *Project.GetProjectDeployment(); }
  TReconcileResult Reconcile(std::string_view configuration, std::string_view platform) {
    return Deployment().Reconcile(configuration, platform);
  }
  /// Sets an option of a target; Debug where no configuration is named.
  void SetOption(std::string_view platform, std::string_view name, std::string_view value,
                 std::string_view configuration = "Debug");
  /// "Class | local name | directory | remote name" of the entries of a target, in order; behind
  /// them "off" for a disabled one. Remote values as stored.
  std::vector<std::string> Lines(std::string_view configuration, std::string_view platform);
  /// Those lines whose class starts with the text.
  std::vector<std::string> LinesOf(std::string_view className, std::string_view configuration,
                                   std::string_view platform);
  std::shared_ptr<IProjectDeploymentFile>
  Entry(std::string_view className, std::string_view configuration, std::string_view platform);
  void AddFile(const std::string& path) { Host.Files[path] = ""; }
  /// Runs the reconcile; what listeners hear.
  std::vector<std::string> ChangesOf(std::string_view configuration, std::string_view platform);
  TReconcileTarget Target(std::string_view platform, std::string_view configuration = "Debug") {
    return {Project, platform, configuration, Host};
  }

  TMemoryHost Host;
  TMemoryPersonalities Personalities;
  TMemorySDKs SDKs;
  struct : IAndroidToolServices {
  } AndroidTools;
  TNoStorage Storage;
  TMemoryProject Project; // last: it closes first

private:
  void AddPlatform(const char* name, bool mobile, const char* directory, const char* library,
                   const char* application);
};

} // namespace deployment
