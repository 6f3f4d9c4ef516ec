// Text that is being typed, keys from anywhere, files that change under the window.
#include "tests/desktop/window/window_fixture.h"
#include "workbench/desktop/deploy/deploy_panel.h"
#include "workbench/desktop/projects/project_names.h"
#include "workbench/remote/profile/profile_store.h"

#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QLineEdit>
#include <QPushButton>
#include <QWheelEvent>
#include <QWindow>

namespace workbench {
namespace {

using namespace deployment::file_column;

using testing::OnNextDialog;

class TWindowHands : public testing::TWindowTest {
protected:
  // Types into the remote path of a file and leaves the editor open.
  void Type(const QString& text) {
    Click(Row("levels.dat", RemotePath));
    QTest::keyClick(&View(), Qt::Key_F2);
    auto* combo = View().viewport()->findChild<QComboBox*>();
    ASSERT_NE(combo, nullptr);
    combo->lineEdit()->selectAll();
    QTest::keyClicks(combo, text);
  }
  bool FileHas(const std::string& text) { return Read(FProject).find(text) != std::string::npos; }
  QComboBox& TargetBox() { return Window().CurrentControls()->TargetsComboBox()->Box(); }
  std::string PathCell() { return Cell(Row("levels.dat").row(), RemotePath); }
};

TEST_F(TWindowHands, SaveTakesTheTextThatIsBeingTyped) {
  OpenExample();
  Type("pending\\");
  Choose("Save");
  EXPECT_TRUE(FileHas("pending\\"));
  EXPECT_FALSE(Window().isWindowModified());
}

TEST_F(TWindowHands, CloseAndQuitAskAboutTheTextThatIsBeingTyped) {
  OpenExample();
  Saved();
  Type("third\\");
  AnswerNext("Cancel");
  Choose("Close");
  EXPECT_EQ(Window().Tabs().count(), 1);
  EXPECT_EQ(PathCell(), "third\\");
  Choose("Undo");
  Type("fourth\\");
  AnswerNext("Save");
  EXPECT_TRUE(Window().close());
  EXPECT_TRUE(FileHas("fourth\\"));
}

TEST_F(TWindowHands, ATargetAndAnotherTabTakeTheTextThatIsBeingTyped) {
  OpenExample();
  Type("first\\");
  Window().ChooseTarget("Debug", "Android");
  Window().ChooseTarget("Debug", "Win64");
  EXPECT_EQ(PathCell(), "first\\");
  std::filesystem::copy(FRoot / "tide", FRoot / "other", std::filesystem::copy_options::recursive);
  Window().Open(FRoot / "other" / "TideLogger.vproj");
  Window().Tabs().setCurrentIndex(0);
  Settle();
  Type("second\\");
  QTest::mouseClick(Window().Tabs().tabBar(), Qt::LeftButton, {},
                    Window().Tabs().tabBar()->tabRect(1).center());
  Settle();
  EXPECT_EQ(Window().Tabs().currentIndex(), 1);
  Window().Tabs().setCurrentIndex(0);
  EXPECT_EQ(PathCell(), "second\\");
}

TEST_F(TWindowHands, UndoTakesTheTextThatIsBeingTypedBack) {
  OpenExample();
  const std::string before = PathCell();
  Type("typed\\");
  Choose("Undo");
  EXPECT_EQ(PathCell(), before);
  EXPECT_FALSE(View().Delegate().IsEditing());
  Choose("Redo");
  EXPECT_EQ(PathCell(), "typed\\");
}

TEST_F(TWindowHands, TheKeyForTheNextTabTakesTheTextThatIsBeingTyped) {
  OpenExample();
  std::filesystem::copy(FRoot / "tide", FRoot / "other", std::filesystem::copy_options::recursive);
  Window().Open(FRoot / "other" / "TideLogger.vproj");
  Settle();
  Type("next\\");
  QTest::keyClick(&Window().Tabs(), Qt::Key_Tab, Qt::ControlModifier);
  Settle();
  EXPECT_EQ(Window().Tabs().currentIndex(), 0);
  Window().Tabs().setCurrentIndex(1);
  EXPECT_EQ(PathCell(), "next\\");
}

// As the desktop sends them: commands of menus with the same keys hear of them, too.
TEST_F(TWindowHands, KeysForTextReachTheTextThatIsBeingTyped) {
  OpenExample();
  Type("typed\\");
  auto& combo = *View().viewport()->findChild<QComboBox*>();
  QLineEdit& text = *combo.lineEdit();
  const auto press = [this](int key, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) {
    QTest::keyClick(Window().windowHandle(), static_cast<Qt::Key>(key), modifiers);
  };
  QApplication::clipboard()->clear();
  press(Qt::Key_A);
  ASSERT_TRUE(View().Delegate().IsEditing());
  EXPECT_EQ(View().selectionModel()->selectedRows().size(), 1);
  EXPECT_EQ(text.selectedText(), "typed\\");
  press(Qt::Key_C);
  EXPECT_EQ(QApplication::clipboard()->text(), "typed\\");
  press(Qt::Key_X);
  EXPECT_EQ(text.text(), "");
  press(Qt::Key_V);
  press(Qt::Key_V);
  EXPECT_EQ(text.text(), "typed\\typed\\");
  press(Qt::Key_Z);
  EXPECT_EQ(text.text(), "typed\\");
  press(Qt::Key_Home, {});
  EXPECT_EQ(text.cursorPosition(), 0);
  press(Qt::Key_Delete, {});
  EXPECT_EQ(text.text(), "yped\\");
  press(Qt::Key_End, {});
  EXPECT_EQ(text.cursorPosition(), 5);
  EXPECT_TRUE(View().Delegate().IsEditing());
  EXPECT_TRUE(Row("levels.dat").isValid());
  press(Qt::Key_Return, {});
  EXPECT_EQ(PathCell(), "yped\\");
  press(Qt::Key_A);
  EXPECT_EQ(View().selectionModel()->selectedRows().size(), View().model()->rowCount());
}

TEST_F(TWindowHands, KeysForTextReachACellThatIsChosenFrom) {
  OpenExample();
  Click(Row("levels.dat", Platforms));
  QTest::keyClick(&View(), Qt::Key_F2);
  auto* text = View().viewport()->findChild<QLineEdit*>();
  ASSERT_NE(text, nullptr);
  text->deselect();
  QTest::keyClick(Window().windowHandle(), Qt::Key_A, Qt::ControlModifier);
  ASSERT_TRUE(View().Delegate().IsEditing());
  EXPECT_EQ(View().selectionModel()->selectedRows().size(), 1);
  EXPECT_EQ(text->selectedText(), text->text());
  QTest::keyClick(Window().windowHandle(), Qt::Key_C, Qt::ControlModifier);
  EXPECT_EQ(QApplication::clipboard()->text(), text->text());
}

TEST_F(TWindowHands, DialogsStandInTheMiddleOfTheWindowAndEnterAnswersThem) {
  OpenExample();
  Window().resize(700, 560); // all of it is on the screen
  Window().move(60, 120);
  Settle();
  const QPoint middle = Window().frameGeometry().center();
  const auto look = [&](const char* name, bool isCentred = true) {
    OnNextDialog([&middle, name, isCentred](QDialog& dialog) {
      const QPoint off = dialog.frameGeometry().center() - middle;
      EXPECT_TRUE(!isCentred || off.manhattanLength() <= 4)
          << name << " " << off.x() << " " << off.y();
      QTest::keyClick(&dialog, Qt::Key_Return);
      EXPECT_FALSE(dialog.isVisible()) << name << " ignores Enter";
    });
  };
  look("optional files");
  PressButton("tbAddFeature");
  look("revert", /*isCentred=*/false); // that form wants the middle of the screen
  PressButton("tbRevert");
  look("settings");
  Choose("Settings");
  look("profiles");
  Choose("Remote Profiles");
  look("about");
  Choose("About");
}

TEST_F(TWindowHands, ReloadAsksAboutTheTextThatIsBeingTyped) {
  OpenExample();
  Saved();
  Type("typed\\");
  AnswerNext("Keep");
  Choose("Reload");
  EXPECT_EQ(PathCell(), "typed\\");
}

TEST_F(TWindowHands, TheListHasTheFocusAfterAProjectWasOpened) {
  OpenExample();
  EXPECT_EQ(QApplication::focusWidget(), &View());
  Choose("Close");
  OpenExample();
  EXPECT_EQ(QApplication::focusWidget(), &View());
}

TEST_F(TWindowHands, DeployWorksFromThePanelAndGivesTheFocusBack) {
  std::filesystem::create_directory(FRoot / "target");
  Host().RemoteProfiles().AddProfile(
      {.Name = "bench", .Platform = "Win64", .Path = (FRoot / "target").string()});
  OpenExample();
  Project().AssignProfile("Win64", "bench", false);
  Settle();
  PressButton("tbDeploy");
  ASSERT_TRUE(QTest::qWaitFor([this] { return Window().Panel().IsAsking(); }, 20000));
  Settle();
  EXPECT_EQ(QApplication::focusWidget(), &testing::Child<QTreeView>(Window().Panel(), "log"));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_F9);
  ASSERT_TRUE(QTest::qWaitFor([this] { return !Window().Panel().IsRunning(); }, 20000));
  Settle();
  EXPECT_EQ(QApplication::focusWidget(), &View());
  std::filesystem::remove_all(FRoot / "target" / "TideLogger");
  auto* close = testing::FindButton(Window().Panel(), "Close");
  ASSERT_NE(close, nullptr);
  for (int press = 0; press < 2; ++press) {
    close->setFocus();
    QTest::keyClick(close, Qt::Key_F9);
    ASSERT_TRUE(QTest::qWaitFor([this] { return !Window().Panel().IsRunning(); }, 20000));
  }
  ASSERT_TRUE(QTest::qWaitFor(
      [this] {
        return std::filesystem::exists(FRoot / "target" / "TideLogger" / "TideLogger.dll");
      },
      20000));
  EXPECT_TRUE(QTest::qWaitFor([this] { return !Window().Panel().IsRunning(); }, 20000));
}

TEST_F(TWindowHands, KeysAreThoseOfTheTabInFront) {
  OpenExample();
  std::filesystem::copy(FRoot / "tide", FRoot / "other", std::filesystem::copy_options::recursive);
  Window().Open(FRoot / "other" / "TideLogger.vproj");
  Settle();
  int reconciled = 0;
  for (int tab = 0; tab < 2; ++tab) {
    Window().Tabs().setCurrentIndex(tab);
    QObject::connect(Button("tbReconcile"), &QAction::triggered, &Window(), [&] { ++reconciled; });
    Settle();
    for (QMenu* menu : Window().findChildren<QMenu*>()) {
      if (menu->title().remove('&') == "Deployment") {
        emit menu->aboutToShow();
        emit menu->aboutToHide();
      }
    }
    Settle();
    QTest::keyClick(&View(), Qt::Key_R, Qt::ControlModifier);
    EXPECT_EQ(reconciled, tab + 1);
  }
}

TEST_F(TWindowHands, TheWheelLeavesTheTarget) {
  OpenExample();
  const QString before = TargetBox().currentText();
  TargetBox().setFocus();
  for (const int notch : {-120, 120}) {
    QWheelEvent wheel(QPointF(5, 5), TargetBox().mapToGlobal(QPointF(5, 5)), {}, QPoint(0, notch),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QApplication::sendEvent(&TargetBox(), &wheel);
    EXPECT_EQ(TargetBox().currentText(), before);
  }
}

TEST_F(TWindowHands, AClickOnTheTargetBoxLeavesTheFocusInTheList) {
  OpenExample();
  EXPECT_FALSE(TargetBox().focusPolicy() & Qt::ClickFocus);
  EXPECT_FALSE(TargetBox().focusPolicy() & Qt::WheelFocus & ~Qt::TabFocus);
}

TEST_F(TWindowHands, SideFilesAreNeitherOfferedNorOpened) {
  const QString patterns = ProjectFileFilter().section(";;", 0, 0).section('(', 1).chopped(1);
  const auto isOffered = [&patterns](const QString& name) {
    return QDir::match(patterns.split(' '), name);
  };
  for (const char* name : {"a.vproj", "a.proj", "a.vcxproj", "a.b.csproj", "a.pyproj", "a.oyproj",
                           "a.employproj", "a.eployproj", "a.xproj"})
    EXPECT_TRUE(isOffered(name)) << name;
  for (const char* name : {"a.deployproj", "a.b.deployproj", "a.txt", "proj"})
    EXPECT_FALSE(isOffered(name)) << name;
  OpenExample();
  ClickCheck(Row("levels.dat"));
  Saved();
  std::string said;
  AnswerNext("OK", &said);
  EXPECT_FALSE(Window().Open(FRoot / "tide" / "TideLogger.deployproj"));
  EXPECT_NE(said.find("made from a project by each save"), std::string::npos) << said;
}

TEST_F(TWindowHands, AProjectThatOthersChangedIsReadAgainWithoutAQuestion) {
  OpenExample();
  Window().ChooseTarget("Debug", "Android");
  Write(FProject, testing::Replaced(Read(FProject), "my-stations.json", "your-stations.json"));
  Window().Projects().CheckDisk(); // a question would hang here
  Settle();
  EXPECT_EQ(Window().Tabs().count(), 1);
  EXPECT_EQ(TargetBox().currentText().toStdString(), "Android – Debug");
  Window().ChooseTarget("Debug", "Win64");
  EXPECT_EQ(Cell(Row("stations.json").row(), RemoteName), "your-stations.json");
  EXPECT_FALSE(Window().isWindowModified());
}

TEST_F(TWindowHands, EditsCanBeKeptWhenOthersChangedTheProject) {
  OpenExample();
  Saved();
  ClickCheck(Row("levels.dat"));
  Settle();
  Write(FProject, testing::Replaced(Read(FProject), "my-stations.json", "your-stations.json"));
  AnswerNext("Reload and Keep My Edits");
  Window().Projects().CheckDisk();
  Settle();
  EXPECT_EQ(Cell(Row("stations.json").row(), RemoteName), "your-stations.json");
  EXPECT_FALSE(IsChecked(Row("levels.dat")));
  EXPECT_TRUE(Window().isWindowModified());
  Choose("Undo");
  EXPECT_TRUE(IsChecked(Row("levels.dat")));
  EXPECT_FALSE(Window().isWindowModified());
  Choose("Redo");
  Choose("Save");
  EXPECT_TRUE(FileHas("your-stations.json"));
  EXPECT_TRUE(FindRecoverable().Found.empty());
}

TEST_F(TWindowHands, SaveAsGoesOnUnderTheNewName) {
  OpenExample();
  const std::string before = Read(FProject);
  ClickCheck(Row("levels.dat"));
  const auto other = FRoot / "tide" / "Other.vproj";
  EXPECT_TRUE(Window().Projects().SaveAs(0, other));
  Settle();
  EXPECT_EQ(Window().Tabs().tabText(0), "Deployment Other");
  EXPECT_EQ(Window().windowTitle().left(15), "Other.vproj[*] ");
  EXPECT_TRUE(std::filesystem::exists(FRoot / "tide" / "Other.deployproj"));
  EXPECT_EQ(Read(FProject), before);
  ClickCheck(Row("levels.dat"));
  Settle();
  Vanish();
  SetUpAgain();
  ASSERT_EQ(FindRecoverable().Found.size(), 1U);
  EXPECT_EQ(FindRecoverable().Found.front().Project, other);
}

TEST_F(TWindowHands, AProjectWhoseFileWasRenamedGoesOnUnderItsNewName) {
  OpenExample();
  ClickCheck(Row("levels.dat"));
  Settle();
  const auto other = FRoot / "tide" / "Renamed.vproj";
  std::filesystem::rename(FProject, other);
  Window().Projects().CheckDisk(); // a question would hang here
  Settle();
  EXPECT_EQ(Project().GivenFileName(), other);
  EXPECT_EQ(Window().Tabs().tabText(0), "Deployment Renamed *");
  EXPECT_FALSE(IsChecked(Row("levels.dat")));
  Choose("Save");
  EXPECT_FALSE(std::filesystem::exists(FProject));
  EXPECT_TRUE(std::filesystem::exists(FRoot / "tide" / "Renamed.deployproj"));
}

TEST_F(TWindowHands, ProfilesThatOtherProgramsChangedAreKnown) {
  OpenExample();
  const TProfile lab{.Name = "lab", .Platform = "Win64", .Path = FRoot.string()};
  Host().RemoteProfiles().AddProfile({.Name = "old", .Platform = "Win64", .Path = FRoot.string()});
  TProfileStore others(Host().RemoteProfiles().Profiles().File());
  others.Add(lab);
  others.Remove("old");
  EXPECT_TRUE(QTest::qWaitFor(
      [this] {
        return Host().RemoteProfiles().FindProfile("lab") != nullptr &&
               Host().RemoteProfiles().FindProfile("old") == nullptr;
      },
      10000));
}

} // namespace
} // namespace workbench
