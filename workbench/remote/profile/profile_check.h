// What a profile can say.
#pragma once

#include "workbench/remote/target/profile.h"

#include <string>

namespace workbench {

/// Throws std::invalid_argument with a sentence when a field cannot be: a name that is empty, has
/// control characters or begins with "-", an empty platform, a path that is relative or the root
/// of the file system, and what CheckSshFields refuses.
void CheckProfile(const TProfile& profile);

/// Throws std::invalid_argument for what cannot be the new name of a "profile" or a "group", as
/// `kind` says. It holds no comma either, which stands between the names of several.
void CheckNewName(const std::string& name, const std::string& kind);

} // namespace workbench
