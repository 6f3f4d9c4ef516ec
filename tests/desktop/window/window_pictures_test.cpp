// Paints the window in light and in dark colours. WINDOW_PICTURES=DIRECTORY keeps the pictures, for
// documents and for people to look at.
#include "tests/desktop/support/pictures.h"
#include "tests/desktop/window/window_fixture.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/deploy/difference_dialog.h"
#include "workbench/desktop/interaction/connection_questions.h"
#include "workbench/desktop/notices/notice_strip.h"
#include "workbench/desktop/projects/recovery_question.h"
#include "workbench/desktop/text/package_texts.h"
#include "workbench/desktop/welcome/new_project_dialog.h"
#include "workbench/desktop/window/appearance.h"

#include <QLabel>
#include <QPushButton>

namespace workbench {
namespace {

using namespace deployment::file_column;

using testing::Child;
using testing::OnNextDialog;

class TWindowPictures : public testing::TWindowTest,
                        public ::testing::WithParamInterface<TAppearance> {
protected:
  void SetUp() override {
    TWindowTest::SetUp();
    SetAppearance(GetParam());
    std::filesystem::copy(std::filesystem::current_path() / "examples" / "sky-chart", FRoot / "sky",
                          std::filesystem::copy_options::recursive);
  }
  static void Keep(QWidget& widget, const QString& name) {
    const bool isDark = GetParam() == TAppearance::Dark;
    const QImage image =
        testing::KeepPicture(widget, name + (isDark ? "-dark" : ""), "WINDOW_PICTURES");
    EXPECT_EQ(image.pixelColor(2, image.height() - 3).lightness() < 128, isDark);
  }
  static void KeepNextDialog(const QString& name) {
    OnNextDialog([name](QDialog& dialog) { Keep(dialog, name); });
  }
};

TEST_P(TWindowPictures, OfTheWelcome) {
  Window().resize(900, 420);
  Keep(Window(), "welcome");
}

TEST_P(TWindowPictures, OfAnExampleForAndroid) {
  Window().resize(1180, 480);
  ASSERT_TRUE(Window().Open(FRoot / "sky" / "SkyChart.vproj"));
  ASSERT_TRUE(Window().Open(FProject));
  Window().Tabs().setCurrentIndex(0);
  Window().ChooseTarget("Debug", "Android");
  Settle();
  Click(Row("classes.dex", RemoteStatus));
  EXPECT_EQ(View().selectionModel()->selectedRows().size(), 1);
  Settle();
  EXPECT_EQ(View().selectionModel()->selectedRows().size(), 1);
  Keep(Window(), "window");
}

TEST_P(TWindowPictures, OfStatesOnATarget) {
  std::filesystem::create_directory(FRoot / "target");
  Host().RemoteProfiles().AddProfile(
      {.Name = "lab-pc", .Platform = "Win64", .Path = (FRoot / "target").string()});
  Window().resize(1180, 420);
  OpenExample();
  Project().AssignProfile("Win64", "lab-pc", false);
  PressButton("tbDeploy");
  PressButton("tbDeploy");
  std::filesystem::remove(FRoot / "target" / "TideLogger" / "TideTables.de");
  std::filesystem::last_write_time(FRoot / "tide" / "data" / "levels.dat",
                                   std::filesystem::file_time_type::clock::now());
  Window().Panel().close();
  PressButton("tbConnect");
  ASSERT_TRUE(QTest::qWaitFor(
      [this] { return Cell(0, RemoteStatus) == PackageText("Same").toStdString(); }, 10000));
  Keep(Window(), "connected");
}

TEST_P(TWindowPictures, OfADeployThatRuns) {
  std::filesystem::create_directory(FRoot / "target");
  Host().RemoteProfiles().AddProfile(
      {.Name = "lab-pc", .Platform = "Win64", .Path = (FRoot / "target").string()});
  OpenExample();
  Window().resize(1180, 700);
  Project().AssignProfile("Win64", "lab-pc", false);
  for (int i = 0; i < 200; ++i) {
    const std::string name = "chart" + std::to_string(i) + ".bin";
    Write(FRoot / "tide" / "data" / name, std::string(1 << 20, 'x'));
    const auto file = Project().Deployment().AddFile("Debug", "Win64", "data\\" + name);
    file->SetEnabled("Win64", true);
    file->SetDeploymentClass("File");
  }
  QTimer probe;
  bool isKept = false;
  QObject::connect(&probe, &QTimer::timeout, &probe, [&] {
    if (isKept || !Window().Panel().IsRunning() ||
        Child<QLabel>(Window().Panel(), "status").text().isEmpty())
      return;
    isKept = true;
    Keep(Window(), "deploying");
    Child<QPushButton>(Window().Panel(), "cancel").click();
  });
  PressButton("tbDeploy");
  probe.start(5);
  PressButton("tbDeploy");
  EXPECT_TRUE(QTest::qWaitFor([this] { return !Window().Panel().IsRunning(); }, 30000));
}

TEST_P(TWindowPictures, OfAPlanWithAConflictAndOfAFailure) {
  std::filesystem::create_directory(FRoot / "target");
  Host().RemoteProfiles().AddProfile(
      {.Name = "lab-pc", .Platform = "Win64", .Path = (FRoot / "target").string()});
  OpenExample();
  Window().resize(1180, 700);
  Project().AssignProfile("Win64", "lab-pc", false);
  PressButton("tbDeploy");
  PressButton("tbDeploy");
  Write(FRoot / "target" / "TideLogger" / "data" / "levels.dat", "a hotfix on the target\n");
  for (const char* name : {"levels.dat", "calm-day.txt"})
    Write(FRoot / "tide" / "data" / name, "our own change\n");
  PressButton("tbDeploy");
  ASSERT_TRUE(QTest::qWaitFor([this] { return Window().Panel().IsAsking(); }, 20000));
  Settle();
  Keep(Window(), "plan");
  std::filesystem::remove(FRoot / "tide" / "data" / "calm-day.txt");
  PressButton("tbDeploy");
  ASSERT_TRUE(QTest::qWaitFor([this] { return !Window().Panel().IsRunning(); }, 20000));
  Settle();
  EXPECT_FALSE(Window().Panel().IsAsking());
  Keep(Window(), "deploy-results");
  QTest::keyClick(&Window(), Qt::Key_H, Qt::ControlModifier);
  ASSERT_TRUE(QTest::qWaitFor([this] { return !Window().Panel().IsRunning(); }, 20000));
  Settle();
  Keep(Window(), "history");
}

TEST_P(TWindowPictures, OfWhatAReconcileDidAndOfDifferences) {
  Window().resize(1180, 480);
  OpenExample();
  Keep(Window(), "strip");
  KeepNextDialog("reconciled");
  QTest::mouseClick(Window().findChild<TNoticeStrip*>()->findChild<QPushButton*>(), Qt::LeftButton);
  KeepNextDialog("difference");
  ShowDifference({.LocalName = "data\\levels.dat",
                  .RemoteFile = "/srv/tide/data/levels.dat",
                  .LocalFile = "/home/eva/tide/data/levels.dat"},
                 {.Theirs = "low 0.4\nmean 1.9\nhigh 3.1\n",
                  .Ours = "low 0.4\nmean 2.0\nhigh 3.1\nspring 3.6\n"},
                 &Window());
}

TEST_P(TWindowPictures, OfTheFirstHour) {
  TNewProjectDialog made(Host(), &Window());
  made.show();
  QApplication::processEvents();
  Keep(made, "new-project");
}

TEST_P(TWindowPictures, OfMessages) {
  Write(FRoot / "broken.vproj", "<Project>\n<PropertyGroup>\n</Project>\n");
  KeepNextDialog("error");
  EXPECT_FALSE(Window().Open(FRoot / "broken.vproj"));
  KeepNextDialog("recovery");
  AskRecovery({.Journal = {},
               .Project = "/home/eva/sky-chart/SkyChart.vproj",
               .When = std::chrono::system_clock::now(),
               .ChangedEntries = 3,
               .State = TProjectState::Changed},
              &Window());
  KeepNextDialog("host-key");
  TConnectionQuestions questions(Window());
  EXPECT_FALSE(questions.AcceptsHostKey(
      {"lab.example", "ED25519", "SHA256:kBdUW+4A6Lw3TmTSwlX9hzYPOXp5wt7sSr0ZvcKp8oM"}));
  KeepNextDialog("log-in");
  EXPECT_EQ(questions.TellSecret("Enter passphrase for key '/home/eva/.ssh/id_ed25519': ", nullptr),
            std::nullopt);
}

INSTANTIATE_TEST_SUITE_P(Colours, TWindowPictures,
                         ::testing::Values(TAppearance::Light, TAppearance::Dark),
                         [](const auto& tested) {
                           return tested.param == TAppearance::Dark ? "Dark" : "Light";
                         });

} // namespace
} // namespace workbench
