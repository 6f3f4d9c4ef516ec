// Host unit Idetargetscombobox: the box in which the user chooses configuration and platform.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/deployment_target.h"

#include <functional>
#include <string>

namespace deployment {

/// Implemented by the host, owned by the form that shows it.
class ITargetsComboBox {
public:
  virtual ~ITargetsComboBox() = default;
  /// Fills the list with the targets of the project and selects its active one. Null empties it.
  virtual void SetProject(ICustomProject* project) = 0;
  /// Shows this target as the selected one, whether the list holds it or not; told to no handler.
  /// An empty platform, or "All Platforms", stands for all of them.
  virtual void Select(const TDeploymentTarget& target) = 0;
  /// Fills the list again; the selection stays where its target still exists.
  virtual void Repopulate() = 0;
  /// Empty when no single platform, or nothing, is selected.
  virtual std::string GetSelectedPlatform() const = 0;
  virtual std::string GetSelectedConfiguration() const = 0;
  /// Called after the user chose another target.
  virtual void SetOnChange(std::function<void()> handler) = 0;
};

} // namespace deployment
