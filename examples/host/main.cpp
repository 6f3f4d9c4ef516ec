// A host in one file: it loads the installed package, opens a project that it holds in memory, and
// prints the list of files that go to each platform.
#include "memory_node.h"

#include <dlfcn.h>
#include <iostream>
#include <map>
#include <package/host/api/ideservices.h>
#include <package/host/api/package.h>
#include <stdexcept>

using namespace deployment;

namespace {

// What this host has no answer for. The package asks such a service when a person asks for what
// needs it, such as a side file, and not to open a project.
[[noreturn]] void NotHere(const char* service) {
  throw TInputError(std::string("this host has no ") + service);
}

template <class... TArguments>
class TEvent final : public IHostEvent<TArguments...> {
public:
  TEventHandle Subscribe(std::function<void(TArguments...)> handler) override {
    FHandlers.emplace(++FLast, std::move(handler));
    return FLast;
  }
  void Unsubscribe(TEventHandle handle) override { FHandlers.erase(handle); }
  void Raise(TArguments... arguments) {
    for (const auto& each : std::map(FHandlers))
      each.second(arguments...);
  }

private:
  std::map<TEventHandle, std::function<void(TArguments...)>> FHandlers;
  TEventHandle FLast = 0;
};

// A project that stands in memory, with one configuration and two platforms.
class TProject final : public IOTAProject {
public:
  TMemoryNode Section{"Deployment"};

  std::string GetFileName() const override { return "C:\\work\\Clock\\Clock.vproj"; }
  bool IsProjectModule() const override { return true; }
  bool IsWithoutDeployment() const override { return false; }
  ICustomProject* GetProject() override { return this; }
  int AddNotifier(std::shared_ptr<IOTAModuleNotifier> notifier) override {
    FNotifiers.emplace(++FLast, std::move(notifier));
    return FLast;
  }
  void RemoveNotifier(int index) override { FNotifiers.erase(index); }
  void AttachHandler(std::shared_ptr<IModuleHandler> handler) override {
    FHandlers.push_back(std::move(handler));
  }
  IProjectDeployment* GetProjectDeployment() const override {
    return FHandlers.empty() ? nullptr : FHandlers.front()->GetProjectDeployment();
  }
  // Listeners are told before the handlers go.
  void Close() {
    for (const auto& each : std::map(FNotifiers))
      each.second->Destroyed();
    FHandlers.clear();
  }

  std::string GetProjectFileName() const override { return GetFileName(); }
  std::string GetModuleName() const override { return "Clock"; }
  std::string GetBaseName(std::string_view, std::string_view) const override { return "Clock"; }
  std::string GetPersonality() const override { return "Ardent.Personality"; }
  std::string GetApplicationType(std::string_view, std::string_view) const override { return {}; }
  std::string GetFrameworkType() const override { return {}; }
  std::string GetProjectOption(std::string_view) const override { return {}; }
  std::string GetCurrentPlatform() const override { return "Win32"; }
  std::string GetCurrentConfiguration() const override { return "Base"; }
  std::string GetOutputFileName(std::string_view, std::string_view) const override { return {}; }
  std::string GetOutputKind(std::string_view, std::string_view) const override { return {}; }
  std::string GetNothingToDeploy(std::string_view, std::string_view) const override { return {}; }
  std::vector<std::string> GetCompleteFileList(std::string_view, std::string_view) const override {
    return {};
  }
  bool GetModified() const override { return false; }
  void SetModified(bool) override {} // nothing is saved here
  IOTAProjectOptionsConfigurations* GetOptionsConfigurations() override { return nullptr; }
  IOTAProjectPlatforms* GetProjectPlatforms() override { return nullptr; }
  IPlatformOptions* GetPlatformOptions() override { return nullptr; }
  IBuildOptions* GetBuildOptions() override { return nullptr; }
  ICorvaneCompilerOptions* GetCorvaneCompilerOptions() override { return nullptr; }
  IProjectBuildNames* GetBuildNames() override { return nullptr; }

private:
  std::map<int, std::shared_ptr<IOTAModuleNotifier>> FNotifiers;
  int FLast = 0;
  std::vector<std::shared_ptr<IModuleHandler>> FHandlers;
};

// The chain through which the package attaches itself to a module that is opened, and the storage
// through which it is handed its section.
class TOpening final : public IModuleHandlerGauntlet, public IOTAProjectFileStorage {
public:
  void AddHandler(std::shared_ptr<IModuleGauntletHandler> handler, int) override {
    FHandlers.push_back(std::move(handler));
  }
  void RemoveHandler(const IModuleGauntletHandler& handler) override {
    std::erase_if(FHandlers, [&](const auto& each) { return each.get() == &handler; });
  }
  int AddNotifier(std::shared_ptr<IOTAProjectFileStorageNotifier> notifier) override {
    FOwners.push_back(std::move(notifier));
    return static_cast<int>(FOwners.size()) - 1;
  }
  void RemoveNotifier(int) override { FOwners.clear(); } // the package has one section
  IXMLNode* GetProjectStorageNode(IOTAModule& module, std::string_view) override {
    return &dynamic_cast<TProject&>(module).Section;
  }
  IXMLNode& AddNewSection(IOTAModule&, std::string_view) override { NotHere("empty project"); }

