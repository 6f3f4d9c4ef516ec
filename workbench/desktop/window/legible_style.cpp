#include "workbench/desktop/window/legible_style.h"

#include "workbench/desktop/window/contrast.h"

#include <QPainter>
#include <QPalette>
#include <QStyleOption>

namespace workbench {

TLegibleStyle::TLegibleStyle() : QProxyStyle(QStringLiteral("Fusion")) {}

void TLegibleStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                                  QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  if (element != PE_IndicatorCheckBox || !option || !painter)
    return;
  const QPalette& palette = option->palette;
  const QColor background = palette.color(QPalette::Base);
  painter->save();
  painter->setRenderHint(QPainter::Antialiasing, false);
  painter->setBrush(Qt::NoBrush);
  painter->setPen(WithContrast(palette.color(QPalette::Mid), palette.color(QPalette::Text),
                               background, FrameContrast));
  painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  painter->restore();
}

} // namespace workbench
