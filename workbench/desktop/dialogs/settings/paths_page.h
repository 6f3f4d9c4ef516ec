// The page of the settings with the paths that builds search on each platform.
#pragma once

#include "workbench/desktop/dialogs/settings/settings_edit.h"
#include "workbench/desktop/dialogs/settings/settings_page.h"

#include <QAbstractTableModel>
#include <QStringList>

class QLineEdit;
class QTableView;

namespace workbench {

/// A row for each platform; its paths are edited in place and go to the settings that wait to be
/// written.
class TPathModel final : public QAbstractTableModel {
  Q_OBJECT

public:
  enum TColumn { Platform, LibraryPath, ToolChainPath, ColumnCount };

  /// The settings must outlive the model.
  TPathModel(TSettingsEdit& settings, QStringList platforms, QObject* parent)
      : QAbstractTableModel(parent), FSettings(settings), FPlatforms(std::move(platforms)) {}

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
  std::string KeyOf(const QModelIndex& index) const;

  TSettingsEdit& FSettings;
  QStringList FPlatforms;
};

class TPathsPage final : public TSettingsPage {
  Q_OBJECT

public:
  TPathsPage(TSettingsEdit& settings, QStringList platforms, QWidget* parent);
  QString Title() const override;
  void Collect() override;

private:
  void Browse();

  TSettingsEdit& FSettings;
  QTableView* FTable;
  QLineEdit* FOsxDirectory;
};

} // namespace workbench
