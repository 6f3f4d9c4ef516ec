// Questions that a connection asks while it is made, shown by the window.
#pragma once

#include "workbench/remote/ssh/prompts.h"

#include <QObject>
#include <atomic>
#include <functional>
#include <memory>
#include <optional>
#include <string>

class QDialog;
class QWidget;

namespace workbench {

/// Connections are made on threads, which wait for the answer.
class TConnectionQuestions final : public QObject {
  Q_OBJECT

public:
  /// Dialogs stand before the window, which closes the object before it goes.
  explicit TConnectionQuestions(QWidget& window) : FWindow(window) {}

  /// True when the user says that the key is the right one. Enter, Escape and closing say no.
  bool AcceptsHostKey(const THostKey& key);
  /// What the user typed; nothing when the user gave up or `isOver` became true.
  std::optional<std::string> TellSecret(const std::string& prompt, const TIsCancelled& isOver);
  /// From now on all questions go without an answer, those that are open too.
  void Close() { FIsClosed = true; }

private:
  using TAnswer = std::optional<std::string>;
  using TIsOver = std::shared_ptr<std::atomic<bool>>;

  TAnswer Ask(const std::function<TAnswer(const TIsOver&)>& show, const TIsCancelled& isOver);
  TAnswer ShowKey(const THostKey& key, const TIsOver& isOver);
  TAnswer ShowPrompt(const std::string& prompt, const TIsOver& isOver);
  int Run(QDialog& dialog, const TIsOver& isOver);

  QWidget& FWindow;
  std::atomic<bool> FIsClosed = false;
};

} // namespace workbench
