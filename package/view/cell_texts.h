// What the cells of a row show, and what rows are sorted by.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/view/frame_target.h"
#include "package/view/status_gatherer.h"

#include <string>

namespace deployment {

/// What the texts are about besides the file.
struct TCellContext {
  const TFrameTarget& Target;
  const TStatusGatherer& Status;
};

/// The text of a cell; empty for a column that is none. The local status answers under its index,
/// although no column of the header shows it.
std::string GetColumnText(const TCellContext& context, const IProjectDeploymentFile& file,
                          int column);

/// List of the project's platforms that hold the file.
std::string GetPlatformText(const TFrameTarget& target, const IProjectDeploymentFile& file);

/// A text by whose bytes rows are ordered.
std::string GetSortKey(const TCellContext& context, const IProjectDeploymentFile& file, int column);

} // namespace deployment
