#include "workbench/desktop/controls/elided_label.h"

#include <QPaintEvent>
#include <QPainter>

namespace workbench {
namespace {

constexpr int FewestLetters = 8; // that are to be seen

} // namespace

TElidedLabel::TElidedLabel(QWidget* parent) : QWidget(parent) {
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

void TElidedLabel::SetText(const QString& text) {
  if (text == FText)
    return;
  FText = text;
  setToolTip(text.toHtmlEscaped());
  setAccessibleName(text);
  updateGeometry();
  update();
}

QSize TElidedLabel::sizeHint() const {
  return {fontMetrics().horizontalAdvance(FText) + 2, fontMetrics().height() + 2};
}

QSize TElidedLabel::minimumSizeHint() const {
  return {fontMetrics().averageCharWidth() * FewestLetters, sizeHint().height()};
}

void TElidedLabel::paintEvent(QPaintEvent* event) {
  QPainter painter(this);
  painter.setClipRect(event->rect());
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(rect(), Qt::AlignVCenter | Qt::AlignLeft,
                   fontMetrics().elidedText(FText, Qt::ElideMiddle, width()));
}

} // namespace workbench
