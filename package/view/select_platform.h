// Lets the user choose the platforms of one file.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "package/host/api/forms.h"
#include "package/host/api/toolsapi.h"

namespace deployment {

class TDeploymentFrame;

/// Shows the dialog for the project's platforms and writes the choice to the file. True when the
/// user confirmed it; false when the project has no platforms, or without dialogs (`forms` null).
bool SelectPlatform(TDeploymentFrame& frame, IOTAProject& project, IProjectDeploymentFile& file,
                    IModalForms* forms);

} // namespace deployment
