// A host in memory for tests: every service is a struct of plain containers, and what was asked is
// kept where order matters.
#pragma once

#include "package/host/api/ideservices.h"
#include "tests/support/memory_project.h"
#include "tests/support/memory_xml.h"

#include <map>
#include <memory>
#include <set>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace deployment {

/// Texts of files by path. Documents that are saved end up here too.
using TMemoryFiles = std::map<std::string, std::string, std::less<>>;

/// An event with its handlers.
template <class... TArguments>
class TMemoryEvent : public IHostEvent<TArguments...> {
public:
  using THandler = typename IHostEvent<TArguments...>::THandler;

  TEventHandle Subscribe(THandler handler) override {
    Handlers.emplace(++FLast, std::move(handler));
    return FLast;
  }
  void Unsubscribe(TEventHandle handle) override {
    Handlers.erase(handle);
    if (OnUnsubscribe)
      OnUnsubscribe();
  }

  void Raise(TArguments... arguments) {
    const auto snapshot = Handlers;
    for (const auto& [handle, handler] : snapshot) {
      if (Handlers.count(handle))
        handler(arguments...);
    }
  }

  std::map<TEventHandle, THandler> Handlers;
  std::function<void()> OnUnsubscribe;

private:
  TEventHandle FLast = 0;
};

class TMemoryIDEEvents : public IIDEEvents {
public:
  TMemoryEvent<>& MainFormCreated() override { return Created; }
  TMemoryEvent<> Created;
};

/// The chain of module handlers; Open plays the opening of a module.
class TMemoryGauntlet : public IModuleHandlerGauntlet {
public:
  void AddHandler(std::shared_ptr<IModuleGauntletHandler> handler, int priority) override;
  void RemoveHandler(const IModuleGauntletHandler& handler) override;
  void Open(IOTAModule& module);

  std::vector<std::pair<int, std::shared_ptr<IModuleGauntletHandler>>> Members;
};

/// Sections of TMemoryProject modules.
class TMemoryFileStorage : public IOTAProjectFileStorage {
public:
  int AddNotifier(std::shared_ptr<IOTAProjectFileStorageNotifier> notifier) override;
  void RemoveNotifier(int index) override;
  IXMLNode* GetProjectStorageNode(IOTAModule& projectOrGroup, std::string_view name) override;
  IXMLNode& AddNewSection(IOTAModule& projectOrGroup, std::string_view name) override;

  std::vector<std::shared_ptr<IOTAProjectFileStorageNotifier>> Notifiers; ///< removed: null
};

/// An MSBuild document that prints as <Project><ItemGroup Condition=""><Item Include="">...
class TMemoryMSBuildDocument : public IMSBuildProjectDocument {
public:
  explicit TMemoryMSBuildDocument(TMemoryFiles& files) : FFiles(files) {}
  IMSBuildItemGroup& AddItemGroup(std::string_view condition) override;
  void SaveToFile(std::string_view fileName) override;

private:
  class TItem;
  class TGroup;

  TMemoryFiles& FFiles;
  TMemoryXMLNode FRoot{"Project"};
  std::vector<std::shared_ptr<TGroup>> FGroups;
};

/// Imports and templates. Loading a template asks for a file that exists.
class TMemoryProjectFileUtils : public IProjectFileUtils {
public:
  explicit TMemoryProjectFileUtils(TMemoryFiles& files) : FFiles(files) {}
  std::shared_ptr<IMSBuildProjectDocument>
  MSBuildLoadProjectDocument(std::string_view fileName) override;
  void EnsureImport(ICustomProject& project, std::string_view import,
                    std::string_view condition) override;

  std::vector<std::string> LoadedTemplates;
  std::vector<std::pair<std::string, std::string>> Imports; ///< import and condition, per call

private:
  TMemoryFiles& FFiles;
};

/// Files exist when they have a text. Relative paths are taken against directories as text.
class TMemoryFileUtils : public IFileUtils {
public:
  explicit TMemoryFileUtils(TMemoryFiles& files) : FFiles(files) {}
  bool FileExists(std::string_view path) const override;
  TImageWidth IsImage64Bit(std::string_view path) const override;
  std::string DescribeImage(std::string_view path) const override;
  std::string QualifyPath(std::string_view path, std::string_view baseFile) const override;
  std::string MakeAbsolutePath(std::string_view path, std::string_view directory) const override;
  std::string MakeRelativePath(std::string_view path, std::string_view directory) const override;
  std::string GetEnvironmentVariable(std::string_view name) const override;

  std::map<std::string, TImageWidth, std::less<>> ImageWidths;
  std::map<std::string, std::string, std::less<>> Environment;

private:
  TMemoryFiles& FFiles;
};

struct TMemoryPlatform : IPlatform {
  std::string GetName() const override { return Name; }
  bool IsMobile() const override { return Mobile; }
  std::string GetDefaultRemoteDir() const override { return DefaultRemoteDir; }
  std::string GetOutputPrefix(std::string_view kind) const override {
    return Named(Prefixes, kind);
  }
  std::string GetOutputExtension(std::string_view kind) const override {
    return Named(Extensions, kind);
  }
  bool RequiresProfile(std::string_view) const override { return NeedsProfile; }
  bool PersonalityRequiresProfile(std::string_view personality) const override {
    return PersonalityWithProfile == personality;
  }

  std::string Name;
  bool Mobile = false;
  bool NeedsProfile = false;
  std::string PersonalityWithProfile; ///< the one whose projects need a profile here
  std::string DefaultRemoteDir;
  std::map<std::string, std::string, std::less<>> Prefixes;   ///< by kind of output
  std::map<std::string, std::string, std::less<>> Extensions; ///< by kind of output

private:
  static std::string Named(const std::map<std::string, std::string, std::less<>>& names,
                           std::string_view kind) {
    const auto found = names.find(kind);
    return found == names.end() ? std::string() : found->second;
  }
};

