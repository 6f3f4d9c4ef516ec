#include "workbench/desktop/details/platform_matrix.h"

#include "package/common/delimited_list.h"
#include "package/host/api/target_entries.h"
#include "workbench/desktop/text/qt_text.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QGuiApplication>
#include <QPalette>
#include <algorithm>
#include <utility>

namespace workbench {

using deployment::IProjectDeploymentFile;
using deployment::TDeployOperation;

std::vector<QString> OperationWords() {
  const auto word = [](const char* text) {
    return QCoreApplication::translate("TPlatformMatrix", text);
  };
  return {word(QT_TRANSLATE_NOOP("TPlatformMatrix", "copy")),
          word(QT_TRANSLATE_NOOP("TPlatformMatrix", "copy, executable")),
          word(QT_TRANSLATE_NOOP("TPlatformMatrix", "unpack")),
          word(QT_TRANSLATE_NOOP("TPlatformMatrix", "run")),
          word(QT_TRANSLATE_NOOP("TPlatformMatrix", "run and remove")),
          word(QT_TRANSLATE_NOOP("TPlatformMatrix", "remove")),
          word(QT_TRANSLATE_NOOP("TPlatformMatrix", "as the class says"))};
}

TPlatformMatrix::TPlatformMatrix(TDo doCommand, QObject* parent)
    : QAbstractTableModel(parent), FDo(std::move(doCommand)) {}

// The same files keep the cell with the focus, and an editor that is open.
void TPlatformMatrix::SetFiles(TFiles files, deployment::IProjectDeployment* deployment,
                               std::vector<std::string> platforms) {
  if (files.empty())
    platforms.clear();
  FDeployment = deployment;
  if (files == FFiles && platforms == FPlatforms) {
    if (!FPlatforms.empty())
      emit dataChanged(index(0, 0), index(rowCount() - 1, ColumnCount - 1));
    return;
  }
  beginResetModel();
  FFiles = std::move(files);
  FPlatforms = std::move(platforms);
  endResetModel();
}

int TPlatformMatrix::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FPlatforms.size());
}

int TPlatformMatrix::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

// Nothing when the entries differ.
template <class TValue>
std::optional<TValue>
TPlatformMatrix::Shared(const std::function<TValue(IProjectDeploymentFile&)>& value) const {
  if (FFiles.empty())
    return std::nullopt;
  TValue first = value(*FFiles.front());
  const bool isShared = std::all_of(FFiles.begin() + 1, FFiles.end(),
                                    [&](const TFile& file) { return value(*file) == first; });
  return isShared ? std::optional(std::move(first)) : std::nullopt;
}

QVariant TPlatformMatrix::CheckData(const QModelIndex& index) const {
  const std::string& platform = FPlatforms[static_cast<std::size_t>(index.row())];
  const bool isOverwrite = index.column() == Overwrite;
  const auto shared = Shared<bool>([&](IProjectDeploymentFile& file) {
    return isOverwrite ? file.GetOverwrite(platform)
                       : file.GetEnabled(platform) && deployment::HoldsPlatform(file, platform);
  });
  return !shared ? Qt::PartiallyChecked : *shared ? Qt::Checked : Qt::Unchecked;
}

// What the entry leaves open the class says, or the project's own directory is meant.
QString TPlatformMatrix::DirectoryText(const std::string& platform, bool isEdited) const {
  const auto shared = Shared<std::string>([&](IProjectDeploymentFile& file) {
    return isEdited ? file.GetRemoteDir(platform)
                    : deployment::GetDeploymentRemoteDir(file, platform, *FDeployment);
  });
  if (!shared)
    return isEdited ? QString() : tr("(different)");
  return shared->empty() && !isEdited ? QStringLiteral(".\\") : ToQString(*shared);
}

