// The dialog in which the user chooses how far a revert goes.
#pragma once

#include "workbench/desktop/dialogs/forms/form_dialog.h"

namespace workbench {

/// The form must outlive the dialog.
class TRevertToDefaultDialog final : public TFormDialog {
  Q_OBJECT

public:
  TRevertToDefaultDialog(deployment::IRevertToDefaultForm& form, QWidget* parent);

private:
  QWidget* MakeScopes(deployment::IRevertToDefaultForm& form);
};

} // namespace workbench
