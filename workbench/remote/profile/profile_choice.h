// Several profiles at once, as a person names them.
#pragma once

#include "workbench/remote/profile/profile_store.h"

#include <string>
#include <vector>

namespace workbench {

/// A name that was given, of a profile or of a group of them.
struct TNamedTarget {
  std::string Name;
  bool IsGroup = false;
};

/// The profiles that are meant, in the order in which they were named, each once. All of them are
/// of the platform, and each leads to a place of its own: two that lead to one would meet at its
/// lock. Throws std::invalid_argument, with the known names, for what cannot be, and TInputError as
/// TProfileStore::List does.
std::vector<TProfile> ChooseProfiles(const TProfileStore& profiles,
                                     const std::vector<TNamedTarget>& named,
                                     const std::string& platform);

/// Equal for profiles that lead to one place: kind, host, port, user and the path without
/// ".", ".." and a last "/".
std::string PlaceKey(const TProfile& profile);

} // namespace workbench
