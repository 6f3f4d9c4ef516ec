#include "tests/faults/family.h"

#include <cerrno>

namespace faults {

std::vector<int> IFamily::Errors() const {
  return {EIO, ENOSPC, EACCES, EINTR};
}

TBroken CheckManners(const TRunEnd& end) {
  if (end.IsEndless)
    return "it never ends";
  if (end.IsKilled())
    return std::nullopt;
  if (end.HasCrashed())
    return "it crashes with status " + std::to_string(end.Status) + ": " + end.Errors;
  if (end.Status != 0 && end.Errors.empty() && !end.HitsMessages)
    return "it fails with status " + std::to_string(end.Status) + " and says nothing";
  return std::nullopt;
}

} // namespace faults
