// How many files this process may have open.
#pragma once

namespace workbench {

/// Raises the limit to what the system lets this process have, at most 16,384 files: several
/// targets at once, each with hundreds of files on their way, want more than the usual 1,024.
/// Programs that are started from here have the same limit. Nothing happens where it is higher.
void AllowManyOpenFiles();

} // namespace workbench