QVariant TPlatformMatrix::TextData(const QModelIndex& index, bool isEdited) const {
  const std::string& platform = FPlatforms[static_cast<std::size_t>(index.row())];
  const QString different = isEdited ? QString() : tr("(different)");
  switch (index.column()) {
  case Directory:
    return DirectoryText(platform, isEdited);
  case Name: {
    const auto name = Shared<std::string>(
        [&](IProjectDeploymentFile& file) { return file.GetRemoteName(platform); });
    return name ? ToQString(*name) : different;
  }
  case Operation: {
    const auto operation = Shared<TDeployOperation>([&](IProjectDeploymentFile& file) {
      return isEdited ? file.GetOperation(platform)
                      : deployment::GetDeploymentOperation(file, platform, *FDeployment);
    });
    const auto number = static_cast<std::size_t>(operation.value_or(TDeployOperation::Default));
    if (isEdited)
      return static_cast<int>(number);
    return operation ? OperationWords()[number] : different;
  }
  case CommandsHere:
  case CommandsThere: {
    const bool isHere = index.column() == CommandsHere;
    const auto commands = Shared<deployment::TCommandList>([&](IProjectDeploymentFile& file) {
      return isHere ? deployment::GetDeploymentLocalCommands(file, platform, *FDeployment)
                    : deployment::GetDeploymentRemoteCommands(file, platform, *FDeployment);
    });
    return commands ? ToQString(deployment::JoinDelimited(*commands, "; ")) : different;
  }
  default:
    return {};
  }
}

bool TPlatformMatrix::IsInherited(const QModelIndex& index) const {
  const std::string& platform = FPlatforms[static_cast<std::size_t>(index.row())];
  return std::ranges::all_of(FFiles, [&](const TFile& file) {
    return index.column() == Directory   ? file->GetRemoteDir(platform).empty()
           : index.column() == Operation ? file->GetOperation(platform) == TDeployOperation::Default
                                         : !deployment::HoldsPlatform(*file, platform);
  });
}

QVariant TPlatformMatrix::data(const QModelIndex& index, int role) const {
  if (!index.isValid() || index.row() >= rowCount())
    return {};
  const bool isBox = index.column() == Deployed || index.column() == Overwrite;
  switch (role) {
  case Qt::CheckStateRole:
    return isBox ? CheckData(index) : QVariant();
  case Qt::DisplayRole:
  case Qt::EditRole:
    return isBox ? QVariant() : TextData(index, role == Qt::EditRole);
  case Qt::AccessibleTextRole:
    return headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString() +
           QLatin1String(", ") + headerData(index.row(), Qt::Vertical, Qt::DisplayRole).toString() +
           (isBox ? QString() : QLatin1String(": ") + TextData(index, false).toString());
  case Qt::ForegroundRole:
    return !isBox && IsInherited(index)
               ? QVariant(QGuiApplication::palette().color(QPalette::PlaceholderText))
               : QVariant();
  case Qt::ToolTipRole:
    if (isBox)
      return {};
    return IsInherited(index)
               ? tr("%1\nThe entry leaves it open, so its class or the project says it.")
                     .arg(TextData(index, false).toString())
               : TextData(index, false);
  default:
    return {};
  }
}

QVariant TPlatformMatrix::headerData(int section, Qt::Orientation orientation, int role) const {
  if (role != Qt::DisplayRole || section < 0)
    return {};
  if (orientation == Qt::Vertical)
    return static_cast<std::size_t>(section) < FPlatforms.size()
               ? ToQString(FPlatforms[static_cast<std::size_t>(section)])
               : QVariant();
  const QStringList titles{tr("Deployed"),      tr("Directory"), tr("Name"),
                           tr("Overwrite"),     tr("Operation"), tr("Commands here"),
                           tr("Commands there")};
  return titles.value(section);
}

Qt::ItemFlags TPlatformMatrix::flags(const QModelIndex& index) const {
  if (!index.isValid())
    return Qt::NoItemFlags;
  Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
  if (index.column() == Deployed || index.column() == Overwrite)
    flags |= Qt::ItemIsUserCheckable;
  else if (index.column() < CommandsHere)
    flags |= Qt::ItemIsEditable;
  return flags;
}

