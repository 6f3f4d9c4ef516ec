// A sentence above the rows with what can be done about it.
#pragma once

#include <QFrame>
#include <QString>
#include <functional>
#include <vector>

class QLabel;
class QPushButton;

namespace workbench {

/// A button of a strip.
struct TNoticeAction {
  QString Text; ///< unique in the strip
  std::function<void()> Run;
};

/// What is said, and what can be done about it.
struct TNotice {
  QString Text;
  std::vector<TNoticeAction> Actions;
};

/// Stays until it is closed, by its button or by whoever made it.
class TNoticeStrip final : public QFrame {
  Q_OBJECT

public:
  TNoticeStrip(const TNotice& notice, QWidget* parent);

  QString Text() const;
  /// A button that cannot be pressed says why; an empty reason: it can.
  void SetWhyNot(const QString& action, const QString& reason);

signals:
  /// The user closed the strip.
  void Closed();

private:
  QLabel* FText;
  std::vector<QPushButton*> FButtons;
};

} // namespace workbench
