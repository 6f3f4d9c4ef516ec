// What a profile can say.
#pragma once

#include "workbench/remote/target/profile.h"

namespace workbench {

/// Throws std::invalid_argument with a sentence when a field cannot be: a name that is empty, has
/// control characters or begins with "-", an empty platform, a path that is relative or the root
/// of the file system, and what CheckSshFields refuses.
void CheckProfile(const TProfile& profile);

} // namespace workbench
