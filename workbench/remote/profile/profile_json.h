// Profiles as JSON: in the profiles file, and where scripts read them.
#pragma once

#include "workbench/remote/target/profile.h"

#include <nlohmann/json.hpp>

namespace workbench {

/// The fields that the kind of the profile has.
nlohmann::ordered_json ProfileToJson(const TProfile& profile);

/// Checked whole. Throws nlohmann::json::exception and std::invalid_argument.
TProfile ProfileFromJson(const nlohmann::ordered_json& value);

} // namespace workbench
