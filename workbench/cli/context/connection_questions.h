// Questions that a person at the terminal answers while a connection is made.
#pragma once

#include "workbench/cli/context/output.h"
#include "workbench/services/remote_profile_services.h"

namespace workbench {

/// Lets connections ask the person at the terminal; where nobody is, nothing is asked. `output`
/// must outlive the services.
void LetConnectionsAsk(TRemoteProfileServices& services, const TOutput& output);

} // namespace workbench
