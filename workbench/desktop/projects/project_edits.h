// What the user did to one project since it was opened: for undo, and to be had back after a crash.
#pragma once

#include "workbench/desktop/controls/form_controls.h"
#include "workbench/explain/list_changes.h"
#include "workbench/history/edit_history.h"
#include "workbench/history/recovery.h"
#include "workbench/history/recovery_journal.h"

#include <QString>
#include <cstdint>
#include <optional>

namespace workbench {

/// What a reconcile did to the list, which is a step of its own.
struct TReconciled {
  std::uint64_t Step = 0; ///< see TEditHistory
  QString Target;         ///< as the target box names it
  TTargetChanges Changes;
};

/// Edits are taken down from the making of the object on, before a view reconciles.
class TProjectEdits {
public:
  /// The project must outlive the object. Throws as TEditHistory does.
  explicit TProjectEdits(TOpenProject& project);

  /// What the reconcile of the first target did becomes a step, which is no edit unless somebody
  /// was asked. Nothing when it did nothing. To be called once, before any other step.
  std::optional<TReconciled> Opened(const QString& target, bool wasAsked);
  /// What changed since the last call becomes a step of that command, given while this target was
  /// shown. Answers with what was done if that was a reconcile.
  std::optional<TReconciled> EndStep(const TFormCommand& command, const QString& target);
  TEditHistory& History() { return FHistory; }
  const TEditHistory& History() const { return FHistory; }
  /// True when there is something of the user's to save. What the program computed, such as the
  /// default entries of a target, comes back by itself and does not count.
  bool IsModified() const;
  /// What happened since the project was opened is the user's, though no step says so.
  void MarkModified();
  /// The project stands on disk as it is.
  void Saved();
  /// The project goes on under another name.
  void Renamed() { FJournal.ProjectRenamed(FProject.GivenFileName()); }
  /// The project file may have been written without the list, as when a profile was assigned.
  void FileWritten();
  /// The edits are given up.
  void Dropped() { FJournal.Remove(); }
  /// The edits as they could be had back if the program was killed; nothing where there are none or
  /// they cannot be kept. To be used when the object is gone.
  std::optional<TRecoverable> Kept() const;
  /// Why edits would be lost if the program was killed; empty while they would not.
  QString Problem() const { return QString::fromStdString(FJournal.Problem()); }
  /// Does edits that an earlier run left behind; they are in this run's keeping then. Throws
  /// TInputError.
  void Recover(const TRecoverable& recoverable);

private:
  void EndEdit(const TFormCommand& command, const QString& target, bool wasEdited);
  std::optional<TReconciled> EndReconcile(const QString& name, const QString& target, TLook look,
                                          TStepKind kind);

  TOpenProject& FProject;
  TRecoveryJournal FJournal;
  TEditHistory FHistory;
  bool FIsMarked = false;
};

} // namespace workbench
