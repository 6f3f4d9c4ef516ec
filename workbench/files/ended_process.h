// Tells whether a process of this machine can still do anything.
#pragma once

namespace workbench {

/// True when the process is known to be gone. One that is dead and that nobody has asked for its
/// end counts as gone, since it does nothing any more; where nobody tells, it counts as alive.
bool HasProcessEnded(long process);

} // namespace workbench
