// What one deploy replaced, removed and made, so that it can be taken back.
#pragma once

#include "workbench/deploy/record/target_record.h"
#include "workbench/json/json.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// How a file is taken back.
enum class TUndoKind {
  Remove,  ///< it was new
  Restore, ///< its content was replaced, or it was removed
  Link,    ///< a link was replaced
  Touch,   ///< its rights or its time alone were changed
};

/// Size and time stamp by which a content is known again.
struct TContentMark {
  std::uint64_t Size = 0;
  std::int64_t Time = 0; ///< whole seconds since 1970

  bool operator==(const TContentMark&) const = default;
};

/// One file of a deploy.
struct TUndoFile {
  TUndoKind Kind = TUndoKind::Remove;
  std::string Path = {};                      ///< relative to the profile's path
  std::string Kept = {};                      ///< name of what was kept, for Restore
  std::string Link = {};                      ///< where it led, for Link
  std::string PutLink = {};                   ///< what a link that the deploy makes stores
  std::optional<TContentMark> Put = {};       ///< what the deploy puts there; nothing: it removes
  std::optional<TContentMark> Before = {};    ///< what was there; nothing for Remove and Link
  unsigned Mode = 0;                          ///< rights before
  std::optional<TRecordedFile> Recorded = {}; ///< what the record said of it before
  std::vector<std::string> Owed = {};         ///< what it owed before
};

struct TUndoManifest {
  TRecordedRun Run = {};
  std::vector<TUndoFile> Files = {};
  std::vector<std::string> Directories = {}; ///< that the deploy makes, relative as above
};

/// The runs that can be taken back.
struct TUndoIndex {
  struct TRun {
    std::string Id;
    std::uint64_t Bytes = 0; ///< of what was kept
  };
  std::vector<TRun> Runs = {}; ///< newest first
  /// Runs whose directories are being filled or removed; what a bad end leaves of them is swept.
  std::vector<std::string> Unfinished = {};
};

/// True for a text that can be the id of a run, and so the name of a directory.
bool IsRunId(std::string_view text);

std::string UndoManifestText(const TUndoManifest& manifest);
/// Makes the next file of a manifest that is never there as a whole; false when there is none.
using TNextUndoFile = std::function<bool(TUndoFile& file)>;
/// Hands over the text of a manifest piece by piece.
void WriteUndoManifest(const TRecordedRun& run, const std::vector<std::string>& directories,
                       const TNextUndoFile& next, const TTakeText& take);
/// Every name is checked as names of the list are. Throws TInputError.
TUndoManifest ParseUndoManifest(std::string_view text);

std::string UndoIndexText(const TUndoIndex& index);
/// Throws TInputError.
TUndoIndex ParseUndoIndex(std::string_view text);

} // namespace workbench
