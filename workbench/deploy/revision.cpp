#include "workbench/deploy/revision.h"

#include "workbench/process/process_run.h"

#include <chrono>
#include <system_error>
#include <vector>

namespace workbench {
namespace {

constexpr std::chrono::seconds Patience(5);
constexpr std::size_t CommitLength = 40; // or 64, with the newer hashes

// What git prints; nothing when it fails or takes too long. Programs that a working copy's own
// configuration names for looking at files are not started.
bool RunGit(const std::filesystem::path& directory, std::vector<std::string> arguments,
            std::string& output) {
  std::vector<std::string> command{"git", "--no-optional-locks", "-c", "core.fsmonitor=false"};
  command.insert(command.end(), arguments.begin(), arguments.end());
  const auto start = std::chrono::steady_clock::now();
  try {
    const TProcessEnd end = RunProcess(
        {.Command = std::move(command),
         .Environment = EnvironmentWith({"LC_ALL=C"}),
         .Directory = directory},
        nullptr, [&output](std::string_view bytes) { output.append(bytes); },
        [start] { return std::chrono::steady_clock::now() - start > Patience; });
    return end.Problem().empty();
  } catch (const std::system_error&) {
    return false;
  }
}

} // namespace

std::string RevisionOf(const std::filesystem::path& directory) {
  std::string commit;
  if (!RunGit(directory, {"rev-parse", "--verify", "HEAD"}, commit))
    return {};
  commit.resize(std::min(commit.find('\n'), commit.size()));
  if (commit.size() < CommitLength ||
      commit.find_first_not_of("0123456789abcdef") != std::string::npos)
    return {};
  std::string changes;
  const bool isKnown =
      RunGit(directory, {"status", "--porcelain", "--untracked-files=no"}, changes);
  return isKnown && changes.empty() ? commit : commit + "-dirty";
}

} // namespace workbench
