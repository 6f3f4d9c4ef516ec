// What deploys remember on a target: the files that they put there, their runs, and the commands
// that are still to be run.
#pragma once

#include <cstddef>
#include <cstdint>
#include <ctime>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// A file as a deploy put it there.
struct TRecordedFile {
  std::string LocalName = {}; ///< of the entry, as stored
  std::string Class = {};     ///< of the entry
  std::uint64_t Size = 0;
  std::int64_t Time = 0; ///< whole seconds since 1970
  std::string Hash = {}; ///< SHA-256, hexadecimal
  unsigned Mode = 0;     ///< rights, such as 0644
  /// What it stores when it is a symbolic link, which size and hash are of then; else empty.
  std::string Link = {};
  std::string Run = {}; ///< that put it there last
  /// The target of the last deploy that had it in its list.
  std::string Platform = {};
  std::string Configuration = {};

  bool operator==(const TRecordedFile&) const = default;
};

/// UTC, as the record has it: "2026-11-22T00:31:21Z".
std::string UtcText(std::time_t time);

enum class TRunResult { Done, Partly, Undone };

/// "done", "partly" or "undone".
std::string_view RunResultName(TRunResult result);

/// One deploy that changed something.
struct TRecordedRun {
  std::string Id = {};
  std::string At = {};       ///< UTC, such as "2026-11-22T00:31:21Z"
  std::string By = {};       ///< the user who deployed
  std::string Machine = {};  ///< that they deployed from
  std::string Revision = {}; ///< of the project's working copy; empty where none is known
  std::string Tool = {};     ///< with its version
  std::size_t Copied = 0;
  std::size_t Removed = 0;
  std::size_t Failed = 0;
  TRunResult Result = TRunResult::Partly;

  bool operator==(const TRecordedRun&) const = default;
};

/// The record of one project on one target. Paths are relative to the profile's path, with "/".
struct TTargetRecord {
  std::string Project = {};
  std::string Platform = {};
  std::string Configuration = {};
  std::vector<TRecordedRun> Runs = {}; ///< newest first
  std::map<std::string, TRecordedFile, std::less<>> Files = {};
  /// What is still to be done after a file was put there, in order, by the path of the file.
  std::map<std::string, std::vector<std::string>, std::less<>> Owed = {};
  /// The command that is still to be run when all files are in place; empty: none is.
  std::string OwedAfterDeploy = {};

  bool operator==(const TTargetRecord&) const = default;
};

/// How many runs are remembered.
inline constexpr std::size_t MostRuns = 20;
/// The largest record that is read, in bytes.
inline constexpr std::uint64_t LargestRecord = std::uint64_t(64) * 1024 * 1024;

/// What became of reading a record.
enum class TRecordState {
  None,    ///< there is none
  Read,    ///< it was read
  Damaged, ///< it is none, or names what it must not
  Newer,   ///< of a format that only a newer version understands
};

struct TRecordReading {
  TRecordState State = TRecordState::None;
  TTargetRecord Record = {};
  std::string Problem = {}; ///< of a damaged one
};

/// Takes the text of a record apart. Every name in it is checked as names of the list are.
TRecordReading ParseRecord(std::string_view text);

std::string RecordText(const TTargetRecord& record);
/// Hands over the text of the record piece by piece, with these runs in the stead of its own.
void WriteRecord(const TTargetRecord& record, const std::vector<TRecordedRun>& runs,
                 const std::function<void(std::string_view)>& take);

} // namespace workbench
