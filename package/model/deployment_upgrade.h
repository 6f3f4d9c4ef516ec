// Brings a deployment that was read from an older section up to the current layout.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/xml.h"

namespace deployment {

/// Upgrades the deployment in memory from the layout `version`; one that is current or newer is
/// taken as it is. `section` is where it was read from, null when it was read from none.
void UpgradeDeployment(IProjectDeployment& deployment, IXMLNode* section, int version);

} // namespace deployment
