// The style of the window where the desktop has none of its own.
#pragma once

#include <QProxyStyle>

namespace workbench {

/// Draws the frames of boxes, fields and buttons so that they are seen on light and on dark, ticked
/// or not, and keeps boxes in rows apart and arrows of menus off their text.
class TLegibleStyle final : public QProxyStyle {
  Q_OBJECT

public:
  TLegibleStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                          QPainter* painter, const QWidget* widget) const override;

  QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& contents,
                         const QWidget* widget) const override;

private:
  enum class TShape { Box, Round, Field };

  static void DrawFrame(const QStyleOption& option, QPainter& painter, TShape shape);
};

} // namespace workbench
