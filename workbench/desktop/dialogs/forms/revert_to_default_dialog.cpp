#include "workbench/desktop/dialogs/forms/revert_to_default_dialog.h"

#include "workbench/desktop/text/package_texts.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

namespace workbench {

TRevertToDefaultDialog::TRevertToDefaultDialog(deployment::IRevertToDefaultForm& form,
                                               QWidget* parent)
    : TFormDialog(form.GetLayout(), parent) {
  auto* warning = new QLabel(PackageText(form.GetWarning()), this);
  warning->setTextFormat(Qt::PlainText);
  warning->setWordWrap(true);
  Content().addWidget(warning);
  Content().addWidget(MakeScopes(form));
  auto* keep = new QCheckBox(PackageText(form.GetKeepAddedFilesCaption()), this);
  keep->setObjectName(QStringLiteral("chkKeepAddedFiles"));
  keep->setChecked(form.GetKeepAddedFiles());
  connect(keep, &QCheckBox::toggled, this, [&form](bool on) { form.SetKeepAddedFiles(on); });
  Content().addWidget(keep);
  Finish(form.GetLayout());
}

QWidget* TRevertToDefaultDialog::MakeScopes(deployment::IRevertToDefaultForm& form) {
  auto* group = new QGroupBox(PackageText(form.GetGroupCaption()), this);
  auto* layout = new QVBoxLayout(group);
  for (const deployment::TRevertOption& option : form.GetOptions()) {
    auto* button = new QRadioButton(PackageText(option.Caption), group);
    button->setObjectName(option.Scope == deployment::TRevertScope::ActivePlatform
                              ? QStringLiteral("RBActivePlatform")
                              : QStringLiteral("RBAllPlatforms"));
    button->setChecked(option.Scope == form.GetScope());
    if (button->isChecked())
      button->setFocus();
    connect(button, &QRadioButton::toggled, this, [&form, scope = option.Scope](bool on) {
      if (on)
        form.SetScope(scope);
    });
    layout->addWidget(button);
  }
  return group;
}

} // namespace workbench
