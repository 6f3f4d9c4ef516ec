// The dialogs of the package as questions at the terminal.
#pragma once

#include "package/host/api/forms.h"
#include "workbench/cli/context/output.h"

namespace workbench {

/// Asks about one feature after the other. Yes to any is OK, No to all is Cancel; when the input
/// ends, the dialog counts as not shown.
class TAskingForms final : public deployment::IModalForms {
public:
  /// The output must outlive the object.
  explicit TAskingForms(const TOutput& output) : FOutput(output) {}

  deployment::TModalResult ShowFeatureFiles(deployment::IFeatureFileForm& form) override;

private:
  const TOutput& FOutput;
};

} // namespace workbench
