// Work that takes long, done on a thread while the window goes on painting.
#pragma once

#include <QObject>
#include <QPointer>
#include <QWidget>
#include <functional>
#include <vector>

namespace workbench {

/// While work runs, mouse and keys reach the window's allowed widgets and its dialogs only, so that
/// nothing can be started twice or changed under the work. What is not the window's goes on: the
/// window may be a part of a foreign one.
class TBackgroundWork final : public QObject {
  Q_OBJECT

public:
  /// The window must outlive the object.
  explicit TBackgroundWork(QWidget& window);

  /// A widget of the window that takes input all the time.
  void Allow(QWidget* widget) { FAllowed.emplace_back(widget); }
  /// Returns when the work is done, and passes on what it throws. On another thread than the
  /// window's it just runs.
  void Run(const std::function<void()>& work);
  /// Deals with the events that wait, amid work that only the window's thread can do. On another
  /// thread it does nothing.
  void Pause();
  bool IsBusy() const { return FDepth > 0; }

signals:
  void BusyChanged(bool busy);

protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  struct TBusy;

  bool MayReceive(const QObject& receiver) const;

  QWidget& FWindow;
  std::vector<QPointer<QWidget>> FAllowed;
  int FDepth = 0;
};

} // namespace workbench
