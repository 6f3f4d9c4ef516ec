// A machine that loses its power after a run said that all went well: what has reached the disk is
// a copy of an image file, taken at that moment.
#pragma once

#include "tests/faults/fault_place.h"
#include "tests/faults/fault_table.h"

#include <string>
#include <vector>

namespace faults {

inline constexpr const char* PowerCutName = "power cut of an ext4 image";

/// Why it cannot be tried here: it takes the right to mount. Empty when it can.
std::string WhyNoPowerCut();

/// Saves and folder deploys, under the ways in which ext4 keeps data; `isQuick`: cut at once only,
/// and not some seconds later.
std::vector<TFaultResult> RunPowerCuts(const TPrograms& programs, bool isQuick);

} // namespace faults
