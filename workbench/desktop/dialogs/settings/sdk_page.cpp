#include "workbench/desktop/dialogs/settings/sdk_page.h"

#include "workbench/desktop/dialogs/forms/row_table.h"
#include "workbench/desktop/text/qt_text.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFileDialog>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>
#include <algorithm>

namespace workbench {
namespace {

constexpr const char* AndroidPlatform = "Android"; // the only one whose kits have paths

} // namespace

TSdkEditDialog::TSdkEditDialog(const QStringList& platforms, const TSdk& start,
                               const TSdkModel& others, QWidget* parent)
    : QDialog(parent), FOthers(others), FOldName(start.Name), FName(new QLineEdit(this)),
      FPlatform(new QComboBox(this)), FNdk(new QLineEdit(this)), FServer(new QLineEdit(this)),
      FDefault(new QCheckBox(tr("&Default kit of the platform"), this)),
      FProblem(new QLabel(this)) {
  setWindowTitle(start.Name.empty() ? tr("New SDK") : tr("SDK"));
  FName->setObjectName(QStringLiteral("name"));
  FName->setText(ToQString(start.Name));
  FPlatform->setObjectName(QStringLiteral("platform"));
  FPlatform->addItems(platforms);
  if (const QString own = ToQString(start.Platform); !own.isEmpty()) {
    if (FPlatform->findText(own) < 0)
      FPlatform->addItem(own);
    FPlatform->setCurrentText(own);
  }
  FNdk->setObjectName(QStringLiteral("ndk"));
  FNdk->setText(ToQString(start.NdkBasePath));
  FServer->setObjectName(QStringLiteral("server"));
  FServer->setText(ToQString(start.DebuggerServer));
  FDefault->setObjectName(QStringLiteral("default"));
  FDefault->setChecked(start.IsDefault);
  FProblem->setObjectName(QStringLiteral("problem"));
  FProblem->setTextFormat(Qt::PlainText);
  FProblem->setWordWrap(true);
  FProblem->hide();
  auto* form = new QFormLayout(this);
  form->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  form->addRow(tr("&Name:"), FName);
  form->addRow(tr("&Platform:"), FPlatform);
  AddPath(*form, tr("ND&K:"), *FNdk, /*isDirectory=*/true);
  AddPath(*form, tr("Debugger &server:"), *FServer, /*isDirectory=*/false);
  form->addRow(FDefault);
  form->addRow(FProblem);
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(QDialogButtonBox::Ok)->setText(tr("OK"));
  buttons->addButton(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, &TSdkEditDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  form->addRow(buttons);
  connect(FPlatform, &QComboBox::currentTextChanged, this, &TSdkEditDialog::ShowPlatform);
  ShowPlatform();
  setMinimumWidth(fontMetrics().averageCharWidth() * 70);
}

void TSdkEditDialog::AddPath(QFormLayout& form, const QString& label, QLineEdit& edit,
                             bool isDirectory) {
  auto* browse = new QPushButton(tr("Browse\u2026"), this);
  browse->setAutoDefault(false);
  connect(browse, &QPushButton::clicked, this, [this, &edit, isDirectory] {
    const QString chosen =
        isDirectory ? QFileDialog::getExistingDirectory(this, tr("Directory"), edit.text())
                    : QFileDialog::getOpenFileName(this, tr("File"), edit.text());
    if (!chosen.isEmpty())
      edit.setText(chosen);
  });
  auto* row = new QHBoxLayout;
  row->addWidget(&edit, 1);
  row->addWidget(browse);
  auto* caption = new QLabel(label, this);
  caption->setBuddy(&edit);
  edit.setAccessibleName(QString(label).remove(QLatin1Char('&')).remove(QLatin1Char(':')));
  form.addRow(caption, row);
}

void TSdkEditDialog::ShowPlatform() {
  const bool hasPaths = FPlatform->currentText() == QLatin1String(AndroidPlatform);
  FNdk->setEnabled(hasPaths);
  FServer->setEnabled(hasPaths);
}

TSdk TSdkEditDialog::Sdk() const {
  return {.Name = ToStdString(FName->text().trimmed()),
          .Platform = ToStdString(FPlatform->currentText()),
          .NdkBasePath = ToStdString(FNdk->text().trimmed()),
          .DebuggerServer = ToStdString(FServer->text().trimmed()),
          .IsDefault = FDefault->isChecked()};
}

void TSdkEditDialog::accept() {
  const TSdk sdk = Sdk();
  if (!sdk.Name.empty() && (sdk.Name == FOldName || FOthers.Find(sdk.Name) < 0))
    return QDialog::accept();
  FProblem->setText(sdk.Name.empty() ? tr("Enter a name for the SDK.")
                                     : tr("There is an SDK of this name already. Enter another "
                                          "name."));
  FProblem->show();
  FName->setFocus();
}

TSdkPage::TSdkPage(TSettingsEdit& settings, QStringList platforms, QWidget* parent)
    : TSettingsPage(parent), FPlatforms(std::move(platforms)), FModel(settings, this),
      FTable(new QTableView(this)), FEdit(new QPushButton(tr("&Edit\u2026"), this)),
      FRemove(new QPushButton(tr("&Remove"), this)), FDefault(new QPushButton(this)) {
  FTable->setObjectName(QStringLiteral("sdks"));
  FTable->setAccessibleName(tr("SDKs"));
  FTable->setModel(&FModel);
  SetUpRowTable(*FTable, TSdkModel::NdkBasePath);
  auto* add = new QPushButton(tr("&Add\u2026"), this);
  auto* column = new QVBoxLayout;
  for (QPushButton* button : {add, FEdit, FRemove, FDefault}) {
    button->setAutoDefault(false);
    column->addWidget(button);
  }
  column->addStretch();
  auto* layout = new QHBoxLayout(this);
  layout->addWidget(FTable, 1);
  layout->addLayout(column);
  connect(add, &QPushButton::clicked, this, &TSdkPage::Add);
  connect(FEdit, &QPushButton::clicked, this, &TSdkPage::Edit);
  connect(FRemove, &QPushButton::clicked, this, &TSdkPage::Remove);
  connect(FDefault, &QPushButton::clicked, this, &TSdkPage::ToggleDefault);
  connect(FTable, &QTableView::doubleClicked, this, &TSdkPage::Edit);
  connect(FTable->selectionModel(), &QItemSelectionModel::currentChanged, this,
          &TSdkPage::ShowState);
  FTable->setCurrentIndex(FModel.index(0, 0));
  ShowState();
}

QString TSdkPage::Title() const {
  return tr("SDKs");
}

const TSdk* TSdkPage::Current() const {
  const QModelIndex index = FTable->currentIndex();
  return index.isValid() ? &FModel.Sdk(index.row()) : nullptr;
}

void TSdkPage::ShowState() {
  const TSdk* sdk = Current();
  for (QPushButton* button : {FEdit, FRemove, FDefault})
    button->setEnabled(sdk != nullptr);
  FDefault->setText(sdk && sdk->IsDefault ? tr("No Longer &Default") : tr("Make &Default"));
}

void TSdkPage::Put(const std::string& oldName, const TSdk& sdk) {
  const std::string name = sdk.Name;
  FModel.Put(oldName, sdk);
  FTable->setCurrentIndex(FModel.index(FModel.Find(name), 0));
  ShowState();
}

void TSdkPage::Add() {
  TSdkEditDialog dialog(FPlatforms, {}, FModel, this);
  if (dialog.exec() == QDialog::Accepted)
    Put({}, dialog.Sdk());
}

void TSdkPage::Edit() {
  const TSdk* sdk = Current();
  if (!sdk)
    return;
  const std::string name = sdk->Name;
  TSdkEditDialog dialog(FPlatforms, *sdk, FModel, this);
  if (dialog.exec() == QDialog::Accepted)
    Put(name, dialog.Sdk());
}

void TSdkPage::Remove() {
  const TSdk* sdk = Current();
  if (!sdk)
    return;
  const int row = FTable->currentIndex().row();
  FModel.Remove(std::string(sdk->Name));
  FTable->setCurrentIndex(FModel.index(std::min(row, FModel.rowCount() - 1), 0));
  ShowState();
}

void TSdkPage::ToggleDefault() {
  const TSdk* sdk = Current();
  if (!sdk)
    return;
  TSdk changed = *sdk;
  changed.IsDefault = !changed.IsDefault;
  Put(changed.Name, changed);
}

} // namespace workbench
