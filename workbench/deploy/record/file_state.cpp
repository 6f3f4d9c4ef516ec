#include "workbench/deploy/record/file_state.h"

#include "workbench/remote/target/file_times.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

enum class TEqual { No, Yes, AskHash };

struct TAnswer {
  TEqual Equal = TEqual::No;
  bool ByHash = false;
};

TAnswer Compare(const TContent& left, const TContent& right, const TComparing& comparing) {
  if (!left.Link.empty() || !right.Link.empty())
    return {left.Link == right.Link ? TEqual::Yes : TEqual::No};
  if (!left.IsPlainFile || !right.IsPlainFile || left.Size != right.Size)
    return {TEqual::No};
  if (!left.Hash.empty() && !right.Hash.empty())
    return {left.Hash == right.Hash ? TEqual::Yes : TEqual::No, true};
  const bool sameTime =
      Truncated(left.Time, comparing.Resolution) == Truncated(right.Time, comparing.Resolution);
  return {sameTime && comparing.TrustTimes ? TEqual::Yes : TEqual::AskHash};
}

// The record keeps whole seconds.
TComparing WithSeconds(TComparing comparing) {
  comparing.Resolution =
      std::max<std::chrono::nanoseconds>(comparing.Resolution, std::chrono::seconds(1));
  return comparing;
}

// Of a hash that two sides lack each has to be asked for.
TStateDecision AskFor(const TContent* here, const TContent* there) {
  return {.NeedsHashHere = here && here->Hash.empty(),
          .NeedsHashThere = there && there->Hash.empty(),
          .ByHash = true};
}

// The content there is another one than here.
TStateDecision DecideChange(const TThreeSides& sides, const TComparing& comparing, bool byHash) {
  if (!sides.Deployed)
    return {.State = TFileState::Unrecorded, .ByHash = byHash};
  const TAnswer there = Compare(*sides.There, *sides.Deployed, WithSeconds(comparing));
  if (there.Equal == TEqual::AskHash)
    return AskFor(nullptr, &*sides.There);
  byHash = byHash || there.ByHash;
  if (there.Equal == TEqual::Yes)
    return {.State = TFileState::Changed, .ByHash = byHash};
  const TAnswer here = Compare(*sides.Here, *sides.Deployed, WithSeconds(comparing));
  if (here.Equal == TEqual::AskHash)
    return AskFor(&*sides.Here, nullptr);
  return {.State = here.Equal == TEqual::Yes ? TFileState::ChangedThere : TFileState::Conflict,
          .ByHash = byHash || here.ByHash};
}

} // namespace

std::string_view FileStateName(TFileState state) {
  constexpr std::array<std::string_view, 10> Names{
      "same",     "new",        "changed",   "unrecorded",        "changed-there",
      "conflict", "gone-there", "left-over", "left-over-changed", "missing-here"};
  return Names[static_cast<std::size_t>(state)];
}

TStateDecision DecideFileState(const TThreeSides& sides, const TComparing& comparing) {
  if (!sides.Here)
    return {.State = TFileState::MissingHere};
  if (!sides.There)
    return {.State = sides.Deployed ? TFileState::GoneThere : TFileState::New};
  const TAnswer same = Compare(*sides.Here, *sides.There, comparing);
  if (same.Equal == TEqual::AskHash)
    return AskFor(&*sides.Here, &*sides.There);
  if (same.Equal == TEqual::Yes)
    return {.State = TFileState::Same, .ByHash = same.ByHash};
  return DecideChange(sides, comparing, same.ByHash);
}

TStateDecision DecideLeftOverState(const TThreeSides& sides, const TComparing& comparing) {
  const TAnswer there = Compare(*sides.There, *sides.Deployed, WithSeconds(comparing));
  if (there.Equal == TEqual::AskHash)
    return AskFor(nullptr, &*sides.There);
  return {.State = there.Equal == TEqual::Yes ? TFileState::LeftOver : TFileState::LeftOverChanged,
          .ByHash = there.ByHash};
}

} // namespace workbench
