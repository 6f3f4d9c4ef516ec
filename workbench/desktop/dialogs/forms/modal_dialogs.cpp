#include "workbench/desktop/dialogs/forms/modal_dialogs.h"

#include "workbench/desktop/dialogs/forms/feature_file_dialog.h"
#include "workbench/desktop/dialogs/forms/revert_to_default_dialog.h"
#include "workbench/desktop/dialogs/forms/select_dialog.h"

namespace workbench {

using deployment::TModalResult;

TModalResult TModalDialogs::ShowFeatureFiles(deployment::IFeatureFileForm& form) {
  if (FOffers && FOffers(form))
    return TModalResult::None;
  TFeatureFileDialog dialog(form, FParent);
  ++FAnswerCount;
  return dialog.exec() == QDialog::Accepted ? TModalResult::OK : TModalResult::Cancel;
}

TModalResult TModalDialogs::ShowSelectPlatforms(deployment::ISelectForm& form) {
  return TSelectDialog(form, FParent).Run();
}

TModalResult TModalDialogs::ShowRevertToDefault(deployment::IRevertToDefaultForm& form) {
  return TRevertToDefaultDialog(form, FParent).Run();
}

} // namespace workbench
