// What the dialogs that show forms of the package have in common.
#pragma once

#include "package/host/api/forms.h"

#include <QDialog>

class QVBoxLayout;

namespace workbench {

/// A dialog with the caption, size, place and closing buttons that a form's layout names. The
/// content goes above the buttons.
class TFormDialog : public QDialog {
  Q_OBJECT

public:
  /// How the dialog was left; Cancel when it was closed, or left by Escape.
  deployment::TModalResult Result() const { return FResult; }
  /// Shows the dialog until it is left.
  deployment::TModalResult Run();

protected:
  TFormDialog(const deployment::TFormLayout& layout, QWidget* parent);

  QVBoxLayout& Content() { return *FContent; }
  /// Adds the buttons and fixes the size; called last by the constructors of dialogs.
  void Finish(const deployment::TFormLayout& layout);

  /// Enter presses the button that has the focus, else the form's default one, else OK.
  void keyPressEvent(QKeyEvent* event) override;
  void showEvent(QShowEvent* event) override;

private:
  void Place();

  QVBoxLayout* FContent;
  deployment::TFormPosition FPosition;
  deployment::TModalResult FResult = deployment::TModalResult::Cancel;
};

} // namespace workbench
