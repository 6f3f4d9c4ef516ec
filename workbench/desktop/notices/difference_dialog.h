// What a reconcile did to a list, entry by entry, with the reasons.
#pragma once

#include <QAbstractTableModel>
#include <QDialog>
#include <QString>
#include <QStringList>
#include <vector>

class QTableView;

namespace workbench {

class TChangeReasons;
struct TTargetChanges;

/// One entry that came, changed or went.
struct TDifferenceRow {
  QString Change;
  QString File;
  QString Class;
  QString Target; ///< configuration and platforms
  QString Reason;
};

/// The rows, those that went first, since they are what a person may miss.
std::vector<TDifferenceRow> DifferenceRows(const TTargetChanges& changes,
                                           const TChangeReasons& reasons);

class TDifferenceModel final : public QAbstractTableModel {
  Q_OBJECT

public:
  TDifferenceModel(std::vector<TDifferenceRow> rows, QObject* parent);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  const std::vector<TDifferenceRow> FRows;
  const QStringList FTitles;
};

class TDifferenceDialog final : public QDialog {
  Q_OBJECT

public:
  TDifferenceDialog(const QString& title, std::vector<TDifferenceRow> rows, QWidget* parent);

protected:
  void showEvent(QShowEvent* event) override;

private:
  QTableView* FTable;
};

} // namespace workbench
