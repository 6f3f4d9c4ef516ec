// What the SSH client can be told by a profile.
#pragma once

#include "workbench/remote/target/profile.h"

namespace workbench {

/// Throws std::invalid_argument with a sentence when a field for SSH cannot be: it would be taken
/// for an option or for something to be run, or it belongs to those that a connection sets itself.
void CheckSshFields(const TProfile& profile);

} // namespace workbench
