// The states of a connection.
#include "package/view/connection.h"
#include "package/view/view_threads.h"
#include "workbench/controls/main_thread_queue.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using S = TConnectionState;

class ConnectionStates : public testing::Test {
protected:
  void Start() {
    Connection.Start(nullptr, nullptr, std::make_shared<workbench::TMainThreadQueue>(),
                     [](const TConnectThread&) {});
    Threads->Join();
  }
  void Connect() {
    Start();
    Connection.End(/*failed=*/false);
  }

  std::shared_ptr<TViewThreads> Threads = std::make_shared<TViewThreads>();
  TConnection Connection{Threads};
};

TEST_F(ConnectionStates, BeginIdle) {
  EXPECT_EQ(Connection.State(), S::Idle);
  EXPECT_FALSE(Connection.IsConnected() || Connection.IsConnecting() || Connection.HasConnection());
  EXPECT_EQ(Connection.Profile(), nullptr);
}

TEST_F(ConnectionStates, FollowAnAttemptToItsEnd) {
  Start();
  EXPECT_EQ(Connection.State(), S::Connecting);
  EXPECT_TRUE(Connection.IsConnecting());
  EXPECT_FALSE(Connection.HasConnection());
  EXPECT_EQ(Connection.End(/*failed=*/true), TAttemptOutcome::Failed);
  EXPECT_EQ(Connection.State(), S::Idle);
  Start();
  EXPECT_EQ(Connection.End(/*failed=*/false), TAttemptOutcome::Connected);
  EXPECT_TRUE(Connection.IsConnected());
  Connection.Release();
  EXPECT_EQ(Connection.State(), S::Idle);
}

TEST_F(ConnectionStates, KeepTheConnectionInMindDuringAnotherAttempt) {
  Connect();
  Start();
  EXPECT_EQ(Connection.State(), S::Reconnecting);
  EXPECT_TRUE(Connection.HasConnection());
  EXPECT_FALSE(Connection.IsConnected());
  EXPECT_EQ(Connection.End(/*failed=*/true), TAttemptOutcome::Failed);
  EXPECT_EQ(Connection.State(), S::Idle);
}

TEST_F(ConnectionStates, DiscardTheOutcomeOfAnAttemptAfterADrop) {
  Connect();
  EXPECT_TRUE(Connection.Drop());
  EXPECT_EQ(Connection.State(), S::Stale);
  EXPECT_FALSE(Connection.HasConnection());
  Connection.Release();
  Start();
  EXPECT_EQ(Connection.State(), S::Discarding);
  EXPECT_FALSE(Connection.Drop());
  EXPECT_EQ(Connection.End(/*failed=*/false), TAttemptOutcome::Discarded);
  EXPECT_EQ(Connection.State(), S::Idle);
}

TEST_F(ConnectionStates, DiscardTheOutcomeOfTheAttemptThatRunsWhenTheyAreDropped) {
  Connect();
  Start();
  EXPECT_TRUE(Connection.Drop());
  EXPECT_EQ(Connection.State(), S::Discarding);
  EXPECT_EQ(Connection.End(/*failed=*/true), TAttemptOutcome::Discarded);
  EXPECT_EQ(Connection.State(), S::Idle);
}

TEST_F(ConnectionStates, DropNothingWithoutAConnection) {
  EXPECT_FALSE(Connection.Drop());
  Start();
  EXPECT_FALSE(Connection.Drop());
  EXPECT_EQ(Connection.End(/*failed=*/false), TAttemptOutcome::Connected);
}

} // namespace
} // namespace deployment
