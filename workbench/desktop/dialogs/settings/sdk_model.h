// The development kits among the user's settings, as an item model.
#pragma once

#include "workbench/desktop/dialogs/settings/settings_edit.h"

#include <QAbstractTableModel>
#include <string>
#include <vector>

namespace workbench {

/// A kit as the settings describe it.
struct TSdk {
  std::string Name = {};
  std::string Platform = {};
  std::string NdkBasePath = {};    ///< of Android kits
  std::string DebuggerServer = {}; ///< of Android kits
  bool IsDefault = false;          ///< of its platform

  bool operator==(const TSdk&) const = default;
};

/// A row for each kit, by name. Changes go to the settings that wait to be written.
class TSdkModel final : public QAbstractTableModel {
  Q_OBJECT

public:
  enum TColumn { Name, Platform, NdkBasePath, DebuggerServer, Default, ColumnCount };

  /// The settings must outlive the model.
  TSdkModel(TSettingsEdit& settings, QObject* parent);

  const TSdk& Sdk(int row) const { return FSdks[static_cast<std::size_t>(row)]; }
  /// Row of the kit of that name; -1 for none.
  int Find(std::string_view name) const;
  /// Adds a kit, or puts it in the place of the one of `oldName`.
  void Put(const std::string& oldName, const TSdk& sdk);
  void Remove(const std::string& name);

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  void Read();
  void Forget(const std::string& name);

  TSettingsEdit& FSettings;
  std::vector<TSdk> FSdks;
};

} // namespace workbench
