// Files that ship with the host in its repository folder.
#pragma once

#include "package/host/api/appstrs.h"

#include <string>
#include <string_view>

namespace deployment {

/// Path of a file under "ObjRepos" in the host's root directory: its copy for the user's language
/// when there is one. `name` is relative to that folder. The file need not exist.
std::string RepositoryFile(const IAppStrings& strings, std::string_view name);

} // namespace deployment
