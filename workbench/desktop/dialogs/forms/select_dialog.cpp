#include "workbench/desktop/dialogs/forms/select_dialog.h"

#include "workbench/desktop/text/qt_text.h"

#include <QListView>
#include <QVBoxLayout>

namespace workbench {

TSelectModel::TSelectModel(deployment::ISelectForm& form, QObject* parent)
    : QAbstractListModel(parent), FForm(form) {}

int TSelectModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FForm.GetPlatforms().size());
}

QVariant TSelectModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  const auto row = static_cast<std::size_t>(index.row());
  if (role == Qt::DisplayRole)
    return ToQString(FForm.GetPlatforms()[row]);
  if (role == Qt::CheckStateRole)
    return FForm.IsChecked(row) ? Qt::Checked : Qt::Unchecked;
  return {};
}

bool TSelectModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::CheckStateRole)
    return false;
  FForm.SetChecked(static_cast<std::size_t>(index.row()), value.toInt() == Qt::Checked);
  emit dataChanged(this->index(0), this->index(rowCount() - 1), {Qt::CheckStateRole});
  return true;
}

Qt::ItemFlags TSelectModel::flags(const QModelIndex& index) const {
  return index.isValid() ? Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                               Qt::ItemNeverHasChildren
                         : Qt::NoItemFlags;
}

TSelectDialog::TSelectDialog(deployment::ISelectForm& form, QWidget* parent)
    : TFormDialog(form.GetLayout(), parent), FList(new QListView(this)) {
  FList->setObjectName(QStringLiteral("cbPlatforms"));
  FList->setAccessibleName(tr("Platforms of the file"));
  FList->setModel(new TSelectModel(form, FList));
  FList->setUniformItemSizes(true);
  FList->setCurrentIndex(FList->model()->index(0, 0));
  Content().addWidget(FList);
  Finish(form.GetLayout());
  FList->setFocus();
}

} // namespace workbench
