// The dialog in which the user chooses the platforms of one file.
#pragma once

#include "workbench/desktop/dialogs/forms/form_dialog.h"

#include <QAbstractListModel>

class QListView;

namespace workbench {

/// The rows of the form as a check list. The form may undo a click, so every box is read anew.
class TSelectModel final : public QAbstractListModel {
  Q_OBJECT

public:
  /// The form must outlive the model.
  TSelectModel(deployment::ISelectForm& form, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
  deployment::ISelectForm& FForm;
};

/// The form must outlive the dialog.
class TSelectDialog final : public TFormDialog {
  Q_OBJECT

public:
  TSelectDialog(deployment::ISelectForm& form, QWidget* parent);

private:
  QListView* FList;
};

} // namespace workbench
