#include "workbench/desktop/controls/tree_view.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QHelpEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QMouseEvent>
#include <QToolTip>
#include <QUrl>
#include <limits>

namespace workbench {
namespace {

QStringList LocalFiles(const QDropEvent& event) {
  QStringList files;
  for (const QUrl& url : event.mimeData()->urls()) {
    if (url.isLocalFile())
      files += url.toLocalFile();
  }
  return files;
}

void AnswerDrag(QDropEvent& event) {
  if (LocalFiles(event).isEmpty())
    return event.ignore();
  event.setDropAction(Qt::CopyAction);
  event.accept();
}

} // namespace

TTreeView::TTreeView(TTreeModel& model, const deployment::TTreeOptions& options, QWidget* parent)
    : QTreeView(parent), FModel(model), FOptions(options),
      FDelegate(new TTreeDelegate(model, options.VerticalLines, this)) {
  setModel(&FModel);
  setItemDelegate(FDelegate);
  setUniformRowHeights(true);
  setRootIsDecorated(false);
  setAlternatingRowColors(true);
  setSelectionMode(options.MultiSelect ? ExtendedSelection : SingleSelection);
  setSelectionBehavior(options.FullRowSelect ? SelectRows : SelectItems);
  setEditTriggers(NoEditTriggers);
  setAcceptDrops(true);
  setTextElideMode(Qt::ElideMiddle);
  header()->setSectionsClickable(true);
  header()->setStretchLastSection(false);
  header()->setSectionResizeMode(options.ColumnsResize ? QHeaderView::Interactive
                                                       : QHeaderView::Fixed);
  header()->setSortIndicatorShown(options.SortGlyphs);
  header()->setSortIndicator(-1, Qt::AscendingOrder);
  header()->setHighlightSections(false);
  connect(header(), &QHeaderView::sectionClicked, this,
          [this](int column) { emit HeaderClicked(column, Qt::LeftButton); });
  header()->viewport()->installEventFilter(this);
  FEditTimer.setSingleShot(true);
  FEditTimer.setInterval(options.EditDelay);
  connect(&FEditTimer, &QTimer::timeout, this, [this] {
    if (FEditSoon.isValid() && FEditSoon == currentIndex())
      edit(FEditSoon);
  });
  SetPalette();
}

// The selection stays as strong as it was when another window or control takes the focus.
void TTreeView::SetPalette() {
  if (!FOptions.StrongUnfocused)
    return;
  QPalette strong = palette();
  for (const auto role : {QPalette::Highlight, QPalette::HighlightedText})
    strong.setColor(QPalette::Inactive, role, strong.color(QPalette::Active, role));
  setPalette(strong);
}

void TTreeView::SetWidths(const std::vector<deployment::TTreeColumn>& columns) {
  for (std::size_t i = 0; i < columns.size(); ++i)
    header()->resizeSection(static_cast<int>(i), columns[i].Width);
}

QStyleOptionViewItem TTreeView::RowOption() const {
#if QT_VERSION < QT_VERSION_CHECK(6, 0, 0)
  return viewOptions();
#else
  QStyleOptionViewItem option;
  initViewItemOption(&option);
  return option;
#endif
}

QRect TTreeView::CheckBoxOf(const QModelIndex& index) const {
  if (!(index.flags() & Qt::ItemIsUserCheckable))
    return {};
  QStyleOptionViewItem option = RowOption();
  option.rect = visualRect(index);
  option.features |= QStyleOptionViewItem::HasCheckIndicator | QStyleOptionViewItem::HasDisplay;
  return style()->subElementRect(QStyle::SE_ItemViewItemCheckIndicator, &option, this);
}

void TTreeView::mousePressEvent(QMouseEvent* event) {
  FEditTimer.stop();
  const QModelIndex index = indexAt(event->pos());
  const bool isPlain = event->button() == Qt::LeftButton && event->modifiers() == Qt::NoModifier;
  const bool isSecond = isPlain && index.isValid() && index == currentIndex() &&
                        selectionModel()->isSelected(index) &&
                        !CheckBoxOf(index).contains(event->pos());
  FPressed = isSecond ? QPersistentModelIndex(index) : QPersistentModelIndex();
  QTreeView::mousePressEvent(event);
}

// A second click on the cell that has the focus edits it, unless the mouse was dragged away.
void TTreeView::mouseReleaseEvent(QMouseEvent* event) {
  QTreeView::mouseReleaseEvent(event);
  if (FPressed.isValid() && indexAt(event->pos()) == FPressed &&
      (FPressed.flags() & Qt::ItemIsEditable)) {
    FEditSoon = FPressed;
    FEditTimer.start();
  }
  FPressed = QPersistentModelIndex();
}

void TTreeView::mouseDoubleClickEvent(QMouseEvent* event) {
  FEditTimer.stop();
  const QModelIndex index = indexAt(event->pos());
  QTreeView::mouseDoubleClickEvent(event);
  if (event->button() == Qt::LeftButton && index.isValid() &&
      !CheckBoxOf(index).contains(event->pos()) && (index.flags() & Qt::ItemIsEditable))
    edit(index);
}

void TTreeView::keyPressEvent(QKeyEvent* event) {
  const bool isPlain = event->modifiers() == Qt::NoModifier;
  if (state() != EditingState && isPlain && currentIndex().isValid() &&
      !TTreeModel::IsHeading(currentIndex())) {
    switch (event->key()) {
    case Qt::Key_F2:
      EditNear(currentIndex());
      return;
    case Qt::Key_Space:
      if (FOptions.CheckBoxes) {
        ClickChecks();
        return;
      }
      break;
    case Qt::Key_Left:
      MoveCell(-1);
      return;
    case Qt::Key_Right:
      MoveCell(1);
      return;
    default:
      break;
    }
  }
  QTreeView::keyPressEvent(event);
}

// The cell itself, or else the next one in its row that can be edited.
bool TTreeView::EditNear(QModelIndex index) {
  const int columns = FModel.columnCount();
  for (int i = 0; i < columns; ++i) {
    const QModelIndex cell = index.siblingAtColumn((index.column() + i) % columns);
    if (!(cell.flags() & Qt::ItemIsEditable))
      continue;
    selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
    scrollTo(cell);
    edit(cell);
    return true;
  }
  return false;
}

// All get the state that the one with the focus changes to.
void TTreeView::ClickChecks() {
  const QModelIndex current = currentIndex().siblingAtColumn(0);
  const QVariant before = current.data(Qt::CheckStateRole);
  if (!before.isValid())
    return;
  QModelIndexList rows = selectionModel()->selectedRows();
  if (!rows.contains(current))
    rows = {current};
  std::vector<deployment::TNodeId> nodes;
  for (const QModelIndex& row : rows) {
    if (row.data(Qt::CheckStateRole) == before)
      nodes.push_back(FModel.NodeOf(row));
  }
  for (const deployment::TNodeId node : nodes)
    FModel.ClickCheck(node);
}

void TTreeView::MoveCell(int step) {
  const QModelIndex cell = currentIndex().siblingAtColumn(currentIndex().column() + step);
  if (!cell.isValid())
    return;
  selectionModel()->setCurrentIndex(cell, QItemSelectionModel::NoUpdate);
  scrollTo(cell);
}

// Rows move nowhere: files are taken from outside only, and copied.
void TTreeView::dragEnterEvent(QDragEnterEvent* event) {
  AnswerDrag(*event);
}

void TTreeView::dragMoveEvent(QDragMoveEvent* event) {
  AnswerDrag(*event);
}

void TTreeView::dropEvent(QDropEvent* event) {
  const QStringList files = LocalFiles(*event);
  AnswerDrag(*event);
  // The program that the files come from waits for the answer.
  if (!files.isEmpty())
    QTimer::singleShot(0, this, [this, files] { emit FilesDropped(files); });
}

void TTreeView::contextMenuEvent(QContextMenuEvent* event) {
  const bool byKey = event->reason() == QContextMenuEvent::Keyboard && currentIndex().isValid();
  emit MenuWanted(byKey ? viewport()->mapToGlobal(visualRect(currentIndex()).bottomLeft())
                        : event->globalPos());
}

bool TTreeView::viewportEvent(QEvent* event) {
  if (event->type() == QEvent::ToolTip && FOptions.HintsAsTooltip)
    return ShowCutText(*static_cast<QHelpEvent*>(event));
  if (event->type() == QEvent::PaletteChange && FOptions.StrongUnfocused)
    viewport()->update();
  return QTreeView::viewportEvent(event);
}

// A text that has not enough room is shown whole for as long as the mouse rests on it.
bool TTreeView::ShowCutText(const QHelpEvent& event) {
  const QModelIndex index = indexAt(event.pos());
  const QRect cell = visualRect(index);
  const QStyleOptionViewItem option = RowOption();
  const bool isCut = index.isValid() && FDelegate->sizeHint(option, index).width() > cell.width();
  QString text = isCut ? FDelegate->displayText(index.data(), locale()) : QString();
  const QString more = index.data(Qt::ToolTipRole).toString();
  if (!more.isEmpty())
    text += (text.isEmpty() ? QString() : QStringLiteral("\n")) + more;
  if (text.isEmpty()) {
    QToolTip::hideText();
    return true;
  }
  text = text.toHtmlEscaped();
  QToolTip::showText(event.globalPos(), "<p style='white-space:pre-wrap'>" + text + "</p>",
                     viewport(), cell, std::numeric_limits<int>::max());
  return true;
}

bool TTreeView::eventFilter(QObject* watched, QEvent* event) {
  if (watched == header()->viewport() && event->type() == QEvent::MouseButtonPress) {
    const auto& press = *static_cast<QMouseEvent*>(event);
    const int column = header()->logicalIndexAt(press.pos());
    if (press.button() != Qt::LeftButton && column >= 0)
      emit HeaderClicked(column, press.button());
  }
  return QTreeView::eventFilter(watched, event);
}

} // namespace workbench
