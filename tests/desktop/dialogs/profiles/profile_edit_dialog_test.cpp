#include "tests/desktop/support/dialog_script.h"
#include "workbench/desktop/dialogs/profiles/profile_edit_dialog.h"
#include "workbench/remote/profile/profile_check.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QSpinBox>

namespace workbench {
namespace {

using testing::Child;
using testing::Press;

class TProfileEditTest : public ::testing::Test {
protected:
  TProfileEditDialog& Open(const TProfile& start = {}) {
    FDialog = std::make_unique<TProfileEditDialog>(
        QStringList{"Win32", "OSX32"}, start,
        [this](const TProfile& profile) {
          CheckProfile(profile);
          FKept = profile;
        },
        nullptr);
    FDialog->show();
    return *FDialog;
  }
  void Type(const char* field, const QString& text) {
    auto& edit = Child<QLineEdit>(*FDialog, field);
    edit.setFocus();
    edit.selectAll();
    QTest::keyClicks(&edit, text);
  }
  std::string Problem() const {
    const auto& label = Child<QLabel>(*FDialog, "problem");
    return label.isVisible() ? label.text().toStdString() : std::string();
  }

  std::unique_ptr<TProfileEditDialog> FDialog;
  TProfile FKept;
};

TEST_F(TProfileEditTest, MakesAFolderProfile) {
  auto& dialog = Open({.Platform = "OSX32"});
  EXPECT_EQ(dialog.windowTitle(), "New Profile");
  Type("name", "share");
  Type("path", "/mnt/share/");
  QTest::keyClick(&Child<QCheckBox>(dialog, "default"), Qt::Key_Space);
  Press(dialog, "OK");
  EXPECT_EQ(dialog.result(), QDialog::Accepted);
  EXPECT_EQ(
      FKept,
      (TProfile{.Name = "share", .Platform = "OSX32", .Path = "/mnt/share", .IsDefault = true}));
  EXPECT_EQ(dialog.Profile(), FKept);
}

TEST_F(TProfileEditTest, MakesASshProfile) {
  auto& dialog = Open({.Platform = "Win32"});
  Type("name", "pi");
  Child<QComboBox>(dialog, "kind").setCurrentText("SSH");
  Type("host", "raspberry");
  Child<QSpinBox>(dialog, "port").setValue(2222);
  Type("user", "eva");
  Type("identity", "~/.ssh/id_pi");
  Type("remotePath", "~/app");
  auto& options = Child<QPlainTextEdit>(dialog, "options");
  QTest::keyClicks(&options, "ProxyJump=gate");
  QTest::keyClick(&options, Qt::Key_Return);
  QTest::keyClick(&options, Qt::Key_Return);
  QTest::keyClicks(&options, "Compression=yes");
  Child<QSpinBox>(dialog, "connectTimeout").setValue(20);
  Child<QSpinBox>(dialog, "keepAlive").setValue(5);
  QTest::keyClick(&Child<QCheckBox>(dialog, "allowOutside"), Qt::Key_Space);
  Press(dialog, "OK");
  EXPECT_EQ(FKept, (TProfile{.Name = "pi",
                             .Platform = "Win32",
                             .Kind = TProfileKind::Ssh,
                             .Path = "~/app",
                             .AllowOutside = true,
                             .Host = "raspberry",
                             .Port = 2222,
                             .User = "eva",
                             .Identity = "~/.ssh/id_pi",
                             .SshOptions = {"ProxyJump=gate", "Compression=yes"},
                             .ConnectTimeout = 20,
                             .KeepAlive = 5}));
}

TEST_F(TProfileEditTest, ChangesNothingThatTheUserLeftAlone) {
  const TProfile start{.Name = "pi",
                       .Platform = "Plan9", // of a table that is not in use any more
                       .Kind = TProfileKind::Ssh,
                       .Path = "C:/app",
                       .Host = "raspberry",
                       .SshOptions = {"Compression=yes"},
                       .ConnectTimeout = 30};
  auto& dialog = Open(start);
  EXPECT_EQ(dialog.windowTitle(), "Profile");
  Press(dialog, "OK");
  EXPECT_EQ(FKept, start);
}

TEST_F(TProfileEditTest, SaysWhatToDoAboutFieldsThatAreEmpty) {
  auto& dialog = Open({.Platform = "Win32"});
  Press(dialog, "OK");
  EXPECT_EQ(Problem(), "Enter a name for the profile.");
  EXPECT_EQ(dialog.focusWidget(), &Child<QLineEdit>(dialog, "name"));
  Type("name", "x");
  Press(dialog, "OK");
  EXPECT_EQ(Problem(), "Choose the directory that the files are to go to.");
  Child<QComboBox>(dialog, "kind").setCurrentText("SSH");
  EXPECT_EQ(Problem(), "");
  Press(dialog, "OK");
  EXPECT_EQ(Problem(), "Enter the name or the address of the machine as the host.");
  EXPECT_EQ(dialog.focusWidget(), &Child<QLineEdit>(dialog, "host"));
  Type("host", "pi");
  Press(dialog, "OK");
  EXPECT_EQ(Problem(),
            "Enter the directory on the machine that the files are to go to, such as ~/app.");
  EXPECT_TRUE(dialog.isVisible());
  EXPECT_EQ(FKept, TProfile());
}

TEST_F(TProfileEditTest, ShowsWhyAProfileCannotBeKept) {
  auto& dialog = Open({.Platform = "Win32"});
  Type("name", "-x");
  Type("path", "/tmp/x");
  Press(dialog, "OK");
  EXPECT_EQ(Problem(), "\"-x\" cannot be the name of a profile");
  QTest::keyClick(&dialog, Qt::Key_Escape);
  EXPECT_EQ(dialog.result(), QDialog::Rejected);
}

} // namespace
} // namespace workbench
