// Host unit Toolsapi: modules, projects, personalities and the views of the editor area.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/docmodul.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

class IFrame;

/// A listener of one module. The module shares ownership while it is registered.
class IOTAModuleNotifier {
public:
  virtual ~IOTAModuleNotifier() = default;
  /// The module was written to disk.
  virtual void AfterSave() = 0;
  /// A file of the module got another name.
  virtual void ModuleRenamed(std::string_view oldName, std::string_view newName) = 0;
  /// A file left the module.
  virtual void ModuleRemoved(std::string_view name) = 0;
  /// The module goes away; it must not be asked anything any more.
  virtual void Destroyed() = 0;
};

/// A file that the host has open. Implemented by the host, which owns it.
class IOTAModule {
public:
  virtual ~IOTAModule() = default;
  /// Full path on this machine.
  virtual std::string GetFileName() const = 0;
  /// True for a project or a project group.
  virtual bool IsProjectModule() const = 0;
  /// True for a project module that carries no deployment, such as a project group.
  virtual bool IsWithoutDeployment() const = 0;
  /// The project behind the module; null when it is no project.
  virtual ICustomProject* GetProject() = 0;

  /// Registers a listener; returns the index under which it is removed again.
  virtual int AddNotifier(std::shared_ptr<IOTAModuleNotifier> notifier) = 0;
  /// An index that is not registered is ignored.
  virtual void RemoveNotifier(int index) = 0;
  /// Gives the module a handler to own.
  virtual void AttachHandler(std::shared_ptr<IModuleHandler> handler) = 0;
};

/// A project that the host has open.
class IOTAProject : public IOTAModule, public ICustomProject {};

/// Lists the runtime packages that a target depends on.
class IPackageService {
public:
  virtual ~IPackageService() = default;
  /// Fills `packages` with file names; false when the service cannot tell. Both flags are true in
  /// every call that the package makes.
  virtual bool GetPackages(ICustomProject& project, std::string_view configuration,
                           bool runtimePackages, bool recursive, std::string_view platform,
                           std::vector<std::string>& packages) const = 0;
};

/// Knows the files that hold debug symbols.
class ISymbolService {
public:
  virtual ~ISymbolService() = default;
  /// Extension with its dot; empty when the platform has no such files.
  virtual std::string GetDebugSymbolExtension(std::string_view platform) const = 0;
};

/// Knows the search paths of a personality.
class IEnvironmentService {
public:
  virtual ~IEnvironmentService() = default;
  /// A ";"-delimited path; empty when unset. 1 is the library path of "Ardent.Personality", 104 the
  /// tool chain's path of "Corvane.Personality".
  virtual std::string GetPathSetting(int setting, std::string_view platform) const = 0;
};

/// Services by personality. Implemented by the host and owned by it; null when the personality
/// does not offer the service or is not known.
class IOTAPersonalityServices {
public:
  virtual ~IOTAPersonalityServices() = default;
  virtual IPackageService* GetPackageService(std::string_view personality) = 0;
  virtual ISymbolService* GetSymbolService(std::string_view personality) = 0;
  virtual IEnvironmentService* GetEnvironmentService(std::string_view personality) = 0;
};

/// A view that the package shows in the editor area. Implemented by the package.
class INTACustomEditorView {
public:
  virtual ~INTACustomEditorView() = default;
  virtual std::string GetCaption() const = 0;
  virtual std::string GetEditorWindowCaption() const = 0;
  /// Kept in the user's window layout; never changes.
  virtual std::string GetViewIdentifier() const = 0;
  virtual bool CanClose() const = 0;
  /// Makes the frame that the host shows; the host owns it.
  virtual std::unique_ptr<IFrame> CreateFrame() = 0;
};

/// What later hosts ask of a view besides.
class INTACustomEditorView150 : public INTACustomEditorView {
public:
  virtual int GetImageIndex() const = 0;
  virtual std::string GetTabHintText() const = 0;
  virtual bool CanCloseTab() const = 0;
};

/// Shows and closes views. Implemented by the host.
class IOTAEditorViewServices {
public:
  virtual ~IOTAEditorViewServices() = default;
  /// Shows the view, or brings it forward when it is shown.
  virtual void ShowEditorView(const std::shared_ptr<INTACustomEditorView>& view) = 0;
  virtual void CloseEditorView(const std::shared_ptr<INTACustomEditorView>& view) = 0;
};

} // namespace deployment
