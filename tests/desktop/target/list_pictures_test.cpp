// Paints a list with its bar, filter and details in light and dark. LIST_PICTURES=DIRECTORY keeps
// the pictures, for documents and for people to look at.
#include "tests/desktop/support/pictures.h"
#include "tests/desktop/target/deploy_now.h"
#include "workbench/desktop/text/package_texts.h"
#include "workbench/desktop/window/appearance.h"

#include <QComboBox>
#include <QPushButton>

namespace workbench {
namespace {

using namespace deployment::file_column;

using testing::Child;

class TListPictures : public testing::TDeployNowTest,
                      public ::testing::WithParamInterface<TAppearance> {
protected:
  void SetUp() override {
    TDeployNowTest::SetUp();
    SetAppearance(GetParam());
  }
  void Keep(const QString& name) {
    Settle();
    const bool isDark = GetParam() == TAppearance::Dark;
    testing::KeepPicture(Window(), name + (isDark ? "-dark" : ""), "LIST_PICTURES");
  }
  void Connect() {
    std::filesystem::create_directory(FRoot / "target");
    Host().RemoteProfiles().AddProfile(
        {.Name = "lab-pc", .Platform = "Win64", .Path = (FRoot / "target").string()});
    Window().resize(1480, 620);
    OpenExample();
    Project().AssignProfile("Win64", "lab-pc", false);
    Deploy();
    std::filesystem::remove(FRoot / "target" / "TideLogger" / "TideTables.de");
    std::filesystem::remove(FRoot / "tide" / "data" / "calm-day.txt");
    std::filesystem::last_write_time(FRoot / "target" / "TideLogger" / "data" / "levels.dat",
                                     std::filesystem::file_time_type::clock::now() +
                                         std::chrono::hours(1));
    Window().Panel().close();
    ClickCheck(Row("TideTables.vcp"));
    PressButton("tbConnect");
    EXPECT_TRUE(QTest::qWaitFor(
        [this] { return Cell(0, RemoteStatus) == PackageText("Same").toStdString(); }, 10000));
  }
};

TEST_P(TListPictures, OfTheTargetBarAndTheDetailsOfAFile) {
  Connect();
  Click(Row("levels.dat", LocalName));
  QTest::qWait(60);
  QTest::mouseClick(&Child<QWidget>(Window(), "compare"), Qt::LeftButton);
  QTest::qWait(60);
  QTest::mouseClick(&Child<QWidget>(Window(), "why"), Qt::LeftButton);
  QTest::qWait(60);
  Keep("details");
  auto& grouping = Child<QComboBox>(Window(), "grouping");
  grouping.setCurrentIndex(3);
  emit grouping.activated(3);
  Settle();
  Keep("grouped");
}

TEST_P(TListPictures, OfTheTableOfTargets) {
  Connect();
  for (const char* name : {"field-1", "field-2"}) {
    std::filesystem::create_directory(FRoot / name);
    Host().RemoteProfiles().AddProfile(
        {.Name = name, .Platform = "Win64", .Path = (FRoot / name).string()});
  }
  std::filesystem::copy(FRoot / "target", FRoot / "field-1",
                        std::filesystem::copy_options::recursive);
  Window().resize(1480, 760);
  Choose(TMainWindow::tr("Compare &Targets").remove('&'));
  QTest::mouseClick(&Child<QPushButton>(Window(), "compareTargets"), Qt::LeftButton);
  Keep("targets");
}

INSTANTIATE_TEST_SUITE_P(Colours, TListPictures,
                         ::testing::Values(TAppearance::Light, TAppearance::Dark),
                         [](const auto& tested) {
                           return tested.param == TAppearance::Dark ? "Dark" : "Light";
                         });

} // namespace
} // namespace workbench
