// Host unit Ideintf: the life of the host, and what packages add to it.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/events.h"

#include <memory>

namespace deployment {

/// Implemented by the host, good as long as it runs.
class IIDEEvents {
public:
  virtual ~IIDEEvents() = default;
  /// Raised once, when the host is ready to be worked with. A subscription that comes later is
  /// not called.
  virtual IHostEvent<>& MainFormCreated() = 0;
};

/// Objects that packages offer to the host and to each other. Implemented by the host.
class IOTAExtensions {
public:
  virtual ~IOTAExtensions() = default;
  /// Returns the index under which the extension is removed again.
  virtual int AddOTAExtension(std::shared_ptr<IOTADeploymentService> extension) = 0;
  /// An index that is not registered is ignored.
  virtual void RemoveOTAExtension(int index) = 0;
};

} // namespace deployment
