// The parts of one frame as its commands and editors work with them.
#pragma once

#include "package/host/api/controls.h"
#include "package/host/api/ideservices.h"

#include <functional>

namespace deployment {

class TConnection;
class TDeploymentListening;
class TFileRows;
class TStatusGatherer;
struct TFrameTarget;

/// Everything is the frame's and lives as long as it does. Controls of the frame are made before
/// a command runs.
struct TFrameContext {
  VelmorIDEServices& Services;
  IControls& Controls;
  const TFrameTarget& Target;
  TConnection& Connection;
  TStatusGatherer& Status;
  TFileRows& Rows;
  TDeploymentListening& Listening;
  /// Configuration that the target box shows; may be empty.
  std::function<std::string()> SelectedConfiguration;
  /// Brings the list in line with the target, then the rows, also when the former throws.
  std::function<void()> ReconcileAndRefresh;
  /// Builds status and rows anew.
  std::function<void()> RefreshFiles;
  /// The boxes or the local files changed.
  std::function<void()> UpdateDeployButton;
};

} // namespace deployment
