// Host unit Docmodul: the chain through which objects are attached to every module that is opened.
#pragma once

#include <memory>

namespace deployment {

class IOTAModule;
class IProjectDeployment;

/// An object attached to one module. Implemented by the package; the module owns it and destroys
/// it when it closes.
class IModuleHandler {
public:
  virtual ~IModuleHandler() = default;
  /// The deployment that the handler offers; null when it offers none.
  virtual IProjectDeployment* GetProjectDeployment() = 0;
};

/// A member of the chain. Implemented by the package.
class IModuleGauntletHandler {
public:
  virtual ~IModuleGauntletHandler() = default;
  /// Called for every module that the host opens, before its sections are read.
  virtual void AttachHandler(IOTAModule& module) = 0;
};

/// The chain. Implemented by the host.
class IModuleHandlerGauntlet {
public:
  virtual ~IModuleHandlerGauntlet() = default;
  /// Members are called in order of falling priority, those of one priority in order of adding.
  virtual void AddHandler(std::shared_ptr<IModuleGauntletHandler> handler, int priority) = 0;
  /// A handler that is not in the chain is ignored.
  virtual void RemoveHandler(const IModuleGauntletHandler& handler) = 0;
};

} // namespace deployment
