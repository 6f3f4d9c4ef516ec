// Profiles and groups by the names that a command line gives.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/remote/profile/profile_store.h"

#include <string>

namespace workbench {

/// The profile of that name. Throws TUsageError, with the known names. Good until the next change.
const TProfile& RequireProfile(const TProfileStore& profiles, const std::string& name);

/// The group of that name; otherwise as above.
const TProfileGroup& RequireGroup(const TProfileStore& profiles, const std::string& name);

} // namespace workbench
