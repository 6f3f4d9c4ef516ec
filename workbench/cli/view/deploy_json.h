// What a deploy did or would do, and what a target remembers, as JSON.
#pragma once

#include "workbench/deploy/deploy_report.h"
#include "workbench/deploy/record/record_json.h"
#include "workbench/json/json.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

namespace workbench {

/// How many rows of a report met which end.
struct TDeployCounts {
  std::array<std::size_t, DeployActionCount> Rows = {}; ///< by TDeployAction
  std::uint64_t Bytes = 0;

  explicit TDeployCounts(const TDeployReport& report);
  std::size_t operator[](TDeployAction action) const {
    return Rows[static_cast<std::size_t>(action)];
  }
  /// How many files of the target changed, or would.
  std::size_t ChangedFiles() const {
    return (*this)[TDeployAction::Copied] + (*this)[TDeployAction::Removed] +
           (*this)[TDeployAction::Mode];
  }
  /// Such as "2 copied, 1 unchanged (3.2 KiB)".
  std::string Text() const;
};

/// "state" of a row; null where it has none.
TJson StateJson(const std::optional<TFileState>& state);
/// The document of a deploy.
TJson DeployJson(const std::string& platform, const std::string& configuration,
                 const TDeployReport& report);
TJson LeftOversJson(const TDeployReport& report);
TJson OwedJson(const TDeployReport& report);

} // namespace workbench
