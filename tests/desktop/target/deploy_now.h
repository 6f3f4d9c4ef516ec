// The window on an example that may be deployed wherever a test wants it.
#pragma once

#include "tests/desktop/window/window_fixture.h"
#include "workbench/desktop/deploy/deploy_panel.h"

namespace workbench::testing {

class TDeployNowTest : public TWindowTest {
protected:
  /// The plan and its confirmation.
  void Deploy() {
    for (int step = 0; step < 2; ++step) {
      PressButton("tbDeploy");
      EXPECT_TRUE(QTest::qWaitFor([this] { return !Window().Panel().IsRunning(); }, 20000));
      Settle();
    }
  }
};

} // namespace workbench::testing
