// The MSBuild deployment project: the deployment as a build on the command line reads it.
#pragma once

#include "package/host/api/ideservices.h"

namespace deployment {

/// Writes "<project>.deployproj" beside the project file: one item group per platform that is
/// available to the project's personality, with an item for every file that goes there. Makes sure
/// of the default deployment first. Conditions carry the words of the project's builds. Files that
/// go above the root of the target are warned of. Throws TInputError when the template cannot be
/// read, and what the host's save throws.
void WriteDeployProj(VelmorIDEServices& host, ICustomProject& project,
                     IProjectDeployment& deployment);

} // namespace deployment
