// Shows what others made of a file on the target beside what stands here.
#pragma once

#include "workbench/deploy/deploy_report.h"

#include <cstdint>
#include <string>

class QWidget;

namespace workbench {

/// The largest file that is compared, in bytes.
inline constexpr std::uint64_t LargestCompared = std::uint64_t(1024) * 1024;

/// Both contents of a file, or why they cannot be shown.
struct TFileSides {
  std::string Theirs = {};
  std::string Ours = {};
  std::string Problem = {}; ///< in the language of the engine; empty when both are there
};

/// Reads both sides of a row, no more than LargestCompared of each. Throws TConnectionError.
TFileSides ReadSides(IRemoteConnection& connection, const TDeployRow& row);

/// Shows the lines that differ, with some around them, until the user closes it.
void ShowDifference(const TDeployRow& row, const TFileSides& sides, QWidget* parent);

} // namespace workbench
