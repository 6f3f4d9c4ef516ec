#include "workbench/desktop/window/appearance.h"

#include "workbench/desktop/window/contrast.h"
#include "workbench/desktop/window/legible_style.h"

#include <QApplication>
#include <QPalette>

namespace workbench {
namespace {

QPalette PaletteOf(const QColor& window, const QColor& base, const QColor& text,
                   const QColor& accent) {
  QPalette palette(window);
  const QColor alternate((window.red() + 3 * base.red()) / 4,
                         (window.green() + 3 * base.green()) / 4,
                         (window.blue() + 3 * base.blue()) / 4);
  const QColor middle((text.red() + base.red()) / 2, (text.green() + base.green()) / 2,
                      (text.blue() + base.blue()) / 2);
  // Every second row has the alternate colour, which is nearer to the text.
  const QColor faint = WithContrast(middle, text, alternate, TextContrast);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText,
                          QPalette::ToolTipText, QPalette::BrightText}) {
    palette.setColor(role, text);
    palette.setColor(QPalette::Disabled, role, faint);
  }
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, alternate);
  palette.setColor(QPalette::ToolTipBase, window);
  palette.setColor(QPalette::PlaceholderText, faint);
  palette.setColor(QPalette::Highlight, accent);
  palette.setColor(QPalette::HighlightedText, Qt::white);
  palette.setColor(QPalette::Link, accent.lighter(window.lightness() < 128 ? 150 : 100));
  return palette;
}

} // namespace

// Desktops with a style of their own look after their boxes.
void UseLegibleStyle() {
  if (QApplication::style()->objectName() == QLatin1String("fusion"))
    QApplication::setStyle(new TLegibleStyle);
}

void SetAppearance(TAppearance appearance) {
  QApplication::setStyle(new TLegibleStyle);
  const QColor accent(0x30, 0x6c, 0xb4);
  QApplication::setPalette(
      appearance == TAppearance::Dark
          ? PaletteOf(QColor(0x35, 0x37, 0x3a), QColor(0x25, 0x27, 0x2a), QColor(0xe8, 0xe8, 0xe8),
                      accent)
          : PaletteOf(QColor(0xef, 0xef, 0xef), Qt::white, QColor(0x14, 0x14, 0x14), accent));
}

} // namespace workbench
