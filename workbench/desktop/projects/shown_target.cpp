#include "workbench/desktop/projects/shown_target.h"

#include "package/host/api/platforms.h"
#include "workbench/desktop/controls/form_controls.h"

namespace workbench {

deployment::TDeploymentTarget ShownTarget(const TFormControls& controls) {
  const TTargetsComboBox* box = controls.TargetsComboBox();
  if (!box)
    return {};
  const std::string platform = box->GetSelectedPlatform();
  return {box->GetSelectedConfiguration(),
          platform.empty() ? std::string(deployment::sAllPlatforms) : platform};
}

QString TargetName(const TFormControls& controls) {
  return controls.TargetsComboBox() ? controls.TargetsComboBox()->Box().currentText() : QString();
}

} // namespace workbench
