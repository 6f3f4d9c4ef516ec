// Names of the unfinished files on other machines. They tell who is writing, so that what a run
// that died left behind can be told from what another one is busy with.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <sys/stat.h>

namespace workbench {

/// Stands for this machine since it was started: process numbers start over then.
const std::string& ThisMachineMark();

/// What the name of an unfinished file says.
struct TUnfinishedName {
  std::string Machine; ///< stands for the machine that writes it
  long Process = 0;    ///< on that machine
  std::string Source;  ///< stands for the local file and its state; empty for a small file
};

/// Makes names that nobody else makes. Used by one thread.
class TUnfinishedNames {
public:
  TUnfinishedNames();

  /// A new name. `source` as below, or empty.
  std::string Next(std::string_view source);

private:
  std::string FStart;
  std::uint64_t FCount = 0;
};

/// Stands for a local file in the state in which it is: path, size and time stamp.
std::string SourceMark(std::string_view localFile, const struct stat& status);

/// Nothing when it is no such name.
std::optional<TUnfinishedName> ParseUnfinishedName(std::string_view name);

/// True when the process that writes the file is known to be gone.
bool IsAbandoned(const TUnfinishedName& name);

} // namespace workbench
