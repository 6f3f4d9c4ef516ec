// Work that starts in the event loop, which no exception may reach.
#pragma once

#include <exception>

namespace workbench {

/// Shows the error to the user, from the event loop and so not before the caller has returned.
void ReportError(const std::exception& error);

/// Runs the work; what it throws is shown to the user. True when it threw nothing.
template <class TWork>
bool Guarded(TWork&& work) {
  try {
    work();
    return true;
  } catch (const std::exception& error) {
    ReportError(error);
    return false;
  }
}

} // namespace workbench
