// What people enter for a profile, made fit to be kept, and a profile as people write it.
#pragma once

#include "workbench/remote/target/profile.h"

#include <string>

namespace workbench {

/// The profile with full paths of this machine in place of relative ones, and its directory without
/// "/" at the end. Empty fields stay empty.
TProfile TidyProfile(TProfile profile);

/// Makes the directory of a folder profile when it is missing; a profile of another kind needs
/// nothing here. The reason when it cannot be made, else an empty text.
std::string MakeProfileFolder(const TProfile& profile);

/// "[user@]host[:port]:path" or "path", fit for a person's eyes.
std::string ProfilePlace(const TProfile& profile);

} // namespace workbench
