// What a person decided about single rows of a plan that they looked at.
#pragma once

#include "package/host/api/platformapi.h"

#include <cstdint>
#include <string>
#include <unordered_map>

namespace workbench {

struct TDeployPlan;

/// One decision.
struct TRowChoice {
  enum class TKind {
    Leave, ///< this run does nothing about the file
    Take,  ///< copied also over what others changed there; a left-over is removed
  };
  TKind Kind = TKind::Leave;
  /// What stood on the target when the decision was made: it holds for that alone.
  std::uint64_t SizeThere = 0;
  deployment::TFileTime TimeThere = {};
};

/// By the whole path on the target. Files that are not named are handled as ever.
using TRowChoices = std::unordered_map<std::string, TRowChoice>;

/// Changes the actions of the plan as it was decided. What is left out runs nothing and needs no
/// consent.
void ApplyChoices(const TRowChoices& choices, TDeployPlan& plan);

} // namespace workbench
