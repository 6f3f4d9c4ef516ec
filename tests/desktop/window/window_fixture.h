// The window on a copy of an example, worked by mouse and keys.
#pragma once

#include "package/featured/modify_featured_files.h"
#include "package/host/api/file_columns.h"
#include "tests/desktop/support/dialog_script.h"
#include "tests/workbench/session/session_fixture.h"
#include "workbench/desktop/controls/virtual_tree.h"
#include "workbench/desktop/window/main_window.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/settings/settings_store.h"

#include <QCoreApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <memory>
#include <string>
#include <utility>

namespace workbench::testing {

inline std::string Replaced(std::string text, std::string_view from, std::string_view to) {
  for (auto at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
    text.replace(at, from.size(), to);
  return text;
}

class TWindowTest : public TSessionTest {
protected:
  void SetUp() override {
    TSessionTest::SetUp();
    FEnvironment.Set("XDG_STATE_HOME", (FRoot / "state").string());
    std::filesystem::copy(std::filesystem::current_path() / "examples" / "tide-logger",
                          FRoot / "tide", std::filesystem::copy_options::recursive);
    FProject = FRoot / "tide" / "TideLogger.vproj";
    // Nobody is asked for optional files unless a test wants it.
    Host().Settings().WriteBool(deployment::FeaturedSettingsSection,
                                deployment::ShowFeaturedFormAuto, false);
  }
  void TearDown() override {
    EXPECT_EQ(std::exchange(testing::WaitingScripts(), 0), 0) << "a dialog did not open";
    FWindow.reset();
    FSession.reset();
    TSessionTest::TearDown();
  }

  TMainWindow& Window() {
    if (!FWindow) {
      FWindow = std::make_unique<TMainWindow>(Host());
      FWindow->show();
      static_cast<void>(QTest::qWaitForWindowExposed(FWindow.get()));
    }
    return *FWindow;
  }
  TMainWindow& OpenExample() {
    EXPECT_TRUE(Window().Open(FProject));
    Settle();
    return Window();
  }
  /// The next run of the program, after Vanish.
  void SetUpAgain() {
    Host().Settings().WriteBool(deployment::FeaturedSettingsSection,
                                deployment::ShowFeaturedFormAuto, false);
  }
  /// As if the program was killed: nothing is saved, asked or removed.
  void Vanish() {
    FWindow.reset();
    FSession.reset();
  }
  /// Also on a busy machine, where 20 ms are one round of events that bring others.
  static void Settle() {
    QTest::qWait(20);
    for (int round = 0; round < 10; ++round)
      QCoreApplication::processEvents();
  }

  TVirtualTree& Tree() { return *Window().CurrentControls()->Tree(); }
  TTreeView& View() { return Tree().View(); }
  TOpenProject& Project() { return *Window().CurrentProject(); }
  std::string Cell(int row, int column) {
    return Tree().Model().index(row, column).data().toString().toStdString();
  }
  /// The row whose local name is this.
  QModelIndex Row(const QString& name, int column = 0) {
    for (int row = 0; row < Tree().Model().rowCount(); ++row) {
      if (Tree().Model().index(row, deployment::file_column::LocalName).data().toString() == name)
        return Tree().Model().index(row, column);
    }
    ADD_FAILURE() << "no row " << name.toStdString();
    return {};
  }
  void Click(const QModelIndex& cell, Qt::KeyboardModifiers modifiers = {}) {
    View().scrollTo(cell);
    const QRect rect = View().visualRect(cell);
    QTest::mouseClick(View().viewport(), Qt::LeftButton, modifiers,
                      QPoint(rect.right() - 6, rect.center().y()));
  }
  void ClickCheck(const QModelIndex& row) { ClickCheckBox(View(), row); }
  bool IsChecked(const QModelIndex& row) {
    return row.data(Qt::CheckStateRole).toInt() == Qt::Checked;
  }
  QAction* Button(std::string_view name) {
    return Window().CurrentControls()->ToolBar()->Find(name);
  }
  void PressButton(std::string_view name) {
    auto& bar = Window().CurrentControls()->ToolBar()->Bar();
    QWidget* button = bar.widgetForAction(Button(name));
    QTest::mouseClick(button, Qt::LeftButton);
    Settle();
  }
  /// The command of the menus whose text, without mnemonics and dots, begins like this.
  QAction* Menu(const QString& text) {
    for (QAction* action : Window().findChildren<QAction*>()) {
      if (action->text().remove('&').startsWith(text) && !action->menu())
        return action;
    }
    ADD_FAILURE() << "no command " << text.toStdString();
    return nullptr;
  }
  void Choose(const QString& text) {
    if (QAction* action = Menu(text))
      action->trigger();
    Settle();
  }
  std::string Saved() {
    Choose("Save");
    return Read(FProject);
  }
  /// What the next message box says; the button is pressed then.
  void AnswerNext(const QString& button, std::string* said = nullptr) {
    OnNextDialog([button, said](QDialog& dialog) {
      if (auto* box = qobject_cast<QMessageBox*>(&dialog); box && said)
        *said = (box->text() + "|" + box->informativeText()).toStdString();
      Press(dialog, button);
    });
  }

  std::filesystem::path FProject;
  std::unique_ptr<TMainWindow> FWindow;
};

} // namespace workbench::testing
