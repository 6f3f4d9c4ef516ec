// What the user did to one project since it was opened: for undo, and to be had back after a crash.
#pragma once

#include "workbench/history/edit_history.h"
#include "workbench/history/recovery.h"
#include "workbench/history/recovery_journal.h"

#include <QString>

namespace workbench {

/// Edits are taken down from the making of the object on, so a view has reconciled before.
class TProjectEdits {
public:
  /// The project must outlive the object. Throws as TEditHistory does.
  explicit TProjectEdits(TOpenProject& project);

  /// What changed since the last call becomes a step. An empty command stands for a change in the
  /// rows themselves.
  void EndStep(const QString& command);
  TEditHistory& History() { return FHistory; }
  /// The project stands on disk as it is.
  void Saved();
  /// The project file may have been written without the list, as when a profile was assigned.
  void FileWritten();
  /// The edits are given up.
  void Dropped() { FJournal.Remove(); }
  /// Why edits would be lost if the program was killed; empty while they would not.
  QString Trouble() const { return QString::fromStdString(FJournal.Trouble()); }
  /// Does edits that an earlier run left behind; they are in this run's keeping then. Throws
  /// TInputError.
  void Recover(const TRecoverable& recoverable);

private:
  TOpenProject& FProject;
  TRecoveryJournal FJournal;
  TEditHistory FHistory;
};

} // namespace workbench
