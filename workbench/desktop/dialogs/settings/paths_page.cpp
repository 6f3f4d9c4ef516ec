#include "workbench/desktop/dialogs/settings/paths_page.h"

#include "workbench/desktop/text/qt_text.h"

#include <QFileDialog>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

namespace workbench {
namespace {

constexpr std::string_view OsxDirectory = "toolchain-osx-directory";

} // namespace

int TPathModel::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(FPlatforms.size());
}

int TPathModel::columnCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : ColumnCount;
}

std::string TPathModel::KeyOf(const QModelIndex& index) const {
  return (index.column() == LibraryPath ? "library-path." : "toolchain-path.") +
         ToStdString(FPlatforms[index.row()]);
}

QVariant TPathModel::data(const QModelIndex& index, int role) const {
  if (!index.isValid())
    return {};
  if (role == Qt::AccessibleTextRole || role == Qt::ToolTipRole)
    return data(index, Qt::DisplayRole);
  if (role != Qt::DisplayRole && role != Qt::EditRole)
    return {};
  return index.column() == Platform ? FPlatforms[index.row()]
                                    : ToQString(FSettings.Get(KeyOf(index)));
}

bool TPathModel::setData(const QModelIndex& index, const QVariant& value, int role) {
  if (!index.isValid() || role != Qt::EditRole || index.column() == Platform)
    return false;
  FSettings.Set(KeyOf(index), ToStdString(value.toString().trimmed()));
  emit dataChanged(index, index);
  return true;
}

QVariant TPathModel::headerData(int section, Qt::Orientation orientation, int role) const {
  if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
    return {};
  switch (section) {
  case Platform:
    return tr("Platform");
  case LibraryPath:
    return tr("Library path");
  case ToolChainPath:
    return tr("Tool chain path");
  default:
    return {};
  }
}

Qt::ItemFlags TPathModel::flags(const QModelIndex& index) const {
  const Qt::ItemFlags usual = QAbstractTableModel::flags(index);
  return index.isValid() && index.column() != Platform ? usual | Qt::ItemIsEditable : usual;
}

TPathsPage::TPathsPage(TSettingsEdit& settings, QStringList platforms, QWidget* parent)
    : TSettingsPage(parent), FSettings(settings), FTable(new QTableView(this)),
      FOsxDirectory(new QLineEdit(this)) {
  FTable->setObjectName(QStringLiteral("paths"));
  FTable->setAccessibleName(tr("Paths of the platforms"));
  FTable->setModel(new TPathModel(settings, std::move(platforms), FTable));
  FTable->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::SelectedClicked |
                          QAbstractItemView::EditKeyPressed | QAbstractItemView::AnyKeyPressed);
  FTable->setSelectionMode(QAbstractItemView::SingleSelection);
  FTable->setTabKeyNavigation(false);
  FTable->verticalHeader()->hide();
  FTable->verticalHeader()->setDefaultSectionSize(FTable->fontMetrics().lineSpacing() * 2);
  FTable->setWordWrap(false);
  FTable->horizontalHeader()->setHighlightSections(false);
  FTable->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
  FTable->horizontalHeader()->setSectionResizeMode(TPathModel::Platform,
                                                   QHeaderView::ResizeToContents);
  FOsxDirectory->setObjectName(QStringLiteral("osxDirectory"));
  FOsxDirectory->setText(ToQString(settings.Get(OsxDirectory)));
  auto* browse = new QPushButton(tr("&Browse\u2026"), this);
  browse->setAutoDefault(false);
  connect(browse, &QPushButton::clicked, this, &TPathsPage::Browse);
  auto* hint = new QLabel(tr("Several &directories are separated by \";\"."), this);
  hint->setBuddy(FTable);
  auto* caption = new QLabel(tr("Tool chain of &OS X:"), this);
  caption->setBuddy(FOsxDirectory);
  auto* row = new QHBoxLayout;
  row->addWidget(caption);
  row->addWidget(FOsxDirectory, 1);
  row->addWidget(browse);
  auto* layout = new QVBoxLayout(this);
  layout->addWidget(hint);
  layout->addWidget(FTable, 1);
  layout->addLayout(row);
}

QString TPathsPage::Title() const {
  return tr("Library paths");
}

void TPathsPage::Collect() {
  FSettings.Set(OsxDirectory, ToStdString(FOsxDirectory->text().trimmed()));
}

void TPathsPage::Browse() {
  const QString chosen =
      QFileDialog::getExistingDirectory(this, tr("Tool Chain of OS X"), FOsxDirectory->text());
  if (!chosen.isEmpty())
    FOsxDirectory->setText(chosen);
}

} // namespace workbench
