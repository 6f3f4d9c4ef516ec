// The user's remote profiles as an item model.
#pragma once

#include "workbench/remote/profile/profile_store.h"

#include <QAbstractTableModel>
#include <vector>

namespace workbench {

/// A row for each profile, in the order in which they were added.
class TProfileModel final : public QAbstractTableModel {
  Q_OBJECT

public:
  enum TColumn { Name, Platform, Kind, Place, Default, ColumnCount };

  /// The store must outlive the model.
  TProfileModel(const TProfileStore& store, QObject* parent)
      : QAbstractTableModel(parent), FStore(store) {}

  /// Reads the profiles anew; none when this fails. Throws as TProfileStore::List does.
  void Refresh();
  const TProfile& Profile(int row) const { return FProfiles[static_cast<std::size_t>(row)]; }
  /// Row of the profile of that name; -1 for none.
  int Find(std::string_view name) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

private:
  const TProfileStore& FStore;
  std::vector<TProfile> FProfiles;
};

/// "Folder" or "SSH", in the user's language.
QString ProfileKindText(TProfileKind kind);

} // namespace workbench
