// deployment-manager as a process of its own.
#include "tests/desktop/window/window_fixture.h"

#include <QProcess>

namespace workbench {
namespace {

class TWindowProgram : public testing::TWindowTest {
protected:
  struct TRun {
    int Status = -1; // 128 and more: ended by a signal
    std::string Errors;
  };

  // Ends by itself within the time, or is killed and counts as hanging.
  TRun Run(const QStringList& arguments) {
    constexpr int Patience = 60000;
    QProcess program;
    program.start(DEPLOYMENT_MANAGER_PROGRAM, arguments);
    if (!program.waitForFinished(Patience)) {
      program.kill();
      program.waitForFinished();
      return {-1, "it hung"};
    }
    const bool crashed = program.exitStatus() == QProcess::CrashExit;
    return {crashed ? 128 + program.exitCode() : program.exitCode(),
            program.readAllStandardError().toStdString()};
  }
  QString Picture() const { return QString::fromStdString((FRoot / "picture.png").string()); }
  static QString Text(const std::filesystem::path& path) {
    return QString::fromStdString(path.string());
  }
};

TEST_F(TWindowProgram, DrawsTwoProjectsWhosePathsDifferByCaseAsOne) {
  const auto capitals = FRoot / "tide" / "TIDELOGGER.vproj";
  std::filesystem::copy(FProject, capitals);
  std::filesystem::copy(FRoot / "tide", FRoot / "TIDE", std::filesystem::copy_options::recursive);
  const auto dotted = FRoot / "tide" / ".." / "tide" / "TideLogger.vproj";
  for (const auto& second : {capitals, FRoot / "TIDE" / "TideLogger.vproj", dotted}) {
    const TRun run = Run({Text(FProject), Text(second), "--screenshot", Picture()});
    EXPECT_EQ(run.Status, 0) << run.Errors;
    EXPECT_TRUE(std::filesystem::remove(FRoot / "picture.png"));
  }
}

TEST_F(TWindowProgram, AsksNothingWhenItOnlyDraws) {
  FSession.reset();
  Write(FRoot / "config" / "deployment-manager" / "settings.json", "{");
  const TRun damaged = Run({Text(FProject), "--screenshot", Picture()});
  EXPECT_EQ(damaged.Status, 1);
  EXPECT_NE(damaged.Errors.find("settings"), std::string::npos) << damaged.Errors;
  std::filesystem::remove(FRoot / "config" / "deployment-manager" / "settings.json");
  const TRun gone = Run({Text(FRoot / "gone.vproj"), "--screenshot", Picture()});
  EXPECT_EQ(gone.Status, 1);
  EXPECT_NE(gone.Errors.find("gone.vproj"), std::string::npos) << gone.Errors;
  EXPECT_EQ(Run({Text(FProject), "--screenshot", Picture()}).Status, 0);
}

} // namespace
} // namespace workbench
