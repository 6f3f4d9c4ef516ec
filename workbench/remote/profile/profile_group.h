// Profiles under one name, for what is done to several targets at once.
#pragma once

#include "workbench/remote/target/profile.h"

#include <string>
#include <vector>

namespace workbench {

struct TProfileGroup {
  std::string Name = {};
  /// Names of profiles, each once, in the order in which they were added. One may be of a profile
  /// that is not there any more, where another program took it away.
  std::vector<std::string> Profiles = {};

  bool operator==(const TProfileGroup&) const = default;
};

/// What the user keeps.
struct TStoredProfiles {
  std::vector<TProfile> Profiles = {};
  std::vector<TProfileGroup> Groups = {};
};

} // namespace workbench
