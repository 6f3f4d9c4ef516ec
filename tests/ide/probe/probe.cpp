#include "tests/ide/probe/probe.h"

#include <QAbstractButton>
#include <QAbstractItemModel>
#include <QApplication>
#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QStyle>
#include <QStyleOptionViewItem>
#include <QTabBar>
#include <QToolButton>
#include <QTreeView>
#include <functional>

namespace workbench::testing {
namespace {

constexpr int LookInterval = 30;
const QString None = QStringLiteral("none");

QString PlaceOf(const QWidget& widget, const QRect& part) {
  const QPoint place = widget.mapToGlobal(part.center());
  return QStringLiteral("%1 %2").arg(place.x()).arg(place.y());
}

QString Plain(QString text) {
  return text.remove(QLatin1Char('&'));
}

template <class TWidget>
TWidget* FindVisible(const std::function<bool(const TWidget&)>& isWanted) {
  for (QWidget* widget : QApplication::allWidgets()) {
    auto* found = qobject_cast<TWidget*>(widget);
    if (found && found->isVisible() && isWanted(*found))
      return found;
  }
  return nullptr;
}

QString FindWidget(const QString& name) {
  const auto* widget = FindVisible<QWidget>(
      [&name](const QWidget& each) { return each.isEnabled() && each.objectName() == name; });
  return widget ? PlaceOf(*widget, widget->rect()) : None;
}

QString FindButton(const QString& text) {
  const auto* button = FindVisible<QAbstractButton>([&text](const QAbstractButton& each) {
    return each.isEnabled() && Plain(each.text()) == text;
  });
  return button ? PlaceOf(*button, button->rect()) : None;
}

// The button of a command in a tool bar.
QString FindCommand(const QString& name) {
  const auto* button = FindVisible<QToolButton>([&name](const QToolButton& each) {
    return each.isEnabled() && each.defaultAction() && each.defaultAction()->objectName() == name;
  });
  return button ? PlaceOf(*button, button->rect()) : None;
}

template <class TMenu>
QString FindItem(const QString& text) {
  for (QWidget* widget : QApplication::allWidgets()) {
    auto* menu = qobject_cast<TMenu*>(widget);
    if (!menu || !menu->isVisible())
      continue;
    for (QAction* action : menu->actions()) {
      if (Plain(action->text()) == text && action->isEnabled())
        return PlaceOf(*menu, menu->actionGeometry(action));
    }
  }
  return None;
}

QString FindTab(const QString& text) {
  for (QWidget* widget : QApplication::allWidgets()) {
    const auto* bar = qobject_cast<QTabBar*>(widget);
    for (int i = 0; bar && bar->isVisible() && i < bar->count(); ++i) {
      if (Plain(bar->tabText(i)).startsWith(text))
        return PlaceOf(*bar, bar->tabRect(i));
    }
  }
  return None;
}

// A row of a list in which the text stands.
QString FindRow(const QString& text) {
  for (QWidget* widget : QApplication::allWidgets()) {
    const auto* view = qobject_cast<QTreeView*>(widget);
    const QAbstractItemModel* model = view && view->isVisible() ? view->model() : nullptr;
    const QModelIndexList found =
        model ? model->match(model->index(0, 0), Qt::DisplayRole, text, 1, Qt::MatchContains)
              : QModelIndexList();
    if (!found.isEmpty())
      return PlaceOf(*view->viewport(), view->visualRect(found.front()));
  }
  return None;
}

QString FindText(const QString& name) {
  const auto* label =
      FindVisible<QLabel>([&name](const QLabel& each) { return each.objectName() == name; });
  return label ? label->text() : None;
}

// The check box of the row in which the text stands, and whether it is ticked. The row is brought
// into sight.
QString FindCheck(QTreeView& view, const QString& text) {
  const QAbstractItemModel& model = *view.model();
  for (int row = 0; row < model.rowCount(); ++row) {
    const QModelIndex box = model.index(row, 0);
    bool isWanted = false;
    for (int column = 0; column < model.columnCount(); ++column)
      isWanted = isWanted || model.index(row, column).data().toString().contains(text);
    if (!isWanted || !box.data(Qt::CheckStateRole).isValid())
      continue;
    view.scrollTo(box);
    QStyleOptionViewItem option;
    option.initFrom(view.viewport());
    option.rect = view.visualRect(box);
    option.features = QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
    const QRect place =
        view.style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, &view);
    return PlaceOf(*view.viewport(), place) + QLatin1Char(' ') +
           box.data(Qt::CheckStateRole).toString();
  }
  return None;
}

QString FindCheck(const QString& text) {
  for (QWidget* widget : QApplication::allWidgets()) {
    auto* view = qobject_cast<QTreeView*>(widget);
    const QString place =
        view && view->isVisible() && view->model() ? FindCheck(*view, text) : None;
    if (place != None)
      return place;
  }
  return None;
}

QString Answer(const QString& question) {
  const QString kind = question.section(QLatin1Char(' '), 0, 0);
  const QString what = question.section(QLatin1Char(' '), 1);
  if (kind == QLatin1String("widget"))
    return FindWidget(what);
  if (kind == QLatin1String("button"))
    return FindButton(what);
  if (kind == QLatin1String("command"))
    return FindCommand(what);
  if (kind == QLatin1String("menu"))
    return FindItem<QMenuBar>(what);
  if (kind == QLatin1String("item"))
    return FindItem<QMenu>(what);
  if (kind == QLatin1String("text"))
    return FindText(what);
  if (kind == QLatin1String("tab"))
    return FindTab(what);
  if (kind == QLatin1String("row"))
    return FindRow(what);
  if (kind == QLatin1String("check"))
    return FindCheck(what);
  return QStringLiteral("unknown question");
}

} // namespace

TProbe::TProbe(const QString& directory) : FDirectory(directory) {
  connect(&FTimer, &QTimer::timeout, this, &TProbe::Look);
  FTimer.start(LookInterval);
}

void TProbe::Look() {
  QFile question(FDirectory.filePath(QStringLiteral("question")));
  if (!question.open(QIODevice::ReadOnly))
    return;
  const QString text = QString::fromUtf8(question.readAll()).trimmed();
  question.close();
  question.remove();
  QFile answer(FDirectory.filePath(QStringLiteral("answer.new")));
  if (!answer.open(QIODevice::WriteOnly))
    return;
  answer.write(Answer(text).toUtf8());
  answer.close();
  answer.rename(FDirectory.filePath(QStringLiteral("answer")));
}

QObject* TProbePlugin::create(const QString& /*name*/, const QString& /*options*/) {
  // Programs that the IDE starts have it in their environment too.
  const bool isIde = QFileInfo(QCoreApplication::applicationFilePath()).fileName() ==
                     qEnvironmentVariable("IDE_PROBED");
  return isIde ? new TProbe(qEnvironmentVariable("IDE_PROBE")) : nullptr;
}

} // namespace workbench::testing
