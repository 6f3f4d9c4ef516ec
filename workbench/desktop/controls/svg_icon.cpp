#include "workbench/desktop/controls/svg_icon.h"

#include "workbench/desktop/text/qt_text.h"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

namespace workbench {
namespace {

constexpr qreal DisabledOpacity = 0.35;

class TSvgIconEngine final : public QIconEngine {
public:
  explicit TSvgIconEngine(QByteArray svg) : FSvg(std::move(svg)) {}

  void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
             QIcon::State /*state*/) override {
    QSvgRenderer renderer(FSvg);
    painter->save();
    if (mode == QIcon::Disabled)
      painter->setOpacity(painter->opacity() * DisabledOpacity);
    renderer.render(painter, rect);
    painter->restore();
  }

  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap pixmap(size);
    pixmap.fill(Qt::transparent);
    QPainter painter(&pixmap);
    paint(&painter, QRect(QPoint(), size), mode, state);
    return pixmap;
  }

  QIconEngine* clone() const override { return new TSvgIconEngine(FSvg); }

private:
  QByteArray FSvg;
};

} // namespace

QIcon SvgIcon(std::string_view svg) {
  return QIcon(new TSvgIconEngine(QByteArray(svg.data(), static_cast<TQtSize>(svg.size()))));
}

} // namespace workbench
