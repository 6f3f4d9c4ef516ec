#include "tests/desktop/support/dialog_script.h"
#include "workbench/desktop/interaction/connection_questions.h"

#include <QLineEdit>
#include <QMessageBox>
#include <future>

namespace workbench {
namespace {

using testing::OnNextDialog;
using testing::Press;

class TConnectionQuestionsTest : public ::testing::Test {
protected:
  // As a connection does: on a thread, while the event loop goes on.
  template <class TAsk>
  auto OnThread(TAsk ask) {
    auto answer = std::async(std::launch::async, ask);
    EXPECT_TRUE(QTest::qWaitFor(
        [&answer] { return answer.wait_for(std::chrono::seconds(0)) == std::future_status::ready; },
        10000));
    return answer.get();
  }

  QWidget FWindow;
  TConnectionQuestions FQuestions{FWindow};
};

TEST_F(TConnectionQuestionsTest, AKeyIsAcceptedByItsButtonAlone) {
  const auto ask = [this] {
    return FQuestions.AcceptsHostKey({"lab.example", "ED25519", "SHA256:abc"});
  };
  QString said;
  OnNextDialog([&said](QDialog& dialog) {
    said = static_cast<QMessageBox&>(dialog).informativeText();
    Press(dialog, "Accept");
  });
  EXPECT_TRUE(OnThread(ask));
  EXPECT_TRUE(said.contains("SHA256:abc"));
  OnNextDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Return); });
  EXPECT_FALSE(OnThread(ask));
  OnNextDialog([](QDialog& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
  EXPECT_FALSE(OnThread(ask));
}

TEST_F(TConnectionQuestionsTest, ASecretIsTypedUnseen) {
  OnNextDialog([](QDialog& dialog) {
    auto* edit = dialog.findChild<QLineEdit*>();
    ASSERT_NE(edit, nullptr);
    EXPECT_EQ(edit->echoMode(), QLineEdit::Password);
    QTest::keyClicks(edit, "secret");
    QTest::keyClick(&dialog, Qt::Key_Return);
  });
  EXPECT_EQ(OnThread([this] { return FQuestions.TellSecret("Passphrase:", nullptr); }), "secret");
}

TEST_F(TConnectionQuestionsTest, NobodyWaitsForAnAnswerThatIsNotNeededAnyMore) {
  std::atomic<bool> isOver = false;
  QTimer::singleShot(100, &FWindow, [&isOver] { isOver = true; });
  EXPECT_EQ(
      OnThread([&] { return FQuestions.TellSecret("Password:", [&] { return isOver.load(); }); }),
      std::nullopt);
  EXPECT_TRUE(QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; }));
}

TEST_F(TConnectionQuestionsTest, AWindowThatGoesAnswersNothing) {
  FQuestions.Close();
  EXPECT_FALSE(OnThread([this] { return FQuestions.AcceptsHostKey({"h", "RSA", "SHA256:x"}); }));
}

} // namespace
} // namespace workbench
