// Host unit Toolsapi: modules, projects, personalities and the views of the editor area.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/docmodul.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace deployment {

class IControls;

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
  /// Extension that the project's builds use, with its dot; empty when the platform has no such
  /// files.
  virtual std::string GetDebugSymbolExtension(const ICustomProject& project,
                                              std::string_view platform) const = 0;
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

/// A form's content that a host shows; the host owns it. Its controls are those that the host gave
/// it when it was made.
class IFrame {
public:
  virtual ~IFrame() = default;
  /// Name of the component, its own among the frames that are open.
  virtual std::string GetName() const = 0;
};

/// Editing commands of the host's menu.
enum class TEditAction { Undo, Redo, Cut, Copy, Paste, Delete, SelectAll };

/// A view that the package shows in the editor area. Implemented by the package.
class INTACustomEditorView {
public:
  virtual ~INTACustomEditorView() = default;
  /// A second view of the same thing; null when there can be one only.
  virtual std::shared_ptr<INTACustomEditorView> CloneView() = 0;
  /// The host has shown the view for the first time.
  virtual void ViewShown() = 0;
  virtual std::string GetCaption() const = 0;
  virtual std::string GetEditorWindowCaption() const = 0;
  /// Kept in the user's window layout; never changes.
  virtual std::string GetViewIdentifier() const = 0;
  /// The editing commands that the view can carry out now.
  virtual std::vector<TEditAction> GetEditState() const = 0;
  /// True when the view carried the command out.
  virtual bool EditAction(TEditAction action) = 0;
  /// Asked before the view is closed.
  virtual bool CanClose() const = 0;
  /// The view came to the front, and left it again.
  virtual void ViewActivated() = 0;
  virtual void ViewDeactivated() = 0;
  /// Makes the frame with the controls of the window that will show it. The host owns the frame
  /// and destroys it before the controls and before it lets go of the view.
  virtual std::unique_ptr<IFrame> CreateFrame(IControls& controls) = 0;
  /// Told once the host holds the frame that CreateFrame made.
  virtual void FrameCreated(IFrame& frame) = 0;
};

/// What later hosts ask of a view besides.
class INTACustomEditorView150 : public INTACustomEditorView {
public:
  virtual int GetImageIndex() const = 0;
  /// Empty: no hint.
  virtual std::string GetTabHintText() const = 0;
  /// Asked before the view's tab is closed.
  virtual bool CanCloseTab() const = 0;
};

/// Shows and closes views. Implemented by the host.
class IOTAEditorViewServices {
public:
  virtual ~IOTAEditorViewServices() = default;
  /// Shows the view, or brings it forward when it is shown.
  virtual void ShowEditorView(const std::shared_ptr<INTACustomEditorView>& view) = 0;
  /// Closes the view and lets go of it; one that is not shown is ignored.
  virtual void CloseEditorView(const std::shared_ptr<INTACustomEditorView>& view) = 0;
};

} // namespace deployment