void TPlatformMatrix::SetOne(const TFile& file, const QModelIndex& index, const QVariant& value) {
  const std::string& platform = FPlatforms[static_cast<std::size_t>(index.row())];
  const std::string text = ToStdString(value.toString());
  switch (index.column()) {
  case Deployed:
    return file->SetEnabled(platform, value.toInt() == Qt::Checked);
  case Overwrite:
    return file->SetOverwrite(platform, value.toInt() == Qt::Checked);
  case Directory:
    return file->SetRemoteDir(platform, text);
  case Name:
    return file->SetRemoteName(platform, text);
  case Operation:
    return file->SetOperation(platform, static_cast<TDeployOperation>(value.toInt()));
  default:
    return;
  }
}

bool TPlatformMatrix::Has(const TFile& file, const QModelIndex& index,
                          const QVariant& value) const {
  const std::string& platform = FPlatforms[static_cast<std::size_t>(index.row())];
  switch (index.column()) {
  case Deployed:
    return file->GetEnabled(platform) == (value.toInt() == Qt::Checked);
  case Overwrite:
    return file->GetOverwrite(platform) == (value.toInt() == Qt::Checked);
  case Directory:
    return file->GetRemoteDir(platform) == ToStdString(value.toString());
  case Name:
    return file->GetRemoteName(platform) == ToStdString(value.toString());
  default:
    return static_cast<int>(file->GetOperation(platform)) == value.toInt();
  }
}

// Listeners build their rows anew for each change that they hear of, so they hear of one.
void TPlatformMatrix::Set(const QModelIndex& index, const QVariant& value) {
  TFiles files = FFiles; // others may be shown as soon as the list changes
  std::erase_if(files, [&](const TFile& file) { return Has(file, index, value); });
  if (files.empty())
    return;
  FDeployment->SetBlockNotification(true);
  for (std::size_t i = 0; i + 1 < files.size(); ++i)
    SetOne(files[i], index, value);
  FDeployment->SetBlockNotification(false);
  SetOne(files.back(), index, value);
}

bool TPlatformMatrix::setData(const QModelIndex& index, const QVariant& value, int role) {
  const bool isBox = index.column() == Deployed || index.column() == Overwrite;
  if (FFiles.empty() || !index.isValid() || role != (isBox ? Qt::CheckStateRole : Qt::EditRole) ||
      value == data(index, role))
    return false;
  const QString name =
      tr("%1 for %2")
          .arg(headerData(index.column(), Qt::Horizontal, Qt::DisplayRole).toString(),
               headerData(index.row(), Qt::Vertical, Qt::DisplayRole).toString());
  return FDo(name, [&] { Set(index, value); });
}

QWidget* TMatrixDelegate::createEditor(QWidget* parent, const QStyleOptionViewItem& option,
                                       const QModelIndex& index) const {
  if (index.column() != TPlatformMatrix::Operation) {
    QWidget* editor = QStyledItemDelegate::createEditor(parent, option, index);
    if (editor)
      editor->setAccessibleName(index.data(Qt::AccessibleTextRole).toString());
    return editor;
  }
  auto* box = new QComboBox(parent);
  box->setAccessibleName(index.data(Qt::AccessibleTextRole).toString());
  for (const QString& word : OperationWords())
    box->addItem(word);
  connect(box, qOverload<int>(&QComboBox::activated), box, [this, box] {
    auto* self = const_cast<TMatrixDelegate*>(this);
    emit self->commitData(box);
    emit self->closeEditor(box);
  });
  return box;
}

void TMatrixDelegate::setEditorData(QWidget* editor, const QModelIndex& index) const {
  if (auto* box = qobject_cast<QComboBox*>(editor))
    box->setCurrentIndex(index.data(Qt::EditRole).toInt());
  else
    QStyledItemDelegate::setEditorData(editor, index);
}

void TMatrixDelegate::setModelData(QWidget* editor, QAbstractItemModel* model,
                                   const QModelIndex& index) const {
  if (const auto* box = qobject_cast<QComboBox*>(editor))
    model->setData(index, box->currentIndex(), Qt::EditRole);
  else
    QStyledItemDelegate::setModelData(editor, model, index);
}

} // namespace workbench
