// Owner, rights and extended attributes of a file that takes the place of another.
#pragma once

#include "workbench/files/file_descriptor.h"

#include <string>
#include <sys/stat.h>
#include <vector>

namespace workbench {

/// Gives `target` the owner, group, rights, access list and user attributes of `source`, whose
/// status is `status`. What the system does not allow becomes a warning; rights never widen by it.
/// Throws std::system_error when the rights themselves cannot be set.
void CopyFileAttributes(const TFileDescriptor& source, const struct stat& status,
                        const TFileDescriptor& target, std::vector<std::string>& warnings);

} // namespace workbench
