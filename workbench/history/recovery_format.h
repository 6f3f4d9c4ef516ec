// How a recovery journal stands in its file: one line for its head and one for each step, each with
// a hash of its own, so that a line which was not written whole is noticed.
#pragma once

#include "workbench/list/list_snapshot.h"

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// Directory of all journals; empty when the user has no state directory.
std::filesystem::path RecoveryDirectory();
/// What the name of a journal that is whole ends in.
inline constexpr std::string_view JournalEnding = ".journal";
/// Largest journal that is read, and so the largest one that is written: 1 GiB.
inline constexpr std::uint64_t MaximumJournalSize = 1024ULL * 1024 * 1024;

/// The content of a project file that edits start from.
struct TFileBase {
  std::uint64_t Size = 0;
  std::string SHA256; ///< empty when the file could not be read

  bool operator==(const TFileBase&) const = default;
};

/// What the file holds now. A file that cannot be read is like none.
TFileBase BaseOf(const std::filesystem::path& file);

/// Lines with their ends.
std::string HeadLine(const std::filesystem::path& project, const TFileBase& base);
/// The edits before and after this line belong to a file that got another content in between.
std::string BaseLine(const TFileBase& base);
/// The file has this name from here on.
std::string NameLine(const std::filesystem::path& project, const TFileBase& base);
std::string StepLine(const TListChange& change);

/// All that a journal says.
struct TJournalContent {
  std::filesystem::path Project;
  TFileBase Base;
  std::vector<TListChange> Steps;
  bool IsDamaged = false; ///< steps after these cannot be read
};

/// Reads the text of a journal. A last line that was not written whole is as if it were not there.
/// Throws TInputError when it is no journal that this program understands.
TJournalContent ParseJournal(std::string_view text, const std::filesystem::path& file);

} // namespace workbench
