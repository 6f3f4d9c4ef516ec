#include "workbench/cli/context/asking_forms.h"

namespace workbench {

using deployment::TCheckState;
using deployment::TModalResult;

TModalResult TAskingForms::ShowFeatureFiles(deployment::IFeatureFileForm& form) {
  bool all = false;
  bool chosen = false;
  for (const deployment::TNodeId feature : form.GetChildren(0)) {
    if (form.GetCheckState(feature) == TCheckState::Checked)
      continue;
    const TAnswer answer =
        all ? TAnswer::Yes
            : FOutput.Ask("Deploy the optional files of \"" + form.GetText(feature) + "\" too?",
                          form.GetChildren(0).size() > 1);
    if (answer == TAnswer::None)
      return TModalResult::None;
    all = all || answer == TAnswer::YesToAll;
    if (all || answer == TAnswer::Yes) {
      form.SetChecked(feature, true);
      chosen = true;
    }
  }
  return chosen ? TModalResult::OK : TModalResult::Cancel;
}

} // namespace workbench
