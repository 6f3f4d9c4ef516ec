// A line of text that takes the room that is left and is cut in its middle where that is not
// enough.
#pragma once

#include <QWidget>

namespace workbench {

/// The whole text is in its hint and in its accessible name.
class TElidedLabel final : public QWidget {
  Q_OBJECT

public:
  explicit TElidedLabel(QWidget* parent);

  const QString& Text() const { return FText; }
  void SetText(const QString& text);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;

protected:
  void paintEvent(QPaintEvent* event) override;

private:
  QString FText;
};

} // namespace workbench
