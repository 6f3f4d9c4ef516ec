// The project that the runs work on.
#pragma once

#include "tests/faults/fault_place.h"

#include <cstddef>
#include <string>

namespace faults {

/// "demo.vproj" with five files, and its side file.
void WriteSampleProject(TFaultPlace& place);

/// The text of such a project with that many files, "files\f1.dat" and so on, for OSX32, and the
/// profile "box"; nothing else is deployed.
std::string SampleProjectText(std::size_t files);

} // namespace faults
