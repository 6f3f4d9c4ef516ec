// The window on an example that goes to a folder.
#pragma once

#include "tests/desktop/window/window_fixture.h"
#include "workbench/desktop/deploy/deploy_page.h"
#include "workbench/desktop/deploy/deploy_panel.h"

#include <QLabel>
#include <QPushButton>
#include <QTreeView>
#include <string>

namespace workbench::testing {

class TDeployWindowTest : public TWindowTest {
protected:
  void SetUp() override {
    TWindowTest::SetUp();
    std::filesystem::create_directory(FRoot / "target");
    Host().RemoteProfiles().AddProfile(
        {.Name = "bench", .Platform = "Win64", .Path = (FRoot / "target").string()});
  }
  void Assign() { Project().AssignProfile("Win64", "bench", false); }
  /// Waits for what runs in the background and comes back to the event loop.
  void Connect() {
    PressButton("tbConnect");
    ASSERT_TRUE(QTest::qWaitFor(
        [this] { return Cell(0, deployment::file_column::RemoteStatus) != "Not Connected"; },
        10000));
  }
  void WaitForEnd() {
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Window().Panel().IsRunning(); }, 20000));
    Settle();
  }
  /// What F9 or the button makes: a plan that waits.
  void Plan() {
    PressButton("tbDeploy");
    WaitForEnd();
  }
  /// The plan and its confirmation.
  void Deploy() {
    Plan();
    ASSERT_TRUE(Window().Panel().IsAsking()) << Summary();
    PressButton("tbDeploy");
    WaitForEnd();
  }
  /// Confirms the plan that is shown.
  void Confirm() {
    ASSERT_TRUE(Window().Panel().IsAsking()) << Summary();
    Press(Window().Panel(), "Deploy");
    WaitForEnd();
  }
  std::string Summary() { return Child<QLabel>(Window().Panel(), "summary").text().toStdString(); }
  QTreeView& PlanRows() { return Child<QTreeView>(Window().Panel(), "log"); }
  /// The row of the panel about this local name, in a column.
  QModelIndex PlanRow(const QString& localName, int column = TDeployRowsModel::File) {
    for (int row = 0; row < PlanRows().model()->rowCount(); ++row) {
      if (PlanRows().model()->index(row, 0).data().toString() == localName)
        return PlanRows().model()->index(row, column);
    }
    ADD_FAILURE() << "the panel has no row " << localName.toStdString();
    return {};
  }
  std::string ActionOf(const QString& localName) {
    return PlanRow(localName, TDeployRowsModel::Action).data().toString().toStdString();
  }
  std::filesystem::path Deployed(const std::string& name) {
    return FRoot / "target" / "TideLogger" / name;
  }
};

} // namespace workbench::testing
