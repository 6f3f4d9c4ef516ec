// The user of this machine, and its name.
#pragma once

#include <string>

namespace workbench {

/// The name of the user that this program runs as; the number where there is no name.
std::string UserName();

/// The name that the machine gives itself; never empty.
std::string MachineName();

} // namespace workbench
