#include "workbench/deploy/fleet/blank_target.h"
#include "workbench/deploy/record/target_lock.h"

#include <gtest/gtest.h>

#include <atomic>
#include <map>
#include <mutex>
#include <thread>
#include <utility>

namespace workbench {
namespace {

using TClock = std::chrono::system_clock;

constexpr std::string_view Since = "2026-11-22T00:31:21Z";

// The files of a target, as all of its connections see them.
struct TLockFiles {
  struct TFile {
    std::string Text;
    TClock::time_point Time;
  };
  std::mutex Mutex;
  std::map<std::string, TFile> Files;
};

// A connection to them. What is to happen before a call of this one is done before it, once.
class TLockTarget final : public TBlankTarget {
public:
  enum class TCall { Create, Remove };

  explicit TLockTarget(TLockFiles& files) : TBlankTarget("/target"), FFiles(files) {}

  void Before(TCall call, const std::string& name, std::function<void()> what) {
    FCall = call;
    FName = name;
    FWhat = std::move(what);
  }
  bool HasHappened() const { return !FWhat; }

  std::vector<TRemoteStatus> Examine(std::span<const TRemoteName> names) override {
    const std::lock_guard lock(FFiles.Mutex);
    const auto found = FFiles.Files.find(names.front().Name);
    if (found == FFiles.Files.end())
      return {TRemoteStatus{}};
    return {{.Kind = TRemoteKind::File,
             .Size = found->second.Text.size(),
             .Modified = found->second.Time}};
  }
  TRemoteContent ReadFile(const TRemoteName& name, std::uint64_t /*limit*/) override {
    const std::lock_guard lock(FFiles.Mutex);
    const auto found = FFiles.Files.find(name.Name);
    return found == FFiles.Files.end()
               ? TRemoteContent{}
               : TRemoteContent{.IsThere = true, .Text = found->second.Text};
  }
  TRemoteCreation CreateFile(const TRemoteName& name, std::string_view text,
                             deployment::TFileTime time) override {
    Happen(TCall::Create, name.Name);
    const std::lock_guard lock(FFiles.Mutex);
    const TLockFiles::TFile file{std::string(text),
                                 std::chrono::time_point_cast<TClock::duration>(time)};
    return FFiles.Files.emplace(name.Name, file).second
               ? TRemoteCreation{TRemoteCreation::TResult::Made}
               : TRemoteCreation{TRemoteCreation::TResult::Exists, "it is there already"};
  }
  std::string Remove(const TRemoteName& name) override {
    Happen(TCall::Remove, name.Name);
    const std::lock_guard lock(FFiles.Mutex);
    FFiles.Files.erase(name.Name);
    return {};
  }
  std::vector<std::string> Stamp(std::span<const TRemoteStamp> stamps) override {
    const std::lock_guard lock(FFiles.Mutex);
    for (const TRemoteStamp& stamp : stamps)
      FFiles.Files.at(stamp.Name.Name).Time =
          std::chrono::time_point_cast<TClock::duration>(*stamp.Time);
    return std::vector<std::string>(stamps.size());
  }

private:
  void Happen(TCall call, const std::string& name) {
    if (FWhat && call == FCall && name == FName)
      std::exchange(FWhat, nullptr)();
  }

  TLockFiles& FFiles;
  TCall FCall = TCall::Remove;
  std::string FName;
  std::function<void()> FWhat;
};

using TCall = TLockTarget::TCall;

// Two who deploy, "eva" and "tom", and a lock that somebody left two minutes ago.
class LockTakeover : public ::testing::Test {
protected:
  void SetUp() override { Leave("lock"); }
  void Leave(const std::string& name) {
    Files.Files[name] = {R"({"by":"ada","machine":"bench","since":"2026-11-21T00:00:00Z"})",
                         TClock::now() - 2 * StaleLockAge};
  }
  static TLockHolder Holder(const std::string& by) {
    TLockHolder holder = ThisHolder(std::string(Since));
    holder.By = by;
    return holder;
  }
  std::optional<TLockHolder> TakeForTom() { return Tom.Take(TomsTarget, Holder("tom"), false); }
  std::vector<std::string> Names() const {
    std::vector<std::string> names;
    for (const auto& [name, file] : Files.Files)
      names.push_back(name);
    return names;
  }

