// Profiles as JSON: in the profiles file, and where scripts read them.
#pragma once

#include "workbench/json/json.h"
#include "workbench/remote/target/profile.h"

namespace workbench {

/// The fields that the kind of the profile has.
TJson ProfileToJson(const TProfile& profile);

/// Checked whole. Throws TInputError.
TProfile ProfileFromJson(const TJson& value);

} // namespace workbench
