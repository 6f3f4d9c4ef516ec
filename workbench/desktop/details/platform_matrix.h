// What entries say about each platform, as a table that is edited in place.
#pragma once

#include "package/host/api/deploymentapi.h"

#include <QAbstractTableModel>
#include <QStyledItemDelegate>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace workbench {

/// One or several entries; of several it shows what they share.
class TPlatformMatrix final : public QAbstractTableModel {
  Q_OBJECT

public:
  using TFile = std::shared_ptr<deployment::IProjectDeploymentFile>;
  using TFiles = std::vector<TFile>;
  /// Does a change of the list as a step of that name; false when it is refused.
  using TDo = std::function<bool(const QString& text, const std::function<void()>& command)>;

  enum TColumn { Deployed, Directory, Name, Overwrite, Operation, CommandsHere, CommandsThere };
  static constexpr int ColumnCount = CommandsThere + 1;

  TPlatformMatrix(TDo doCommand, QObject* parent);

  /// Shows entries of a deployment, which must outlive them here. None: the table is empty.
  void SetFiles(TFiles files, deployment::IProjectDeployment* deployment,
                std::vector<std::string> platforms);
  const TFiles& Files() const { return FFiles; }

  int rowCount(const QModelIndex& parent = {}) const override;
  int columnCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;
  bool setData(const QModelIndex& index, const QVariant& value, int role) override;
  QVariant headerData(int section, Qt::Orientation orientation, int role) const override;
  Qt::ItemFlags flags(const QModelIndex& index) const override;

private:
  template <class TValue>
  std::optional<TValue>
  Shared(const std::function<TValue(deployment::IProjectDeploymentFile&)>& value) const;
  QVariant CheckData(const QModelIndex& index) const;
  QVariant TextData(const QModelIndex& index, bool isEdited) const;
  QString DirectoryText(const std::string& platform, bool isEdited) const;
  bool IsInherited(const QModelIndex& index) const;
  bool Has(const TFile& file, const QModelIndex& index, const QVariant& value) const;
  void SetOne(const TFile& file, const QModelIndex& index, const QVariant& value);
  void Set(const QModelIndex& index, const QVariant& value);

  TDo FDo;
  TFiles FFiles;
  deployment::IProjectDeployment* FDeployment = nullptr;
  std::vector<std::string> FPlatforms;
};

/// The operations in words, in the order of their ordinals.
std::vector<QString> OperationWords();

/// Lets the user choose an operation from a list; the other cells are edited as usual.
class TMatrixDelegate final : public QStyledItemDelegate {
  Q_OBJECT

public:
  using QStyledItemDelegate::QStyledItemDelegate;

  QWidget* createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                        const QModelIndex& index) const override;
  void setEditorData(QWidget* editor, const QModelIndex& index) const override;
  void setModelData(QWidget* editor, QAbstractItemModel* model,
                    const QModelIndex& index) const override;
};

} // namespace workbench
