// All families, each with its faults.
#pragma once

#include "tests/faults/fault_table.h"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace faults {

struct TCampaignOptions {
  std::filesystem::path Programs;   ///< the directory of the built programs
  std::filesystem::path Root;       ///< that holds ObjRepos
  std::size_t Sample = 0;           ///< about so many faults in all, evenly chosen; 0: all
  std::string Family;               ///< a part of the names of the families wanted; empty: all
  std::vector<std::string> Without; ///< parts of the names of the families left out
  unsigned Jobs = 1;                ///< processes side by side
};

/// Throws std::runtime_error when the families cannot be set up.
TFaultTable RunCampaign(const TCampaignOptions& options);

} // namespace faults
