#include "tests/desktop/support/dialog_script.h"
#include "tests/workbench/session/session_fixture.h"
#include "workbench/desktop/dialogs/profiles/profile_edit_dialog.h"
#include "workbench/desktop/dialogs/profiles/profile_manager_dialog.h"
#include "workbench/project/project_settings.h"
#include "workbench/services/remote_profile_services.h"

#include <QAbstractItemModelTester>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QTableView>
#include <sys/stat.h>

namespace workbench {
namespace {

using testing::Child;
using testing::FindButton;
using testing::OnNextDialog;
using testing::Press;

class TProfileManagerTest : public testing::TSessionTest {
protected:
  std::string Target(const char* name) const { return (FRoot / name).string(); }
  const TProfileStore& Store() { return Host().RemoteProfiles().Profiles(); }
  // What another run finds in profiles.json.
  std::string Kept() const {
    const TProfileStore store(FRoot / "config" / "deployment-manager" / "profiles.json");
    std::string text;
    for (const TProfile& profile : store.List())
      text += profile.Name + "=" + std::filesystem::path(profile.Path).filename().string() +
              (profile.IsDefault ? "*" : "") + ";";
    return text;
  }
  void AddTwo() {
    Host().RemoteProfiles().AddProfile(
        {.Name = "a", .Platform = "Win32", .Path = Target("ta"), .IsDefault = true});
    Host().RemoteProfiles().AddProfile({.Name = "b", .Platform = "Win64", .Path = Target("tb")});
  }
  TProfileManagerDialog& Show(TOpenProject* project = nullptr) {
    FDialog = std::make_unique<TProfileManagerDialog>(Host(), project, nullptr);
    FDialog->show();
    return *FDialog;
  }
  void Select(int row) {
    auto& table = Child<QTableView>(*FDialog, "profiles");
    QTest::mouseClick(table.viewport(), Qt::LeftButton, {},
                      table.visualRect(table.model()->index(row, 0)).center());
  }
  std::string Status() const { return Child<QLabel>(*FDialog, "status").text().toStdString(); }
  // Enters a name and a directory into the dialog of a profile.
  static void Enter(QDialog& dialog, const QString& name, const std::string& path) {
    auto& edit = Child<QLineEdit>(dialog, "name");
    edit.selectAll();
    QTest::keyClicks(&edit, name);
    Child<QLineEdit>(dialog, "path").setText(QString::fromStdString(path));
    Press(dialog, "OK");
  }
  void TearDown() override {
    FDialog.reset();
    FSession.reset();
    TSessionTest::TearDown();
  }

