// Host unit Projectmodule: events of projects that are open.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/events.h"

#include <string_view>

namespace deployment {

/// Raised by the host on its main thread. Implemented by the host, good as long as it runs.
class IProjectEvents {
public:
  virtual ~IProjectEvents() = default;
  /// A project is about to be closed.
  virtual IHostEvent<ICustomProject&>& EvProjectClosing() = 0;
  /// A project file got another name: old name, new name, both full paths.
  virtual IHostEvent<std::string_view, std::string_view>& EvProjectRenamed() = 0;
};

} // namespace deployment
