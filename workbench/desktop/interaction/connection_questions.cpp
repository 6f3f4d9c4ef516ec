#include "workbench/desktop/interaction/connection_questions.h"

#include "workbench/desktop/text/qt_text.h"

#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QThread>
#include <QTimer>
#include <chrono>
#include <future>

namespace workbench {
namespace {

constexpr std::chrono::milliseconds PollInterval(50);

} // namespace

bool TConnectionQuestions::AcceptsHostKey(const THostKey& key) {
  return Ask([this, key](const TIsOver& isOver) { return ShowKey(key, isOver); }, nullptr)
      .has_value();
}

std::optional<std::string> TConnectionQuestions::TellSecret(const std::string& prompt,
                                                            const TIsCancelled& isOver) {
  return Ask([this, prompt](const TIsOver& over) { return ShowPrompt(prompt, over); }, isOver);
}

// The asking thread may give up waiting; the dialog closes then, and its answer is dropped.
TConnectionQuestions::TAnswer
TConnectionQuestions::Ask(const std::function<TAnswer(const TIsOver&)>& show,
                          const TIsCancelled& isOver) {
  if (FIsClosed)
    return {};
  const auto over = std::make_shared<std::atomic<bool>>(false);
  if (QThread::currentThread() == thread())
    return show(over);
  const auto answer = std::make_shared<std::promise<TAnswer>>();
  std::future<TAnswer> told = answer->get_future();
  QMetaObject::invokeMethod(
      this, [answer, show, over] { answer->set_value(*over ? TAnswer() : show(over)); },
      Qt::QueuedConnection);
  while (told.wait_for(PollInterval) != std::future_status::ready) {
    if (!FIsClosed && !(isOver && isOver()))
      continue;
    *over = true;
    return {};
  }
  return told.get();
}

int TConnectionQuestions::Run(QDialog& dialog, const TIsOver& isOver) {
  QTimer watch;
  connect(&watch, &QTimer::timeout, &dialog, [this, &dialog, isOver] {
    if (*isOver || FIsClosed)
      dialog.reject();
  });
  watch.start(PollInterval);
  return dialog.exec();
}

TConnectionQuestions::TAnswer TConnectionQuestions::ShowKey(const THostKey& key,
                                                            const TIsOver& isOver) {
  QMessageBox box(&FWindow);
  box.setIcon(QMessageBox::Warning);
  box.setWindowTitle(tr("Unknown Machine"));
  box.setTextFormat(Qt::PlainText);
  box.setText(tr("The key of %1 is not known yet.").arg(ToQString(key.Host)));
  box.setInformativeText(
      tr("Its type is %1, its fingerprint is\n\n%2\n\nAccept it only when the machine's owner "
         "names the same fingerprint. It is kept for later connections.")
          .arg(ToQString(key.Type), ToQString(key.Fingerprint)));
  box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
  QPushButton* accept = box.addButton(tr("&Accept"), QMessageBox::YesRole);
  QPushButton* refuse = box.addButton(tr("&Refuse"), QMessageBox::NoRole);
  box.setDefaultButton(refuse);
  box.setEscapeButton(refuse);
  Run(box, isOver);
  return box.clickedButton() == accept ? TAnswer(std::string()) : TAnswer();
}

TConnectionQuestions::TAnswer TConnectionQuestions::ShowPrompt(const std::string& prompt,
                                                               const TIsOver& isOver) {
  QInputDialog dialog(&FWindow);
  dialog.setWindowTitle(tr("Log In"));
  dialog.setLabelText(ToQString(prompt));
  // The text is the other machine's, and must not look like the window's own.
  for (QLabel* label : dialog.findChildren<QLabel*>())
    label->setTextFormat(Qt::PlainText);
  dialog.setTextEchoMode(QLineEdit::Password);
  dialog.setOkButtonText(tr("OK"));
  dialog.setCancelButtonText(tr("Cancel"));
  return Run(dialog, isOver) == QDialog::Accepted ? TAnswer(ToStdString(dialog.textValue()))
                                                  : TAnswer();
}

} // namespace workbench
