#include "tests/faults/family.h"

#include <algorithm>
#include <cerrno>
#include <utility>

namespace faults {

std::vector<int> IFamily::Errors() const {
  return {EIO, ENOSPC, EACCES, EINTR};
}

TRunEnd DeployAgain(const TFaultPlace& place, std::vector<std::string> arguments,
                    bool mayBreakLock) {
  TRunEnd end = RunPlainly(place.Deploymgr(arguments));
  if (mayBreakLock && end.Status != 0 && end.Errors.find("--break-lock") != std::string::npos) {
    arguments.emplace_back("--break-lock");
    end = RunPlainly(place.Deploymgr(arguments));
  }
  const TTreeState now = place.State();
  const bool hasTemporaries = std::ranges::any_of(now, [](const auto& file) {
    return file.first.starts_with("target/") && IsTemporaryName(file.first);
  });
  if (end.Status != 0 || !hasTemporaries)
    return end;
  arguments.emplace_back("--force");
  return RunPlainly(place.Deploymgr(std::move(arguments)));
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
