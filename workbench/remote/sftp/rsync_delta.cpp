#include "workbench/remote/sftp/rsync_delta.h"

#include "workbench/process/shell_text.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace workbench {
namespace {

bool Succeeds(const TProcessStart& start, const TIsCancelled& isCancelled) {
  try {
    return RunProcess(
               start, nullptr, [](std::string_view) {}, isCancelled)
        .Problem()
        .empty();
  } catch (const std::system_error&) {
    return false;
  }
}

// rsync takes the words apart again, at blanks outside of quotes; a quote in them cannot be said.
bool CanBeSaid(const std::vector<std::string>& words) {
  return words.size() > 1 && std::ranges::none_of(words, [](const std::string& word) {
           return word.find_first_of("'\"") != std::string::npos;
         });
}

} // namespace

bool KnowsRsync(const TRemoteWay& way) {
  const TIsCancelled never = [] { return false; };
  // Names of machines with a colon are addresses, which rsync reads in another way.
  if (!way.Exec || !CanBeSaid(way.Shell) || way.Shell.back().find(':') != std::string::npos)
    return false;
  TProcessStart local = way.Exec({});
  local.Command = {"rsync", "--version"};
  return Succeeds(local, never) && Succeeds(way.Exec("command -v rsync"), never);
}

bool SendDelta(const TRemoteWay& way, const std::filesystem::path& local,
               const std::string& oldFile, const std::string& newFile,
               const TIsCancelled& isCancelled) {
  const std::string from = ShellQuoted(oldFile);
  const std::string to = ShellQuoted(newFile);
  if (!Succeeds(
          way.Exec("test -f " + from + " && test ! -h " + from + " && cp -- " + from + " " + to),
          isCancelled))
    return false;
  std::string shell;
  for (std::size_t i = 0; i + 1 < way.Shell.size(); ++i)
    shell.append(i > 0 ? " " : "").append("'").append(way.Shell[i]).append("'");
  TProcessStart start = way.Exec({}); // for its environment
  start.Command = {"rsync",     "--protect-args",  "--ignore-times",
                   "--inplace", "--no-whole-file", "--rsh=" + shell,
                   "--",        local.string(),    way.Shell.back() + ":" + newFile};
  if (Succeeds(start, isCancelled))
    return true;
  Succeeds(way.Exec("rm -f -- " + to), [] { return false; });
  return false;
}

} // namespace workbench
