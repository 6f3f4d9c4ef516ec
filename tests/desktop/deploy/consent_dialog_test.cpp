#include "tests/desktop/support/dialog_script.h"
#include "workbench/desktop/deploy/consent_dialog.h"

#include <QPlainTextEdit>

namespace workbench {
namespace {

using testing::Child;
using testing::OnNextDialog;
using testing::Press;

const std::vector<std::string> Commands{"make all", "rm -rf \xE2\x80\xAE x\r"};

TEST(ConsentDialog, IsAYesOnlyWhenItsButtonIsPressed) {
  OnNextDialog([](QDialog& dialog) { Press(dialog, "Run Them"); });
  EXPECT_TRUE(AskConsent(Commands, "profile box (/srv)", nullptr));
  OnNextDialog([](QDialog& dialog) { Press(dialog, "Do Not Run"); });
  EXPECT_FALSE(AskConsent(Commands, "profile box (/srv)", nullptr));
  for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Escape}) {
    OnNextDialog([key](QDialog& dialog) { QTest::keyClick(&dialog, key); });
    EXPECT_FALSE(AskConsent(Commands, "profile box (/srv)", nullptr));
  }
  OnNextDialog([](QDialog& dialog) { dialog.close(); });
  EXPECT_FALSE(AskConsent(Commands, "profile box (/srv)", nullptr));
}

TEST(ConsentDialog, ShowsCharactersThatCouldHideWhatACommandDoes) {
  QString shown;
  OnNextDialog(
      [&](QDialog& dialog) { shown = Child<QPlainTextEdit>(dialog, "commands").toPlainText(); });
  AskConsent(Commands, "profile box (/srv)", nullptr);
  EXPECT_EQ(shown.toStdString(), "make all\nrm -rf \\xE2\\x80\\xAE x\\x0D");
}

} // namespace
} // namespace workbench
