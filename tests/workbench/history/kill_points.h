// Every state in which a killed program can leave its files.
#pragma once

#include <filesystem>
#include <functional>
#include <vector>

namespace workbench::testing {

/// Runs the action in a process of its own and copies the directory into `copies` whenever a call
/// of the system changed something in it: the copies are what each kill would have left, the state
/// before the action first. Empty when this machine lets nobody look at processes, or the action
/// threw.
std::vector<std::filesystem::path> StatesOfKills(const std::filesystem::path& directory,
                                                 const std::filesystem::path& copies,
                                                 const std::function<void()>& action);

} // namespace workbench::testing
