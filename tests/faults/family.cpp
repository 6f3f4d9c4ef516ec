#include "tests/faults/family.h"

#include <cerrno>

namespace faults {

std::vector<int> IFamily::Errors() const {
  return {EIO, ENOSPC, EACCES, EINTR};
}

TBroken CheckManners(const TRunEnd& end) {
  if (end.IsEndless)
    return "it never ends";
  // Parts of the standard library, and the library of checksums, end a program that has no memory,
  // and nobody can keep them from it; what is left must be as sound as behind one that was killed.
  if (end.WasEnded())
    return std::nullopt;
  if (end.HasCrashed())
    return "it crashes with status " + std::to_string(end.Status) + ": " + end.Errors;
  if (end.Status != 0 && end.Errors.empty() && !end.HitsMessages)
    return "it fails with status " + std::to_string(end.Status) + " and says nothing";
  return std::nullopt;
}

} // namespace faults
