#include "workbench/desktop/controls/tree_delegate.h"

#include "package/host/api/file_columns.h"
#include "workbench/desktop/controls/guarded.h"
#include "workbench/desktop/text/qt_text.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QPen>
#include <algorithm>
#include <utility>

namespace workbench {

TTreeDelegate::TTreeDelegate(TTreeModel& model, bool hasVerticalLines, QObject* parent)
    : QStyledItemDelegate(parent), FModel(model), FHasVerticalLines(hasVerticalLines) {}

TTreeDelegate::~TTreeDelegate() {
  DropEditor();
}

void TTreeDelegate::DropEditor() {
  const std::shared_ptr<TEdit> edit = std::exchange(FEditor, nullptr);
  if (edit && edit->Widget)
    emit closeEditor(edit->Widget, RevertModelCache);
}

bool TTreeDelegate::CommitEditor() {
  const std::shared_ptr<TEdit> edit = FEditor;
  if (!edit || !edit->Widget)
    return true;
  if (edit->IsPressed)
    return false;
  const std::string text = edit->Editor->GetText();
  bool accepted = text == edit->Text;
  if (!accepted)
    Guarded([&] { accepted = edit->Editor->Accepts(text); });
  if (!accepted) {
    edit->Widget->setFocus();
    QApplication::beep();
    return false;
  }
  emit commitData(edit->Widget);
  emit closeEditor(edit->Widget, NoHint);
  return true;
}

void TTreeDelegate::paint(QPainter* painter, const QStyleOptionViewItem& option,
                          const QModelIndex& index) const {
  QStyledItemDelegate::paint(painter, option, index);
  if (!FHasVerticalLines)
    return;
  const QPen before = painter->pen();
  painter->setPen(option.palette.color(QPalette::Midlight));
  painter->drawLine(option.rect.topRight(), option.rect.bottomRight());
  painter->setPen(before);
}

// Both ends of a path say something; of a name the first letters do.
void TTreeDelegate::initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const {
  namespace file_column = deployment::file_column;
  QStyledItemDelegate::initStyleOption(option, index);
  const bool isPath =
      index.column() == file_column::LocalPath || index.column() == file_column::RemotePath;
  option->textElideMode = isPath ? Qt::ElideMiddle : Qt::ElideRight;
}

// Air above and below the text, so that rows of small fonts are hit with ease.
QSize TTreeDelegate::sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const {
  constexpr int Air = 6;
  QSize size = QStyledItemDelegate::sizeHint(option, index);
  size.setHeight(std::max(size.height(), option.fontMetrics.height() + Air));
  return size;
}

// A line break in a name must not make its row show half of it.
QString TTreeDelegate::displayText(const QVariant& value, const QLocale& /*locale*/) const {
  QString text = value.toString();
  for (QChar& c : text) {
    if (c.category() == QChar::Other_Control)
      c = u' ';
  }
  return text;
}

QWidget* TTreeDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& /*option*/,
                                     const QModelIndex& index) const {
  const deployment::TNodeId node = FModel.NodeOf(index);
  if (!FModel.Nodes().IsNode(node) || !FModel.Events().OnCreateEditor)
    return nullptr;
  auto edit = std::make_shared<TEdit>();
  const bool made = Guarded([&] {
    auto editor = FModel.Events().OnCreateEditor(node, index.column());
    edit->Editor.reset(dynamic_cast<TCellEditor*>(editor.release()));
    edit->Text = FModel.Nodes().Text(node, index.column());
  });
  if (!made || !edit->Editor)
    return nullptr;
  edit->Node = node;
  edit->Column = index.column();
  edit->Editor->SetText(edit->Text);
  edit->Widget = edit->Editor->Show(parent);
  edit->Widget->setAccessibleName(
      FModel.headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString());
  if (auto* button = dynamic_cast<TButtonCellEditor*>(edit->Editor.get()))
    button->SetOnPress([this, weak = std::weak_ptr(edit)] {
      if (const auto pressed = weak.lock())
        Press(pressed);
    });
  FEditor = edit;
  return edit->Widget;
}

// What the button opens runs an event loop, in which the editor must stay as it is.
void TTreeDelegate::Press(const std::shared_ptr<TEdit>& edit) const {
  auto* button = dynamic_cast<TButtonCellEditor*>(edit->Editor.get());
  if (!button || edit->IsPressed)
    return;
  edit->IsPressed = true;
  bool handled = false;
  Guarded([&] { handled = button->Press(); });
  edit->IsPressed = false;
  if (!edit->Widget)
    return;
  edit->Widget->setFocus();
  if (!handled)
    return;
  auto* self = const_cast<TTreeDelegate*>(this);
  emit self->commitData(edit->Widget);
  emit self->closeEditor(edit->Widget, NoHint);
}

// The text came with the widget.
void TTreeDelegate::setEditorData(QWidget* /*editor*/, const QModelIndex& /*index*/) const {}

void TTreeDelegate::setModelData(QWidget* editor, QAbstractItemModel* /*model*/,
                                 const QModelIndex& /*index*/) const {
  const std::shared_ptr<TEdit> edit = FEditor;
  if (!edit || edit->Widget != editor)
    return;
  std::string text = edit->Editor->GetText();
  if (text != edit->Text && FModel.Nodes().IsNode(edit->Node))
    Take(*edit, text);
  edit->Text = std::move(text);
}

void TTreeDelegate::Take(const TEdit& edit, const std::string& text) const {
  const deployment::TVirtualTreeEvents& events = FModel.Events();
  Guarded([&] {
    if (!edit.Editor->Accepts(text))
      return;
    if (events.OnNewText)
      events.OnNewText(edit.Node, edit.Column, text);
    if (events.OnEdited)
      events.OnEdited(edit.Node, edit.Column);
    edit.Editor->Taken(text);
  });
  FModel.TextsChanged(edit.Node);
}

void TTreeDelegate::destroyEditor(QWidget* editor, const QModelIndex& index) const {
  if (FEditor && FEditor->Widget == editor)
    FEditor.reset();
  QStyledItemDelegate::destroyEditor(editor, index);
}

bool TTreeDelegate::eventFilter(QObject* watched, QEvent* event) {
  if (FEditor && FEditor->Widget == watched) {
    if (FEditor->IsPressed && (event->type() == QEvent::FocusOut || event->type() == QEvent::Hide))
      return false;
    const bool isEnter = event->type() == QEvent::KeyPress &&
                         (static_cast<QKeyEvent*>(event)->key() == Qt::Key_Return ||
                          static_cast<QKeyEvent*>(event)->key() == Qt::Key_Enter);
    bool accepted = true;
    if (isEnter)
      Guarded([&] { accepted = FEditor->Editor->Accepts(FEditor->Editor->GetText()); });
    if (!accepted) {
      QApplication::beep();
      return true;
    }
  }
  return QStyledItemDelegate::eventFilter(watched, event);
}

} // namespace workbench
