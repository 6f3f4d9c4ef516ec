// The target that the page of a project shows.
#pragma once

#include "package/host/api/deployment_target.h"

#include <QString>

namespace workbench {

class TFormControls;

/// All platforms are the name of all platforms.
deployment::TDeploymentTarget ShownTarget(const TFormControls& controls);
/// As the target box names it, such as "Win64 – Debug".
QString TargetName(const TFormControls& controls);

} // namespace workbench
