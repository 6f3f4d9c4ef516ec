// Unpacks an archive of a deploy: its members are checked here and sent like other files.
#pragma once

#include "workbench/deploy/plan/deploy_plan.h"

#include <functional>
#include <string>

namespace workbench {

/// Unpacks the file's archive into the directory that it goes to. No program of the target is
/// needed, and nothing is put there before every member and the place of each was looked at. The
/// reason when it failed, fit to follow the archive's name; else empty. Throws TConnectionError.
std::string UnpackOnTarget(const TPlannedFile& file, const TPlaceRules& rules,
                           IRemoteConnection& connection, const std::function<bool()>& isCancelled);

} // namespace workbench
