// The tree of featured files as an item model.
#pragma once

#include "package/host/api/forms.h"

#include <QAbstractItemModel>
#include <cstddef>
#include <unordered_map>

namespace workbench {

/// Features, in them platforms, in them files, each with a check box. The form keeps the states and
/// derives those of parents, so a click repaints the whole branch.
class TFeatureTreeModel final : public QAbstractItemModel {
  Q_OBJECT

public:
  /// The form must outlive the model; its nodes stay what they are.
  TFeatureTreeModel(deployment::IFeatureFileForm& form, QObject* parent);

  QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
  QModelIndex parent(const QModelIndex& child) const override;
  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
  struct TPlace {
    deployment::TNodeId Parent = 0;
    int Row = 0;
  };

  static deployment::TNodeId NodeOf(const QModelIndex& index);
  void AddPlaces(deployment::TNodeId parent);
  void TellBelow(const QModelIndex& parent);
  QString ToolTip(deployment::TNodeId node) const;

  deployment::IFeatureFileForm& FForm;
  std::unordered_map<deployment::TNodeId, TPlace> FPlaces;
};

} // namespace workbench
