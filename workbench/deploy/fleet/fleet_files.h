// What an exported folder consists of besides the list and the contents. It stands beside this file
// as what it is, and is built into the program.
#pragma once

#include <span>
#include <string_view>

namespace workbench {

struct TFleetFile {
  std::string_view Path; ///< relative to the folder, with "/"
  std::string_view Text; ///< in the templates, "@NAME@" stands for what an export says
};

/// The files of the folder.
std::span<const TFleetFile> FleetFiles();

/// The plug-in by which a run of the playbook tells how it goes on.
std::string_view FleetCallback();

} // namespace workbench
