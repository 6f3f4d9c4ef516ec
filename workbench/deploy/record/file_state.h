// How a file here, the one on the target and what was deployed last stand to each other.
#pragma once

#include "package/host/api/platformapi.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace workbench {

enum class TFileState {
  Same,            ///< here and there
  New,             ///< not there, never deployed
  Changed,         ///< changed here, there it is what was deployed
  Unrecorded,      ///< another one is there, and nobody remembers who put it there
  ChangedThere,    ///< changed on the target, not here
  Conflict,        ///< changed here and on the target
  GoneThere,       ///< deployed, and not there now
  LeftOver,        ///< deployed, and not in the list any more
  LeftOverChanged, ///< the same, and changed on the target since
  MissingHere,     ///< no local file
};

/// "same", "changed-there" and so on: words that scripts read.
std::string_view FileStateName(TFileState state);

/// What is known of one side's content.
struct TContent {
  std::uint64_t Size = 0;
  deployment::TFileTime Time = {};
  std::string Hash = {};   ///< SHA-256, hexadecimal; empty: not asked for yet
  bool IsPlainFile = true; ///< false: a link or the like stands there, which is no content of ours
  std::string Link = {};   ///< what a symbolic link stores; empty for what is none, or not asked for
};

/// What the three sides say: nothing where there is no such file.
struct TThreeSides {
  std::optional<TContent> Here = std::nullopt;
  std::optional<TContent> Deployed = std::nullopt; ///< from the record
  std::optional<TContent> There = std::nullopt;
};

/// How contents are compared.
struct TComparing {
  /// The finest step that the times of both sides have.
  std::chrono::nanoseconds Resolution = std::chrono::nanoseconds(1);
  bool TrustTimes = true; ///< equal size and time mean equal content
};

/// The state, or which hashes have to be asked for before it can be told.
struct TStateDecision {
  TFileState State = TFileState::New;
  bool NeedsHashHere = false;
  bool NeedsHashThere = false;
  bool ByHash = false; ///< hashes decided, not size and time

  bool IsSettled() const { return !NeedsHashHere && !NeedsHashThere; }
};

/// The state of a file of the list. A pure function: asked again when the hashes are there.
TStateDecision DecideFileState(const TThreeSides& sides, const TComparing& comparing);

/// The state of a file of the record that is not in the list; `There` must be set.
TStateDecision DecideLeftOverState(const TThreeSides& sides, const TComparing& comparing);

} // namespace workbench
