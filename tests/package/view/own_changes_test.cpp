// A frame's place on the listener list of its deployment.
#include "package/view/own_changes.h"
#include "tests/package/view/recording_deployment.h"
#include "tests/support/memory_host.h"
#include "tests/support/memory_project.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

struct TDeafNotifier : IProjectDeploymentNotifier {
  void ItemChanged(IProjectDeploymentItem&, TDeploymentItemAction) override {}
  void Loaded(std::string_view) override {}
  void Destroyed() override {}
};

class OwnChanges : public testing::Test {
protected:
  OwnChanges() {
    Module->GivenDeployment = &Deployment;
    Target.Project = Module;
  }

  TMemoryHost Host;
  std::shared_ptr<TMemoryProject> Module = std::make_shared<TMemoryProject>();
  TRecordingDeployment Deployment{*Module, Host};
  TFrameTarget Target;
};

TEST_F(OwnChanges, AreMadeOffTheListUntilTheLastBracketEnds) {
  TDeploymentListening listening(Target, std::make_shared<TDeafNotifier>());
  listening.Join();
  listening.Join();
  EXPECT_EQ(Deployment.Listeners, 1);
  {
    const TOwnChanges outer(listening);
    EXPECT_EQ(Deployment.Listeners, 0);
    { const TOwnChanges inner(listening); }
    EXPECT_EQ(Deployment.Listeners, 0);
  }
  EXPECT_EQ(Deployment.Listeners, 1);
}

TEST_F(OwnChanges, EndWithTheListener) {
  {
    TDeploymentListening listening(Target, std::make_shared<TDeafNotifier>());
    listening.Join();
  }
  EXPECT_EQ(Deployment.Listeners, 0);
}

TEST_F(OwnChanges, LeaveADeploymentAloneThatWentAway) {
  TDeploymentListening listening(Target, std::make_shared<TDeafNotifier>());
  listening.Join();
  listening.Forget();
  listening.Leave();
  EXPECT_EQ(Deployment.Listeners, 1);
}

TEST_F(OwnChanges, OfAProjectWithoutADeploymentAreOnNoList) {
  Module->GivenDeployment = nullptr;
  TDeploymentListening listening(Target, std::make_shared<TDeafNotifier>());
  listening.Join();
  { const TOwnChanges own(listening); }
  EXPECT_EQ(Deployment.Listeners, 0);
}

} // namespace
} // namespace deployment
