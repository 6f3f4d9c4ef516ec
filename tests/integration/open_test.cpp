#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

namespace fs = std::filesystem;

/// A copy of deploymgr, beside which the test may put a window of its own.
class Open : public testing::Test {
protected:
  void SetUp() override {
    const fs::path program = DEPLOYMGR_PROGRAM;
    fs::create_directory(FPlace.Path("bin"));
    for (const fs::path& file : {program, program.parent_path() / "deployment-package.so"})
      fs::copy(file, FPlace.Path("bin") / file.filename());
    FPlace.Write("p.vproj", ProjectWith(""));
  }
  /// A window that says what it is started with.
  void PutWindow() const {
    FPlace.Write("bin/deployment-manager", "#!/bin/sh\nprintf '%s|' window \"$@\"\nexit 7\n");
    fs::permissions(FPlace.Path("bin/deployment-manager"), fs::perms::owner_all);
  }
  TRun Run(const std::vector<std::string>& arguments) const {
    std::vector<std::string> command{"env", std::string("ZELK=") + SOURCE_TREE,
                                     FPlace.Path("bin/deploymgr").string()};
    command.insert(command.end(), arguments.begin(), arguments.end());
    return FPlace.RunProgram(std::move(command));
  }

  TWorkplace FPlace;
};

TEST_F(Open, StartsTheWindowInItsPlace) {
  PutWindow();
  FPlace.SetVariable("DISPLAY=:99");
  const TRun run = Run({"open", "p.vproj"});
  EXPECT_EQ(run.Status, 7) << run.Errors;
  EXPECT_EQ(run.Output, "window|--|p.vproj|");
  EXPECT_EQ(run.Errors, "");
}

TEST_F(Open, PassesTargetAndRootOn) {
  PutWindow();
  FPlace.SetVariable("WAYLAND_DISPLAY=wayland-0");
  const std::string root = SOURCE_TREE;
  EXPECT_EQ(Run({"open", "p.vproj", "-c", "Debug", "-p", "all", "--root", root}).Output,
            "window|--root=" + root + "|--config=Debug|--platform=all|--|p.vproj|");
}

TEST_F(Open, TakesAScreenThatQtIsTold) {
  PutWindow();
  FPlace.SetVariable("QT_QPA_PLATFORM=offscreen");
  EXPECT_EQ(Run({"open", "p.vproj"}).Status, 7);
}

TEST_F(Open, FailsWithoutTheWindow) {
  FPlace.SetVariable("DISPLAY=:99");
  const TRun run = Run({"open", "p.vproj"});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Output, "");
  EXPECT_EQ(run.Errors, "deploymgr: the window, " + fs::canonical(FPlace.Path("bin")).string() +
                            "/deployment-manager, cannot be started: No such file or directory\n");
}

TEST_F(Open, FailsWithoutAScreen) {
  PutWindow();
  FPlace.SetVariable("DISPLAY=");
  const TRun run = Run({"open", "p.vproj", "--json"});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Errors, "deploymgr: there is no screen: neither DISPLAY nor WAYLAND_DISPLAY is "
                        "set; the other commands work without one\n");
  EXPECT_EQ(run.Json()["error"]["code"], 1);
}

TEST_F(Open, SaysOnTheTerminalWhatTheWindowWouldRefuse) {
  PutWindow();
  FPlace.SetVariable("DISPLAY=:99");
  EXPECT_EQ(Run({"open"}).Status, 2);
  EXPECT_EQ(Run({"open", "absent.vproj"}).Status, 3);
  EXPECT_EQ(Run({"open", "p.vproj", "-p", "win32"}).Status, 2);
  FPlace.Write("bad.vproj", "no project");
  EXPECT_EQ(Run({"open", "bad.vproj"}).Status, 3);
}

} // namespace
} // namespace integration
