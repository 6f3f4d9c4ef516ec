#include "tests/desktop/support/dialog_script.h"
#include "workbench/desktop/controls/qt_dialogs.h"

#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QTemporaryDir>

namespace workbench {
namespace {

using deployment::TMessageAnswer;
using testing::OnNextDialog;
using testing::Press;

const std::vector<TMessageAnswer> SeveralFiles{TMessageAnswer::Yes, TMessageAnswer::YesToAll,
                                               TMessageAnswer::No, TMessageAnswer::Cancel};

TEST(MessageBox, AnswersWithTheButtonThatIsPressed) {
  TDialogs dialogs(nullptr);
  for (const auto& [text, answer] :
       {std::pair{"Yes", TMessageAnswer::Yes}, std::pair{"Yes to All", TMessageAnswer::YesToAll},
        std::pair{"No", TMessageAnswer::No}, std::pair{"Cancel", TMessageAnswer::Cancel}}) {
    OnNextDialog([text = text](QDialog& box) { Press(box, text); });
    EXPECT_EQ(dialogs.ShowMessage({"Delete?", SeveralFiles}), answer) << text;
  }
}

TEST(MessageBox, TakesTheFirstButtonOnEnterAndTheMostCarefulOneOnEscape) {
  TDialogs dialogs(nullptr);
  OnNextDialog([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Return); });
  EXPECT_EQ(dialogs.ShowMessage({"Delete?", SeveralFiles}), TMessageAnswer::Yes);
  OnNextDialog([](QDialog& box) { QTest::keyClick(&box, Qt::Key_Escape); });
  EXPECT_EQ(dialogs.ShowMessage({"Delete?", SeveralFiles}), TMessageAnswer::Cancel);
  OnNextDialog([](QDialog& box) { box.close(); });
  EXPECT_EQ(dialogs.ShowMessage({"Go on?", {TMessageAnswer::Yes, TMessageAnswer::No}}),
            TMessageAnswer::No);
  OnNextDialog([](QDialog& box) { box.close(); });
  EXPECT_EQ(dialogs.ShowMessage({"Done.", {TMessageAnswer::OK}}), TMessageAnswer::OK);
}

TEST(MessageBox, ShowsMarkupAsItIs) {
  TDialogs dialogs(nullptr);
  OnNextDialog([](QDialog& dialog) {
    const auto& box = dynamic_cast<QMessageBox&>(dialog);
    EXPECT_EQ(box.text(), "Delete <b>x</b>?");
    EXPECT_EQ(box.textFormat(), Qt::PlainText);
  });
  dialogs.ShowMessage({"Delete <b>x</b>?", {TMessageAnswer::Yes, TMessageAnswer::No}});
}

TEST(InputBox, ChangesTheTextOnOkOnly) {
  TDialogs dialogs(nullptr);
  std::string value = ".\\";
  OnNextDialog([](QDialog& box) {
    EXPECT_EQ(box.windowTitle(), "Remote Path");
    auto* edit = box.findChild<QLineEdit*>();
    EXPECT_EQ(edit->text(), ".\\");
    QTest::keyClicks(edit, "bin");
    QTest::keyClick(edit, Qt::Key_Escape);
  });
  EXPECT_FALSE(dialogs.InputBox("Remote Path", "Enter it", value));
  EXPECT_EQ(value, ".\\");
  OnNextDialog([](QDialog& box) {
    auto* edit = box.findChild<QLineEdit*>();
    edit->selectAll();
    QTest::keyClicks(edit, "bin\\");
    QTest::keyClick(edit, Qt::Key_Return);
  });
  EXPECT_TRUE(dialogs.InputBox("Remote Path", "Enter it", value));
  EXPECT_EQ(value, "bin\\");
}

class TFileOpenTest : public ::testing::Test {
protected:
  void SetUp() override {
    for (const char* name : {"a.dat", "b.dat"})
      EXPECT_TRUE(QFile(FDirectory.filePath(name)).open(QIODevice::WriteOnly));
  }
  std::string Path(const char* name) const { return FDirectory.filePath(name).toStdString(); }
  // Enters a name and accepts; the dialog may stay open.
  void Enter(QDialog& dialog, const QString& text) const {
    dynamic_cast<QFileDialog&>(dialog).setDirectory(FDirectory.path());
    auto* edit = dialog.findChild<QLineEdit*>();
    edit->setText(text);
    QTest::keyClick(edit, Qt::Key_Return);
  }

  QTemporaryDir FDirectory;
  TDialogs FDialogs{nullptr};
};

TEST_F(TFileOpenTest, GivesFullPathsOfSeveralFiles) {
  OnNextDialog([&](QDialog& dialog) { Enter(dialog, "\"a.dat\" \"b.dat\""); });
  EXPECT_EQ(FDialogs.OpenFiles({.AllowMultiSelect = true, .FileMustExist = true}),
            (std::vector<std::string>{Path("a.dat"), Path("b.dat")}));
}

TEST_F(TFileOpenTest, GivesNothingWhenItIsCancelled) {
  OnNextDialog([](QDialog& dialog) { dialog.reject(); });
  EXPECT_TRUE(FDialogs.OpenFiles({.AllowMultiSelect = true}).empty());
}

TEST_F(TFileOpenTest, TakesANewNameWhereTheFileNeedNotExist) {
  OnNextDialog([&](QDialog& dialog) { Enter(dialog, "new.dat"); });
  EXPECT_EQ(FDialogs.OpenFiles({.PathMustExist = true}), std::vector<std::string>{Path("new.dat")});
}

TEST_F(TFileOpenTest, HasAFixedSizeUnlessItIsSizable) {
  for (const bool sizable : {true, false}) {
    OnNextDialog([sizable](QDialog& dialog) {
      EXPECT_EQ(dialog.minimumSize() == dialog.maximumSize(), !sizable);
      EXPECT_EQ(dialog.isSizeGripEnabled(), sizable);
    });
    FDialogs.OpenFiles({.Sizable = sizable});
  }
}

} // namespace
} // namespace workbench
