// Unsaved edits that a program left behind when it ended without a word.
#pragma once

#include "workbench/session/session.h"

#include <chrono>
#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// What became of the project file since.
enum class TProjectState { Same, Changed, Gone };

/// Edits of one project that can be had back.
struct TRecoverable {
  std::filesystem::path Journal;              ///< the file that keeps them
  std::filesystem::path Project;              ///< full path
  std::chrono::system_clock::time_point When; ///< of the last edit
  std::size_t ChangedEntries = 0;             ///< compared with the file that was edited
  bool ChangesClasses = false;
  TProjectState State = TProjectState::Same;
  bool IsDamaged = false; ///< later edits were there, but cannot be read any more
};

/// What a look at the user's journals found.
struct TRecoverySearch {
  std::vector<TRecoverable> Found;   ///< the oldest first
  std::vector<std::string> Problems; ///< one sentence for each journal that cannot be read
};

/// Looks at all journals but those of programs that still run. Journals without anything to
/// recover are removed, those that cannot be read stay.
TRecoverySearch FindRecoverable();

/// True when the edits are of the project file, under whatever name.
bool IsOfProject(const TRecoverable& recoverable, const std::filesystem::path& project);

/// Does the edits to the project, which was opened from its file; the journal stays. The project
/// counts as changed. Listeners hear of it once, so that a TEditHistory must look everywhere; after
/// its step the edits stand in the journal of the project that is open, and the old one can go.
/// Throws TInputError when the journal is gone, in use or of another project.
void Recover(const TRecoverable& recoverable, TOpenProject& project);

/// Gives the edits up: removes the journal. Throws TInputError when it is in use or cannot be
/// removed.
void Discard(const TRecoverable& recoverable);

} // namespace workbench
