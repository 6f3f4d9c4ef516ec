// What holds for every reconcile, shown on worlds made by chance.
#include "tests/package/reconcile/random_world.h"
#include "tests/support/sanitized.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

namespace deployment {
namespace {

// Without sanitizers more than 20,000 reconciles.
constexpr unsigned Worlds = testing_support::IsSanitized ? 300 : 1'500;
constexpr int TargetsOfAWorld = 6;

struct TTargetName {
  std::string Configuration;
  std::string Platform;
};

class ReconcileProperties : public testing::Test {
protected:
  // Reconciles; false when the host or an option made it fail.
  bool Reconcile(TRandomWorld& world, const TTargetName& target) {
    ++FReconciles;
    FJournal = {};
    FLog = std::make_shared<TChangeLog>();
    const int index = world.Deployment().AddNotifier(FLog);
    bool done = true;
    try {
      FResult =
          world.Deployment().Reconcile(target.Configuration, target.Platform, false, FJournal);
    } catch (const std::exception&) {
      done = false;
    }
    world.Deployment().RemoveNotifier(index);
    return done;
  }

  // Every file that a step has is one entry of the target, of the class that the step says.
  void ExpectOneEntryForEachFile(TRandomWorld& world, const TTargetName& target) const {
    for (const TReconcileReason& reason : FJournal.Reasons) {
      if (reason.Outcome == TReconcileOutcome::Removed ||
          reason.Outcome == TReconcileOutcome::Skipped)
        continue;
      std::vector<std::string> classes;
      for (const auto& file : world.Deployment().FindFiles(reason.LocalName, target.Configuration,
                                                           target.Platform, "")) {
        if (file->GetLocalName() == reason.LocalName)
          classes.push_back(file->GetDeploymentClass());
      }
      EXPECT_EQ(classes, std::vector<std::string>{reason.ClassName}) << reason.LocalName;
    }
  }

  int FReconciles = 0;
  int FFailures = 0;
  TReconcileResult FResult = TReconcileResult::Reconciled;
  TReconcileJournal FJournal;
  std::shared_ptr<TChangeLog> FLog;
};

TEST_F(ReconcileProperties, ASecondReconcileChangesNothingAndAFailedOneNeither) {
  for (unsigned seed = 0; seed < Worlds; ++seed) {
    TRandomWorld world(seed);
    for (int i = 0; i < TargetsOfAWorld && !HasFailure(); ++i) {
      world.Change();
      const TTargetName target{world.AnyConfiguration(), world.AnyPlatform()};
      const std::string before = world.Text();
      world.Calls.FailAt(1 + world.Below(60));
      const bool survived = Reconcile(world, target);
      if (!survived) {
        ++FFailures;
        EXPECT_EQ(world.Text(), before);
        EXPECT_TRUE(FLog->Lines.empty());
      }
      world.Calls.FailAt(0);
      if (!survived && !Reconcile(world, target)) {
        // An option that cannot be understood stands in the way, until it is mended.
        EXPECT_EQ(world.Text(), before);
        EXPECT_TRUE(FLog->Lines.empty());
        continue;
      }
      if (FResult == TReconcileResult::Reconciled)
        ExpectOneEntryForEachFile(world, target);
      const std::string after = world.Text();
      ASSERT_TRUE(Reconcile(world, target));
      EXPECT_EQ(world.Text(), after);
      EXPECT_EQ(FLog->Lines, std::vector<std::string>{});
    }
    ASSERT_FALSE(HasFailure()) << "world " << seed;
  }
  EXPECT_GE(FReconciles, static_cast<int>(Worlds) * 40 / 3);
  EXPECT_GE(FFailures, static_cast<int>(Worlds) * 4 / 3);
}

} // namespace
} // namespace deployment
