#include "workbench/remote/sftp/remote_checksums.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace workbench {
namespace {

constexpr std::size_t DigestLength = 64;

// The names come through standard input, so that no shell reads them.
constexpr const char* Command =
    "if command -v sha256sum >/dev/null 2>&1; then xargs -0 sha256sum --; "
    "else xargs -0 shasum -a 256 --; fi";

bool IsDigest(std::string_view text) {
  return text.size() == DigestLength &&
         text.find_first_not_of("0123456789abcdef") == std::string_view::npos;
}

} // namespace

std::unordered_map<std::string, std::string> RemoteSHA256(const TRemoteExec& exec,
                                                          std::span<const std::string> files,
                                                          const TIsCancelled& isCancelled) {
  std::unordered_map<std::string, std::string> digests;
  if (!exec || files.empty())
    return digests;
  std::string names;
  for (const std::string& file : files)
    names += file + '\0';
  // "digest  name"; the line of a name with odd characters begins with "\" and is left out.
  const THearLine hear = [&digests](std::string_view line) {
    constexpr std::size_t NameStart = DigestLength + 2;
    if (line.size() > NameStart && IsDigest(line.substr(0, DigestLength)))
      digests.emplace(line.substr(NameStart), line.substr(0, DigestLength));
  };
  TLineSplitter lines(hear);
  try {
    const TFeed feed = [&names](TByteBuffer& bytes) {
      bytes.Append(std::exchange(names, {}));
      return false;
    };
    RunProcess(
        exec(Command), feed, [&lines](std::string_view bytes) { lines.Add(bytes); }, isCancelled);
    lines.Finish();
  } catch (const std::system_error&) {
    digests.clear();
  }
  return digests;
}

} // namespace workbench
