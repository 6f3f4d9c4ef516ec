#include "workbench/deploy/record/file_state.h"

#include <gtest/gtest.h>

#include <array>

namespace workbench {
namespace {

using namespace std::chrono_literals;

// Contents by a letter each: 'a', 'b' and 'c' are of one size, 'B' is larger; '-' is no file, '*' a
// link. A digit behind it is the time.
std::optional<TContent> Content(std::string_view text, bool withHash) {
  if (text == "-")
    return std::nullopt;
  TContent content;
  content.IsPlainFile = text[0] != '*';
  content.Size = text[0] == 'B' ? 20 : 10;
  content.Time = deployment::TFileTime(std::chrono::seconds(text.size() > 1 ? text[1] - '0' : 0));
  if (withHash)
    content.Hash = std::string(64, text[0]);
  return content;
}

struct TCase {
  const char* Here;
  const char* Deployed;
  const char* There;
  TFileState State;
  bool ByHash;
};

// As a deploy does it: hashes are asked for when they are needed; those of the record are known.
TStateDecision Decide(const TCase& test, const TComparing& comparing = {}) {
  TThreeSides sides{Content(test.Here, false), Content(test.Deployed, true),
                    Content(test.There, false)};
  for (int round = 0; round < 3; ++round) {
    const TStateDecision decision = DecideFileState(sides, comparing);
    if (decision.IsSettled())
      return decision;
    if (decision.NeedsHashHere)
      sides.Here = Content(test.Here, true);
    if (decision.NeedsHashThere)
      sides.There = Content(test.There, true);
  }
  ADD_FAILURE() << "asks for hashes again and again";
  return {};
}

TEST(FileState, FollowsFromTheThreeSides) {
  for (const TCase& test : std::to_array<TCase>({
           {"a1", "a1", "a1", TFileState::Same, false},
           {"a1", "-", "a1", TFileState::Same, false},
           {"a1", "-", "a2", TFileState::Same, true},
           {"a1", "b1", "a1", TFileState::Same, false},
           {"a1", "-", "-", TFileState::New, false},
           {"B2", "a1", "a1", TFileState::Changed, false},
           {"b2", "a1", "a1", TFileState::Changed, true},
           {"B2", "a1", "a3", TFileState::Changed, true},
           {"a1", "-", "B2", TFileState::Unrecorded, false},
           {"a1", "-", "b2", TFileState::Unrecorded, true},
           {"a1", "a1", "B2", TFileState::ChangedThere, false},
           {"a1", "a1", "b2", TFileState::ChangedThere, true},
           {"a3", "a1", "B2", TFileState::ChangedThere, true},
           {"b2", "a1", "c3", TFileState::Conflict, true},
           {"B2", "a1", "b3", TFileState::Conflict, true},
           {"b2", "a1", "B3", TFileState::Conflict, true},
           {"a1", "a1", "-", TFileState::GoneThere, false},
           {"b2", "a1", "-", TFileState::GoneThere, false},
           {"-", "a1", "a1", TFileState::MissingHere, false},
           {"-", "-", "-", TFileState::MissingHere, false},
           {"a1", "a1", "*1", TFileState::ChangedThere, false},
           {"a1", "-", "*1", TFileState::Unrecorded, false},
       })) {
    const TStateDecision decision = Decide(test);
    EXPECT_EQ(FileStateName(decision.State), FileStateName(test.State))
        << test.Here << " " << test.Deployed << " " << test.There;
    EXPECT_EQ(decision.ByHash, test.ByHash)
        << test.Here << " " << test.Deployed << " " << test.There;
  }
}

TEST(FileState, OfALeftOverSaysWhetherSomebodyChangedIt) {
  const TComparing comparing;
  const auto decide = [&](const char* deployed, const char* there, bool withHash) {
    return DecideLeftOverState({std::nullopt, Content(deployed, true), Content(there, withHash)},
                               comparing);
  };
  EXPECT_EQ(decide("a1", "a1", false).State, TFileState::LeftOver);
  EXPECT_TRUE(decide("a1", "a2", false).NeedsHashThere);
  EXPECT_EQ(decide("a1", "a2", true).State, TFileState::LeftOver);
  EXPECT_EQ(decide("a1", "b2", true).State, TFileState::LeftOverChanged);
  EXPECT_EQ(decide("a1", "B1", false).State, TFileState::LeftOverChanged);
}

TEST(FileState, DoesNotTrustTimesWhenTheContentIsToDecide) {
  EXPECT_EQ(Decide({"b1", "a1", "a1", TFileState::Same, false}).State, TFileState::Same);
  const TStateDecision decision =
      Decide({"b1", "a1", "a1", TFileState::Changed, true}, {.TrustTimes = false});
  EXPECT_EQ(decision.State, TFileState::Changed);
  EXPECT_TRUE(decision.ByHash);
}

TEST(FileState, ComparesTimesAsFineAsBothSidesHaveThem) {
  TThreeSides sides{Content("a1", false), std::nullopt, Content("a1", false)};
  sides.Here->Time += 300ms;
  EXPECT_TRUE(DecideFileState(sides, {}).NeedsHashThere);
  EXPECT_EQ(DecideFileState(sides, {.Resolution = 1s}).State, TFileState::Same);
}

TEST(FileState, OfTheRecordIsComparedInWholeSeconds) {
  TThreeSides sides{Content("B2", false), Content("a1", true), Content("a1", false)};
  sides.There->Time += 300ms;
  EXPECT_EQ(DecideFileState(sides, {}).State, TFileState::Changed);
}

} // namespace
} // namespace workbench
