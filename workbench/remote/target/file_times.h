// Time stamps of files as they are compared between this machine and a target.
#pragma once

#include "package/host/api/platformapi.h"

#include <chrono>
#include <cstdint>
#include <ctime>
#include <optional>
#include <string>

namespace workbench {

/// A time stamp of the system, as it is.
deployment::TFileTime FileTimeOf(const timespec& time);

/// The time stamp of a file of this machine as it is compared with one of a target; nothing when
/// it cannot be examined. Links are followed.
std::optional<deployment::TFileTime> LocalFileTime(const std::string& file);

/// The time stamp in whole seconds since 1970, and 0 for what was before.
std::int64_t WholeSeconds(deployment::TFileTime time);

/// The time stamp without what is finer than the resolution.
deployment::TFileTime Truncated(deployment::TFileTime time, std::chrono::nanoseconds resolution);

} // namespace workbench