/// The same platforms for every personality, in the order of the list.
class TMemoryPlatforms : public IPlatformManager {
public:
  const IPlatform* FindPlatform(std::string_view name) const override;
  std::vector<std::string> AvailablePlatforms(std::string_view personality) const override;
  TMemoryEvent<ICustomProject&, std::string_view>& PlatformAdded() override { return Added; }
  TMemoryEvent<ICustomProject&, std::string_view>& PlatformRemoved() override { return Removed; }

  /// Appends platforms by name.
  void Add(std::initializer_list<std::string_view> names);

  std::vector<TMemoryPlatform> Platforms;
  TMemoryEvent<ICustomProject&, std::string_view> Added;
  TMemoryEvent<ICustomProject&, std::string_view> Removed;
};

/// Expands "$(ZELK)" to Root; ExpandMacros knows the given parameters only.
class TMemoryMacroUtils : public IMacroUtils {
public:
  std::string ExpandMacros(std::string_view text, std::string_view parameters) const override;
  std::string ExpandRootMacro(std::string_view text, std::string_view parameters) const override;
  std::string ExpandRootMacro(std::string_view text, ICustomProject& project,
                              std::string_view configuration,
                              std::string_view platform) const override;

  std::string Root = R"(C:\ide)";
};

class TMemoryAppStrings : public IAppStrings {
public:
  std::string fnRootDir() const override { return RootDir; }
  std::string rkBaseRegKey() const override { return "Software\\Test"; }
  std::string CoreProductName() const override { return "Test"; }
  std::string GetLocaleFile(std::string_view fileName) const override;

  std::string RootDir = R"(C:\ide)";
  std::map<std::string, std::string, std::less<>> LocaleFiles;
};

class TMemorySettings : public ISettingsStore {
public:
  bool ReadBool(std::string_view section, std::string_view key, bool byDefault) const override;
  void WriteBool(std::string_view section, std::string_view key, bool value) override;
  std::vector<std::string> ReadHistory(std::string_view name) const override;
  void AddToHistory(std::string_view name, std::string_view text) override;

  std::map<std::string, bool> Booleans; ///< by "section/key"
  std::map<std::string, std::vector<std::string>> Histories;
};

/// Warnings as they came.
class TMemoryMessages : public IOTAMessageServices {
public:
  void AddWarning(std::string_view text, const TErrorPlace& place) override {
    Warnings.emplace_back(text, place);
  }

  std::vector<std::pair<std::string, TErrorPlace>> Warnings;
};

/// The services. Optional ones are null until a test sets them; they are not owned.
class TMemoryHost : public VelmorIDEServices {
public:
  TMemoryIDEEvents& GetEvents() override { return Events; }
  TMemoryGauntlet& GetModuleHandlerGauntlet() override { return Gauntlet; }
  TMemoryFileStorage& GetProjectFileStorage() override { return FileStorage; }
  TMemoryXMLDocuments& GetXMLDocuments() override { return XMLDocuments; }
  TMemoryProjectFileUtils& GetProjectFileUtils() override { return ProjectFileUtils; }
  TMemoryPlatforms& GetPlatformManager() override { return PlatformManager; }
  TMemoryMacroUtils& GetMacroUtils() override { return MacroUtils; }
  TMemoryFileUtils& GetFileUtils() override { return FileUtils; }
  TMemoryAppStrings& GetAppStrings() override { return AppStrings; }
  TMemorySettings& GetSettings() override { return Settings; }
  TMemoryMessages& GetMessageServices() override { return Messages; }
  std::unique_ptr<ICoExpertFilter> CreateTextFilter() override;
  IOTAPersonalityServices* GetPersonalityServices() override { return PersonalityServices; }
  IPlatformSDKServices* GetSDKServices() override { return SDKServices; }
  IAndroidToolServices* GetAndroidToolServices() override { return AndroidToolServices; }
  IModalForms* GetModalForms() override { return ModalForms; }
  IOTARemoteProfileServices* GetRemoteProfileServices() override { return ProfileServices; }
  IProjectEvents* GetProjectEvents() override { return ProjectEvents; }
  IOTAEditorViewServices* GetEditorViewServices() override { return EditorViewServices; }
  IOTAExtensions* GetExtensions() override { return Extensions; }

  TMemoryFiles Files;
  TMemoryIDEEvents Events;
  TMemoryGauntlet Gauntlet;
  TMemoryFileStorage FileStorage;
  TMemoryXMLDocuments XMLDocuments{Files};
  TMemoryProjectFileUtils ProjectFileUtils{Files};
  TMemoryFileUtils FileUtils{Files};
  TMemoryPlatforms PlatformManager;
  TMemoryMacroUtils MacroUtils;
  TMemoryAppStrings AppStrings;
  TMemorySettings Settings;
  TMemoryMessages Messages;
  /// Variables that were set on text filters, in order.
  std::vector<std::pair<std::string, std::string>> FilterVariables;

  IOTAPersonalityServices* PersonalityServices = nullptr;
  IPlatformSDKServices* SDKServices = nullptr;
  IAndroidToolServices* AndroidToolServices = nullptr;
  IModalForms* ModalForms = nullptr;
  IOTARemoteProfileServices* ProfileServices = nullptr;
  IProjectEvents* ProjectEvents = nullptr;
  IOTAEditorViewServices* EditorViewServices = nullptr;
  IOTAExtensions* Extensions = nullptr;
};

} // namespace deployment
