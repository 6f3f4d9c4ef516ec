// Deploys to a server that lies once, and questions to it.
#pragma once

#include "tests/faults/fault_place.h"
#include "tests/faults/fault_table.h"

#include <cstddef>
#include <vector>

namespace faults {

inline constexpr const char* LyingServerName = "a server that lies, packet by packet";

/// Every `jobs`-th lie, from the `job`-th on; with a sample about so many in all.
std::vector<TFaultResult> RunLyingServer(const TPrograms& programs, std::size_t sample,
                                         unsigned job, unsigned jobs);

inline constexpr const char* CutLineName = "a line that is cut, packet by packet";

/// Every `jobs`-th place of a deploy where its line can be cut, and what deploys and undo make of
/// what was left; with a sample so many in all.
std::vector<TFaultResult> RunCutLines(const TPrograms& programs, std::size_t sample, unsigned job,
                                      unsigned jobs);

} // namespace faults
