// Which members of an archive stay below the directory that it is unpacked into.
#pragma once

#include "workbench/archive/unpacked_archive.h"

#include <span>
#include <string>
#include <string_view>

namespace workbench {

/// The name without what means nothing in it ("./a//b" is "a/b"); "\" delimits like "/". Empty for
/// the directory itself. Throws TArchiveError for one that is absolute, has a drive or climbs.
std::string MemberName(std::string_view stored);

/// Throws TArchiveError for a link that could lead out, also through other links of the archive,
/// and for a member below one that is no directory.
void CheckMembersTogether(std::span<const TArchiveMember> members);

} // namespace workbench
