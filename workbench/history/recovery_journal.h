// Keeps the unsaved edits of an open project in a file, so that they outlive the program.
#pragma once

#include "workbench/files/file_descriptor.h"
#include "workbench/history/recovery_format.h"

#include <cstdint>
#include <filesystem>
#include <string>

namespace workbench {

/// The journal of one project that is being edited. Its file appears with the first step, is
/// locked for as long as the object lives, and stays when the object goes without Remove, as it
/// does when the program is killed. Each step is handed to the system at once: that is enough for a
/// program that ends, and a machine that loses power may lose the last steps.
///
/// A journal that cannot be written must not keep anyone from editing: nothing here throws, and
/// Problem says what the user should know.
class TRecoveryJournal {
public:
  /// The edits start from what the file holds now. The journal gets no larger than `limit` bytes.
  explicit TRecoveryJournal(const std::filesystem::path& project,
                            std::uint64_t limit = MaximumJournalSize);

  /// Adds what was done to the list; see TEditHistory::SetOnStep.
  void Append(const TListChange& change) noexcept;
  /// There is nothing to recover any more: the edits were saved or given up. The file goes, and
  /// further edits start from what the project file holds now.
  void Remove() noexcept;
  /// The project file was written with the list left as it was, so the edits go on from there.
  void ProjectFileWritten() noexcept;

  /// The project file has another name from now on.
  void ProjectRenamed(const std::filesystem::path& project) noexcept;

  /// Why edits are not kept, as a sentence; empty while they are. Nothing is written from then on
  /// until Remove, since a journal with a gap is worth nothing.
  const std::string& Problem() const { return FProblem; }
  /// The file; empty while there is none.
  const std::filesystem::path& File() const { return FFile; }

private:
  void Start();
  void Write(const std::string& line);
  template <class TAction>
  void Guarded(TAction action) noexcept;

  std::filesystem::path FProject;
  const std::uint64_t FLimit;
  TFileBase FBase;
  std::filesystem::path FFile;
  TFileDescriptor FJournal;
  std::string FProblem;
};

} // namespace workbench
