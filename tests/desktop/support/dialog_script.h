// Works dialogs that run an event loop of their own, as a person would.
#pragma once

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QSignalSpy>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTest>
#include <QTimer>
#include <functional>

namespace workbench::testing {

/// How many scripts wait for a dialog that has not opened.
inline int& WaitingScripts() {
  static int count = 0;
  return count;
}

/// Runs the script on the next dialog that opens, once it is shown, and closes the dialog if the
/// script left it open. Used before what opens the dialog is called.
inline void OnNextDialog(const std::function<void(QDialog&)>& script) {
  QWidget* before = QApplication::activeModalWidget();
  auto* timer = new QTimer(qApp);
  ++WaitingScripts();
  QObject::connect(timer, &QTimer::timeout, timer, [timer, before, script] {
    auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
    if (!dialog || dialog == before || !dialog->isVisible())
      return;
    timer->stop();
    timer->deleteLater();
    --WaitingScripts();
    const QPointer<QDialog> watched(dialog);
    script(*dialog);
    if (watched && watched->isVisible())
      watched->reject();
  });
  timer->start(0);
}

/// The button whose text without its mnemonic is this; a test failure and null without one.
inline QAbstractButton* FindButton(const QWidget& widget, const QString& text) {
  for (auto* button : widget.findChildren<QAbstractButton*>()) {
    if (button->text().remove('&') == text)
      return button;
  }
  ADD_FAILURE() << "no button " << text.toStdString();
  return nullptr;
}

inline void Press(const QWidget& widget, const QString& text) {
  if (auto* button = FindButton(widget, text))
    QTest::mouseClick(button, Qt::LeftButton);
}

/// The child of that object name; fails the test when there is none.
template <class TWidget>
TWidget& Child(const QWidget& widget, const char* name) {
  auto* found = widget.findChild<TWidget*>(name);
  if (!found)
    throw std::runtime_error(std::string("there is no ") + name);
  return *found;
}

/// Clicks the check box of a row.
inline void ClickCheckBox(QAbstractItemView& view, const QModelIndex& index) {
  view.scrollTo(index);
  QStyleOptionViewItem option;
  option.initFrom(view.viewport());
  option.rect = view.visualRect(index);
  option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
  const QRect box =
      view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
  QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, box.center());
}

} // namespace workbench::testing