  TLockFiles Files;
  TLockTarget EvasTarget{Files};
  TLockTarget TomsTarget{Files};
  TTargetLock Eva{"/target"};
  TTargetLock Tom{"/target"};
};

using TNames = std::vector<std::string>;

TEST_F(LockTakeover, IsNotUndoneByOneWhoSawTheStaleLockBefore) {
  // Eva has found it stale, and Tom is faster.
  EvasTarget.Before(TCall::Create, "lock-takeover", [&] { EXPECT_FALSE(TakeForTom()); });
  const auto holder = Eva.Take(EvasTarget, Holder("eva"), false);
  ASSERT_TRUE(EvasTarget.HasHappened());
  EXPECT_TRUE(Tom.IsTaken());
  EXPECT_FALSE(Eva.IsTaken());
  ASSERT_TRUE(holder);
  EXPECT_EQ(holder->By, "tom");
  EXPECT_EQ(Names(), TNames{"lock"});
}

TEST_F(LockTakeover, LetsNobodyInWhileTheStaleLockIsRemoved) {
  std::optional<TLockHolder> toldTom;
  EvasTarget.Before(TCall::Remove, "lock", [&] { toldTom = TakeForTom(); });
  EXPECT_FALSE(Eva.Take(EvasTarget, Holder("eva"), false));
  ASSERT_TRUE(EvasTarget.HasHappened());
  EXPECT_TRUE(Eva.IsTaken());
  EXPECT_FALSE(Tom.IsTaken());
  ASSERT_TRUE(toldTom);
  EXPECT_EQ(toldTom->By, "eva");
  EXPECT_EQ(Names(), TNames{"lock"});
}

TEST_F(LockTakeover, ThatWasCutOffIsTakenOverToo) {
  Leave("lock-takeover");
  EXPECT_FALSE(Eva.Take(EvasTarget, Holder("eva"), false));
  EXPECT_TRUE(Eva.IsTaken());
  EXPECT_EQ(Names(), TNames{"lock"});
}

TEST_F(LockTakeover, ThatWasCutOffThreeTimesIsTakenOverAllTheSame) {
  Leave("lock-takeover");
  Leave("lock-takeover-takeover");
  Leave("lock-takeover-takeover-takeover");
  EXPECT_FALSE(Eva.Take(EvasTarget, Holder("eva"), false));
  EXPECT_EQ(Names(), TNames{"lock"});
}

TEST_F(LockTakeover, IsWonByOneOfMany) {
  for (int round = 0; round < 25; ++round) {
    Leave("lock");
    std::atomic<int> taken = 0;
    std::vector<std::jthread> threads;
    threads.reserve(4);
    for (int i = 0; i < 4; ++i)
      threads.emplace_back([&, i] {
        TLockTarget target(Files);
        TTargetLock lock("/target");
        if (!lock.Take(target, Holder("user " + std::to_string(i)), false))
          ++taken;
      });
    threads.clear();
    ASSERT_EQ(taken, 1) << round;
  }
}

TEST_F(LockTakeover, LeavesTheNewHolderItsLockWhenTheOldOneWakesUp) {
  Files.Files.clear();
  TClock::time_point now = TClock::now();
  TTargetLock slept("/target", [&now] { return now; });
  ASSERT_FALSE(slept.Take(EvasTarget, Holder("eva"), false));
  now += 2 * StaleLockAge;
  TTargetLock awake("/target", [&now] { return now; });
  ASSERT_FALSE(awake.Take(TomsTarget, Holder("tom"), false));
  const TClock::time_point toms = Files.Files.at("lock").Time;
  now += std::chrono::seconds(1);
  slept.Refresh(EvasTarget);
  EXPECT_EQ(Files.Files.at("lock").Time, toms);
  slept.Release(EvasTarget);
  EXPECT_EQ(Names(), TNames{"lock"});
  awake.Refresh(TomsTarget);
  EXPECT_GT(Files.Files.at("lock").Time, toms);
  awake.Release(TomsTarget);
  EXPECT_EQ(Names(), TNames());
}

} // namespace
} // namespace workbench
