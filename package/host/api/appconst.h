// Host unit Appconst: names that the host and its packages share.
#pragma once

#include <string_view>

namespace deployment {

/// Property of the base configuration: ";"-delimited feature classes that were offered or added.
inline constexpr std::string_view cFeatureFilesAdded = "FeatureFilesAdded";

} // namespace deployment
