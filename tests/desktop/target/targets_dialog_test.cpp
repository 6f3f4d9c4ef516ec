#include "tests/desktop/target/deploy_now.h"
#include "workbench/desktop/target/targets_dialog.h"

#include <QAccessible>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QListWidget>
#include <QTableView>
#include <map>
#include <string>

namespace workbench {
namespace {

using testing::Child;
using testing::OnNextDialog;
using testing::Press;

class TTargetsTest : public testing::TDeployNowTest {
protected:
  // Two folders, of which one has what the example deploys.
  void MakeTargets() {
    for (const char* name : {"near", "far"}) {
      std::filesystem::create_directory(FRoot / name);
      Host().RemoteProfiles().AddProfile(
          {.Name = name, .Platform = "Win64", .Path = (FRoot / name).string()});
    }
    Host().RemoteProfiles().AddToGroup("field", {"far"});
    OpenExample();
    Project().AssignProfile("Win64", "near", false);
    Window().ChooseTarget("Debug", "Win64");
    Deploy();
    Settle();
  }
  static std::map<std::string, std::string> Column(const QTableView& table, int column) {
    std::map<std::string, std::string> cells;
    for (int row = 0; row < table.model()->rowCount(); ++row)
      cells[table.model()->index(row, 0).data().toString().toStdString()] =
          table.model()->index(row, column).data().toString().toStdString();
    return cells;
  }
};

TEST_F(TTargetsTest, AreComparedSideBySide) {
  MakeTargets();
  OnNextDialog([](QDialog& dialog) {
    Press(dialog, "Compare");
    auto& table = Child<QTableView>(dialog, "targets");
    ASSERT_EQ(table.model()->columnCount(), 3);
    EXPECT_EQ(table.model()->headerData(1, Qt::Horizontal).toString(), "near");
    EXPECT_EQ(Column(table, 1)["data\\levels.dat"], "same");
    EXPECT_EQ(Column(table, 2)["data\\levels.dat"], "new");
    const std::string summary = Child<QLabel>(dialog, "summary").text().toStdString();
    EXPECT_NE(summary.find("far: "), std::string::npos) << summary;
    const int rows = table.model()->rowCount();
    auto& groups = Child<QComboBox>(dialog, "groups");
    groups.setCurrentIndex(1);
    emit groups.activated(1);
    Press(dialog, "Compare");
    EXPECT_EQ(table.model()->columnCount(), 2);
    EXPECT_EQ(table.model()->headerData(1, Qt::Horizontal).toString(), "far");
    EXPECT_EQ(table.model()->rowCount(), rows);
  });
  Choose("Targets");
}

TEST_F(TTargetsTest, ShowOnlyWhatDiffersAndWhichOneCannotBeAsked) {
  MakeTargets();
  std::filesystem::remove_all(FRoot / "far");
  OnNextDialog([](QDialog& dialog) {
    Press(dialog, "Compare");
    auto& table = Child<QTableView>(dialog, "targets");
    EXPECT_EQ(Column(table, 2)["data\\levels.dat"], "–");
    const std::string summary = Child<QLabel>(dialog, "summary").text().toStdString();
    EXPECT_NE(summary.find("far: "), std::string::npos) << summary;
    const int rows = table.model()->rowCount();
    Child<QCheckBox>(dialog, "differences").click();
    EXPECT_LT(table.model()->rowCount(), rows);
    const QAccessibleInterface* list =
        QAccessible::queryAccessibleInterface(&Child<QListWidget>(dialog, "profiles"));
    EXPECT_EQ(list->text(QAccessible::Name).toStdString(), "Profiles");
  });
  Choose("Targets");
}

} // namespace
} // namespace workbench
