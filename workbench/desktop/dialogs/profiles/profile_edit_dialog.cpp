#include "workbench/desktop/dialogs/profiles/profile_edit_dialog.h"

#include "workbench/desktop/dialogs/profiles/profile_model.h"
#include "workbench/desktop/dialogs/profiles/profile_pages.h"
#include "workbench/desktop/text/error_text.h"
#include "workbench/desktop/text/qt_text.h"
#include "workbench/remote/profile/profile_entry.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <vector>

namespace workbench {

TProfileEditDialog::TProfileEditDialog(const QStringList& platforms, const TProfile& start,
                                       TKeep keep, QWidget* parent)
    : QDialog(parent), FProfile(start), FKeep(std::move(keep)), FName(new QLineEdit(this)),
      FPlatform(new QComboBox(this)), FKind(new QComboBox(this)), FPages(new QStackedWidget(this)),
      FDefault(new QCheckBox(tr("&Default profile of the platform"), this)),
      FAllowOutside(new QCheckBox(tr("&Allow directories beyond the profile's"), this)),
      FForm(new QFormLayout), FProblem(new QLabel(this)) {
  setWindowTitle(start.Name.empty() ? tr("New Profile") : tr("Profile"));
  FForm->setFieldGrowthPolicy(QFormLayout::ExpandingFieldsGrow);
  FForm->addRow(tr("&Name:"), FName);
  FForm->addRow(tr("&Platform:"), FPlatform);
  FForm->addRow(tr("&Kind:"), FKind);
  MakeFields(platforms);
  FProblem->setObjectName(QStringLiteral("problem"));
  FProblem->setTextFormat(Qt::PlainText);
  FProblem->setWordWrap(true);
  FProblem->hide();
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(FForm);
  layout->addWidget(FPages);
  layout->addWidget(FDefault);
  layout->addWidget(FAllowOutside);
  layout->addWidget(FProblem);
  layout->addWidget(MakeButtons());
  setMinimumWidth(fontMetrics().averageCharWidth() * 70);
}

void TProfileEditDialog::MakeFields(const QStringList& platforms) {
  FName->setObjectName(QStringLiteral("name"));
  FName->setText(ToQString(FProfile.Name));
  FPlatform->setObjectName(QStringLiteral("platform"));
  FPlatform->addItems(platforms);
  const QString platform = ToQString(FProfile.Platform);
  if (!platform.isEmpty() && FPlatform->findText(platform) < 0)
    FPlatform->addItem(platform);
  FPlatform->setCurrentText(platform);
  FKind->setObjectName(QStringLiteral("kind"));
  for (const TProfileKind kind : ProfileKinds()) {
    FKind->addItem(ProfileKindText(kind), static_cast<int>(kind));
    TProfilePage* page = MakeProfilePage(kind, FPages);
    page->Show(FProfile);
    FPages->addWidget(page);
  }
  FKind->setCurrentIndex(FKind->findData(static_cast<int>(FProfile.Kind)));
  ShowKind(FKind->currentIndex());
  connect(FKind, QOverload<int>::of(&QComboBox::currentIndexChanged), this,
          &TProfileEditDialog::ShowKind);
  FDefault->setObjectName(QStringLiteral("default"));
  FDefault->setChecked(FProfile.IsDefault);
  FAllowOutside->setObjectName(QStringLiteral("allowOutside"));
  FAllowOutside->setChecked(FProfile.AllowOutside);
}

QWidget* TProfileEditDialog::MakeButtons() {
  auto* buttons = new QDialogButtonBox(this);
  buttons->addButton(QDialogButtonBox::Ok)->setText(tr("OK"));
  buttons->addButton(QDialogButtonBox::Cancel)->setText(tr("Cancel"));
  connect(buttons, &QDialogButtonBox::accepted, this, &TProfileEditDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
  return buttons;
}

TProfilePage& TProfileEditDialog::Page() const {
  return dynamic_cast<TProfilePage&>(*FPages->currentWidget());
}

void TProfileEditDialog::ShowKind(int index) {
  FPages->setCurrentIndex(index);
  // Pages that are not shown take no room.
  for (int page = 0; page < FPages->count(); ++page) {
    const bool isShown = page == index;
    FPages->widget(page)->setSizePolicy(QSizePolicy::Preferred,
                                        isShown ? QSizePolicy::Preferred : QSizePolicy::Ignored);
  }
  AlignLabels();
  FProblem->hide();
  if (isVisible())
    adjustSize();
}

// The fields of the page stand in one column with those above it.
void TProfileEditDialog::AlignLabels() {
  int widest = 0;
  std::vector<QWidget*> labels;
  for (const QFormLayout* form : {FForm, FPages->currentWidget()->findChild<QFormLayout*>()}) {
    for (int row = 0; form && row < form->rowCount(); ++row) {
      QLayoutItem* item = form->itemAt(row, QFormLayout::LabelRole);
      if (!item || !item->widget())
        continue;
      labels.push_back(item->widget());
      widest = std::max(widest, item->widget()->sizeHint().width());
    }
  }
  for (QWidget* label : labels)
    label->setMinimumWidth(widest);
}

TProfile TProfileEditDialog::Entered() const {
  TProfile profile;
  profile.Name = ToStdString(FName->text().trimmed());
  profile.Platform = ToStdString(FPlatform->currentText());
  profile.Kind = static_cast<TProfileKind>(FKind->currentData().toInt());
  profile.IsDefault = FDefault->isChecked();
  profile.AllowOutside = FAllowOutside->isChecked();
  Page().Fill(profile);
  return TidyProfile(std::move(profile));
}

bool TProfileEditDialog::HasAllFields() {
  if (FName->text().trimmed().isEmpty()) {
    FName->setFocus();
    Refuse(tr("Enter a name for the profile."));
    return false;
  }
  const auto missing = Page().Missing();
  if (missing) {
    missing->Field->setFocus();
    Refuse(missing->Advice);
  }
  return !missing;
}

void TProfileEditDialog::accept() {
  if (!HasAllFields())
    return;
  try {
    TProfile profile = Entered();
    FKeep(profile);
    FProfile = std::move(profile);
    QDialog::accept();
  } catch (const std::exception& error) {
    Refuse(ErrorText(error));
  }
}

void TProfileEditDialog::Refuse(const QString& problem) {
  FProblem->setText(problem);
  FProblem->show();
}

} // namespace workbench
