#include "workbench/desktop/dialogs/forms/form_dialog.h"

#include "workbench/desktop/dialogs/forms/dialog_place.h"
#include "workbench/desktop/text/package_texts.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>

namespace workbench {

using deployment::TModalResult;

TFormDialog::TFormDialog(const deployment::TFormLayout& layout, QWidget* parent)
    : QDialog(parent), FContent(new QVBoxLayout(this)), FPosition(layout.Position) {
  setWindowTitle(PackageText(layout.Caption));
}

void TFormDialog::Finish(const deployment::TFormLayout& layout) {
  const bool hasDefault = std::ranges::any_of(layout.Buttons, &deployment::TFormButton::Default);
  auto* row = new QHBoxLayout;
  row->addStretch();
  for (const deployment::TFormButton& description : layout.Buttons) {
    auto* button = new QPushButton(PackageText(description.Caption), this);
    // Qt would make the first of these the default one, and the form decides that.
    button->setAutoDefault(false);
    button->setDefault(hasDefault ? description.Default : description.Result == TModalResult::OK);
    connect(button, &QPushButton::clicked, this, [this, result = description.Result] {
      FResult = result;
      done(result == TModalResult::OK ? Accepted : Rejected);
    });
    row->addWidget(button);
  }
  FContent->addLayout(row);
  // A large font may need more room than the form asks for.
  const QSize wanted(layout.ClientWidth, layout.ClientHeight);
  setFixedSize(wanted.isEmpty() ? sizeHint() : wanted.expandedTo(minimumSizeHint()));
}

TModalResult TFormDialog::Run() {
  FResult = TModalResult::Cancel;
  exec();
  return FResult;
}

void TFormDialog::keyPressEvent(QKeyEvent* event) {
  auto* focused = qobject_cast<QPushButton*>(focusWidget());
  if (focused && (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter))
    focused->click();
  else
    QDialog::keyPressEvent(event);
}

void TFormDialog::showEvent(QShowEvent* event) {
  QDialog::showEvent(event);
  Place();
}

void TFormDialog::Place() {
  CenterOn(*this,
           FPosition == deployment::TFormPosition::MainFormCenter ? parentWidget() : nullptr);
}

} // namespace workbench
