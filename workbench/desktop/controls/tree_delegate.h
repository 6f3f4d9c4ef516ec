// Draws the cells of a tree control and lets the user edit them.
#pragma once

#include "workbench/desktop/controls/cell_editors.h"
#include "workbench/desktop/controls/tree_model.h"

#include <QStyledItemDelegate>
#include <memory>
#include <string>

namespace workbench {

/// One editor is open at a time, as the form made it.
class TTreeDelegate final : public QStyledItemDelegate {
  Q_OBJECT

public:
  TTreeDelegate(TTreeModel& model, bool hasVerticalLines, QObject* parent);
  ~TTreeDelegate() override;

  /// Leaves the editor that is open, without taking its text.
  void DropEditor();
  /// Takes the text of the editor that is open over and leaves it. False when the form refuses the
  /// text, or a dialog of the editor is open: then it stays as it is.
  bool CommitEditor();
  bool IsEditing() const { return FEditor != nullptr; }

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QString displayText(const QVariant& value, const QLocale& locale) const override;
  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
  void destroyEditor(QWidget* editor, const QModelIndex& index) const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

protected:
  void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override;

private:
  // The editor that is open. Qt asks a constant delegate to open it.
  struct TEdit {
    std::shared_ptr<TCellEditor> Editor;
    QPointer<QWidget> Widget;
    std::string Text; // that the cell had
    deployment::TNodeId Node = 0;
    int Column = 0;
    bool IsPressed = false; // what its button opened is open
  };

  void Press(const std::shared_ptr<TEdit>& edit) const;
  void Take(const TEdit& edit, const std::string& text) const;

  TTreeModel& FModel;
  const bool FHasVerticalLines;
  mutable std::shared_ptr<TEdit> FEditor;
};

} // namespace workbench