  void Open(TProject& project) const {
    for (const auto& handler : FHandlers)
      handler->AttachHandler(project);
    for (const auto& owner : FOwners)
      owner->ProjectLoaded(project, &project.Section);
  }
  void Close(TProject& project) const {
    for (const auto& owner : FOwners)
      owner->ProjectClosing(project);
    project.Close();
  }

private:
  std::vector<std::shared_ptr<IModuleGauntletHandler>> FHandlers;
  std::vector<std::shared_ptr<IOTAProjectFileStorageNotifier>> FOwners;
};

// The services. Of platforms this host knows no more than their names.
class THost final : public VelmorIDEServices,
                    public IIDEEvents,
                    public IPlatformManager,
                    public IProjectFileUtils,
                    public IOTAMessageServices {
public:
  TOpening Opening;

  TEvent<>& MainFormCreated() override { return FCreated; }
  const IPlatform* FindPlatform(std::string_view) const override { return nullptr; }
  std::vector<std::string> AvailablePlatforms(std::string_view) const override {
    return {"Win32", "Android"};
  }
  TEvent<ICustomProject&, std::string_view>& PlatformAdded() override { return FPlatforms; }
  TEvent<ICustomProject&, std::string_view>& PlatformRemoved() override { return FPlatforms; }
  void AddWarning(std::string_view text, const TErrorPlace& place) override {
    std::cerr << place.File << ": warning: " << text << '\n';
  }

  std::shared_ptr<IMSBuildProjectDocument> MSBuildLoadProjectDocument(std::string_view) override {
    NotHere("templates");
  }
  void EnsureImport(ICustomProject&, std::string_view, std::string_view) override {} // no builds

  IIDEEvents& GetEvents() override { return *this; }
  IProjectFileUtils& GetProjectFileUtils() override { return *this; }
  IPlatformManager& GetPlatformManager() override { return *this; }
  IOTAMessageServices& GetMessageServices() override { return *this; }
  IModuleHandlerGauntlet& GetModuleHandlerGauntlet() override { return Opening; }
  IOTAProjectFileStorage& GetProjectFileStorage() override { return Opening; }
  IXMLDocuments& GetXMLDocuments() override { NotHere("XML files"); }
  IMacroUtils& GetMacroUtils() override { NotHere("macros"); }
  IFileUtils& GetFileUtils() override { NotHere("files"); }
  IAppStrings& GetAppStrings() override { NotHere("installation"); }
  ISettingsStore& GetSettings() override { NotHere("settings"); }
  std::unique_ptr<ICoExpertFilter> CreateTextFilter() override { NotHere("templates"); }
  IOTAPersonalityServices* GetPersonalityServices() override { return nullptr; }
  IPlatformSDKServices* GetSDKServices() override { return nullptr; }
  IAndroidToolServices* GetAndroidToolServices() override { return nullptr; }
  IModalForms* GetModalForms() override { return nullptr; }
  IOTARemoteProfileServices* GetRemoteProfileServices() override { return nullptr; }
  IProjectEvents* GetProjectEvents() override { return nullptr; }
  IOTAEditorViewServices* GetEditorViewServices() override { return nullptr; }
  IOTAExtensions* GetExtensions() override { return nullptr; }

private:
  TEvent<> FCreated;
  TEvent<ICustomProject&, std::string_view> FPlatforms;
};

// The module stays loaded to the end: what the package throws is made of its code.
std::unique_ptr<IPackage> LoadPackage(VelmorIDEServices& host, const char* file) {
  void* module = ::dlopen(file, RTLD_NOW | RTLD_LOCAL);
  if (!module)
    throw std::runtime_error(::dlerror());
  const auto create = reinterpret_cast<TCreatePackage>(::dlsym(module, CreatePackageName));
  const auto version = reinterpret_cast<TGetPackageVersion>(::dlsym(module, PackageVersionName));
  std::unique_ptr<IPackage> package;
  if (!create || !version || !create(host, PackageInterfaceVersion, package))
    throw std::runtime_error("the package is of another version than this host");
  std::cout << "package " << version().Release << ", interface " << version().Interface << '\n';
  return package;
}

void AddEntry(TMemoryNode& section, const char* name, const char* platform, const char* directory) {
  TMemoryNode& entry = section.AddChild("DeployFile");
  entry.SetAttribute("LocalName", name);
  entry.SetAttribute("Class", "File");
  TMemoryNode& record = entry.AddChild("Platform");
  record.SetAttribute("Name", platform);
  record.AddChild("RemoteDir").SetText(directory);
}

void PrintList(IProjectDeployment& deployment) {
  for (const auto& file : deployment.GetFiles()) {
    std::cout << file->GetLocalName() << " [" << file->GetDeploymentClass() << "]";
    for (const std::string& platform : file->GetPlatforms())
      std::cout << "  " << platform << '=' << file->GetRemoteDir(platform)
                << file->GetRemoteName(platform);
    std::cout << '\n';
  }
}

void Run(const char* module) {
  THost host;
  const std::unique_ptr<IPackage> package = LoadPackage(host, module);
  package->Start();
  package->IDERegister();
  host.MainFormCreated().Raise();

  TProject project;
  project.Section.SetAttribute("Version", "2");
  AddEntry(project.Section, "art\\face.png", "Win32", "art\\");
  AddEntry(project.Section, "art\\face.png", "Android", "assets\\internal\\");
  AddEntry(project.Section, "data\\zones.txt", "Win32", "data\\");
  host.Opening.Open(project);
  PrintList(*project.GetProjectDeployment());
  host.Opening.Close(project);
  package->Stop();
}

} // namespace

int main(int argc, char** argv) {
  try {
    Run(argc > 1 ? argv[1] : PACKAGE_MODULE);
    return 0;
  } catch (const std::exception& error) {
    std::cerr << "example-host: " << error.what() << '\n';
    return 1;
  }
}
