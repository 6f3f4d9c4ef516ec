#include "workbench/desktop/window/legible_style.h"

#include "workbench/desktop/window/contrast.h"

#include <QPainter>
#include <QPalette>
#include <QStyleOption>
#include <algorithm>

namespace workbench {

TLegibleStyle::TLegibleStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

// A frame stands between what is in the control and what is around it, and is seen on both.
void TLegibleStyle::DrawFrame(const QStyleOption& option, QPainter& painter, TShape shape) {
  const QPalette& palette = option.palette;
  const bool hasFocus = (option.state & State_HasFocus) != 0;
  QColor color = palette.color(hasFocus ? QPalette::Highlight : QPalette::Mid);
  for (const auto role : {QPalette::Base, QPalette::Window})
    color = WithContrast(color, palette.color(QPalette::Text), palette.color(role), FrameContrast);
  constexpr qreal Half = 0.5;
  constexpr qreal Radius = 2;
  const QRectF rect = QRectF(option.rect).adjusted(Half, Half, -Half, -Half);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing, shape != TShape::Box);
  painter.setBrush(Qt::NoBrush);
  painter.setPen(color);
  if (shape == TShape::Box)
    painter.drawRect(option.rect.adjusted(0, 0, -1, -1));
  else if (shape == TShape::Round)
    painter.drawEllipse(rect);
  else
    painter.drawRoundedRect(rect, Radius, Radius);
  painter.restore();
}

void TLegibleStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (!option || !painter)
    return;
  const bool isEnabled = (option->state & State_Enabled) != 0;
  if (element == PE_IndicatorCheckBox)
    DrawFrame(*option, *painter, TShape::Box);
  else if (!isEnabled)
    return;
  else if (element == PE_IndicatorRadioButton)
    DrawFrame(*option, *painter, TShape::Round);
  else if (element == PE_FrameLineEdit || element == PE_PanelButtonCommand)
    DrawFrame(*option, *painter, TShape::Field);
}

void TLegibleStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                       QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (!option || !painter || !(option->state & State_Enabled))
    return;
  const auto* box = qstyleoption_cast<const QStyleOptionComboBox*>(option);
  const bool isFramedBox = control == CC_ComboBox && box && box->frame;
  if (isFramedBox || control == CC_SpinBox)
    DrawFrame(*option, *painter, TShape::Field);
}

QSize TLegibleStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                      const QSize& contents, const QWidget* widget) const {
  constexpr int BetweenBoxes = 4;
  constexpr int ArrowWidth = 8;
  QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  if (type == CT_ItemViewItem) {
    const int box = pixelMetric(PM_IndicatorHeight, option, widget);
    size.setHeight(std::max(size.height(), box + BetweenBoxes));
  }
  const auto* button = qstyleoption_cast<const QStyleOptionToolButton*>(option);
  // The text stands in the middle, so that the other side gets as much.
  if (type == CT_ToolButton && button && (button->features & QStyleOptionToolButton::HasMenu) &&
      !(button->features & QStyleOptionToolButton::MenuButtonPopup))
    size.rwidth() += 2 * ArrowWidth;
  return size;
}

} // namespace workbench