  std::unique_ptr<TProfileManagerDialog> FDialog;
};

TEST_F(TProfileManagerTest, SaysWhatToDoWhenThereIsNoProfile) {
  auto& dialog = Show();
  EXPECT_EQ(Status(), "There is no profile yet. Add one to say where the files of a platform go.");
  for (const char* text : {"Edit\u2026", "Duplicate\u2026", "Remove", "Test", "Assign to Project"})
    EXPECT_FALSE(FindButton(dialog, QString::fromUtf8(text))->isEnabled()) << text;
}

TEST_F(TProfileManagerTest, AddsAProfileAndMakesItsDirectory) {
  auto& dialog = Show();
  OnNextDialog([&](QDialog& edit) { Enter(edit, "new", Target("made")); });
  Press(dialog, "Add\u2026");
  EXPECT_EQ(Kept(), "new=made;");
  EXPECT_TRUE(std::filesystem::is_directory(Target("made")));
  EXPECT_EQ(Status(), "");
  OnNextDialog([](QDialog& edit) { edit.reject(); });
  Press(dialog, "Add\u2026");
  EXPECT_EQ(Kept(), "new=made;");
}

TEST_F(TProfileManagerTest, KeepsTheEditorOpenWhenTheNameIsTaken) {
  AddTwo();
  auto& dialog = Show();
  std::string problem;
  OnNextDialog([&](QDialog& edit) {
    Enter(edit, "b", Target("x"));
    EXPECT_TRUE(edit.isVisible());
    problem = Child<QLabel>(edit, "problem").text().toStdString();
  });
  Press(dialog, "Add\u2026");
  EXPECT_EQ(problem, "there is a profile \"b\" already");
  EXPECT_EQ(Kept(), "a=ta*;b=tb;");
}

TEST_F(TProfileManagerTest, ChangesAProfileInItsPlace) {
  AddTwo();
  auto& dialog = Show();
  Select(0);
  OnNextDialog([&](QDialog& edit) { Enter(edit, "first", Target("other")); });
  Press(dialog, "Edit\u2026");
  EXPECT_EQ(Kept(), "first=other*;b=tb;");
}

TEST_F(TProfileManagerTest, DuplicatesUnderANameThatIsFree) {
  AddTwo();
  auto& dialog = Show();
  for (int times = 0; times < 2; ++times) {
    Select(0);
    OnNextDialog([](QDialog& edit) { Press(edit, "OK"); });
    Press(dialog, "Duplicate\u2026");
  }
  EXPECT_EQ(Kept(), "a=ta*;b=tb;a copy=ta;a copy 2=ta;");
}

TEST_F(TProfileManagerTest, RemovesAfterAYesOnly) {
  AddTwo();
  auto& dialog = Show();
  Select(0);
  OnNextDialog([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
  Press(dialog, "Remove");
  EXPECT_EQ(Kept(), "a=ta*;b=tb;");
  OnNextDialog([](QDialog& box) { Press(box, "Yes"); });
  Press(dialog, "Remove");
  EXPECT_EQ(Kept(), "b=tb;");
  EXPECT_EQ(Child<QTableView>(dialog, "profiles").currentIndex().data().toString(), "b");
}

TEST_F(TProfileManagerTest, MakesAndUnmakesTheDefault) {
  AddTwo();
  auto& dialog = Show();
  Select(1);
  Press(dialog, "Make Default");
  EXPECT_EQ(Kept(), "a=ta*;b=tb*;");
  Press(dialog, "No Longer Default");
  EXPECT_EQ(Kept(), "a=ta*;b=tb;");
}

TEST_F(TProfileManagerTest, TestsTheConnectionInTheBackground) {
  AddTwo();
  std::filesystem::create_directory(Target("ta"));
  auto& dialog = Show();
  Select(0);
  Press(dialog, "Test");
  EXPECT_EQ(Status(), "Connecting to a\u2026");
  EXPECT_FALSE(FindButton(dialog, "Test")->isEnabled());
  EXPECT_TRUE(QTest::qWaitFor([&] { return Status() == "a: the connection works."; }, 60000));
  Select(1);
  Press(dialog, "Test");
  EXPECT_TRUE(QTest::qWaitFor([&] { return Status().starts_with("b: no connection: "); }, 60000));
  EXPECT_NE(Status().find(Target("tb")), std::string::npos) << Status();
}

TEST_F(TProfileManagerTest, ClosesWhenATestHasEnded) {
  AddTwo();
  auto& dialog = Show();
  Press(dialog, "Test");
  Press(dialog, "Close");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_TRUE(QTest::qWaitFor([&] { return !dialog.isVisible(); }, 60000));
}

TEST_F(TProfileManagerTest, AssignsToTheProject) {
  AddTwo();
  auto& project = OpenText(testing::ProjectWith(""));
  auto& dialog = Show(&project);
  Select(1);
  EXPECT_FALSE(FindButton(dialog, "Assign to Project")->isEnabled());
  EXPECT_EQ(FindButton(dialog, "Assign to Project")->toolTip(),
            "The project is not set up for the platform Win64.");
  Select(0);
  Press(dialog, "Assign to Project");
  EXPECT_EQ(Status(), "a is the project's profile for Win32 now.");
  EXPECT_EQ(project.Settings().FindPlatform("Win32")->Profile, "a");
  EXPECT_NE(Read(FFile).find("a</"), std::string::npos) << Read(FFile);
  EXPECT_FALSE(FindButton(dialog, "Assign to Project")->isEnabled());
}

TEST_F(TProfileManagerTest, SaysWhenTheProjectCannotBeWritten) {
  AddTwo();
  auto& project = OpenText(testing::ProjectWith(""));
  Write(FFile, testing::ProjectWith("<!-- changed by another program -->"));
  auto& dialog = Show(&project);
  Select(0);
  Press(dialog, "Assign to Project");
  EXPECT_NE(Status().find(FFile.string()), std::string::npos) << Status();
  EXPECT_TRUE(FindButton(dialog, "Assign to Project")->isEnabled());
}

TEST_F(TProfileManagerTest, NamesADamagedFile) {
  const auto file = FRoot / "config" / "deployment-manager" / "profiles.json";
  std::filesystem::create_directories(file.parent_path());
  Write(file, "[");
  Show();
  EXPECT_TRUE(Status().starts_with(file.string() + ":1: the profiles file is damaged: "))
      << Status();
}

TEST_F(TProfileManagerTest, MakesAProfileForAProjectThatNeedsOne) {
  auto& project = OpenText(testing::ProjectWith(""));
  OnNextDialog([&](QDialog& edit) { Enter(edit, "fresh", Target("fresh")); });
  EXPECT_TRUE(CreateAndAssignProfile(Host(), project, "Win32", nullptr));
  EXPECT_EQ(Kept(), "fresh=fresh;");
  EXPECT_EQ(project.Settings().FindPlatform("Win32")->Profile, "fresh");
  OnNextDialog([](QDialog& edit) { edit.reject(); });
  EXPECT_FALSE(CreateAndAssignProfile(Host(), project, "Win32", nullptr));
}

TEST_F(TProfileManagerTest, HasAProperModel) {
  AddTwo();
  TProfileModel model(Store(), nullptr);
  const QAbstractItemModelTester tester(&model,
                                        QAbstractItemModelTester::FailureReportingMode::Fatal);
  model.Refresh();
  EXPECT_EQ(model.index(0, TProfileModel::Default).data().toString(), "yes");
  EXPECT_EQ(model.index(1, TProfileModel::Kind).data().toString(), "Folder");
  EXPECT_EQ(model.headerData(TProfileModel::Place, Qt::Horizontal, Qt::DisplayRole), "Place");
}

} // namespace
} // namespace workbench
