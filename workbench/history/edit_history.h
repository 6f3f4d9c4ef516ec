// Undo and redo of what changes the list of an open project, whoever changes it.
#pragma once

#include "workbench/list/list_snapshot.h"
#include "workbench/session/session.h"

#include <cstddef>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace workbench {

/// How many steps can be undone, and how many changes of entries all steps may hold together; the
/// oldest steps go first, the newest one stays whatever its size.
struct THistoryLimits {
  std::size_t Steps = 200;
  std::size_t Changes = 500000;
};

/// Whose change a step is.
enum class TStepKind {
  Edit,    ///< the user's: the project counts as changed
  Computed ///< the program's, such as a reconcile for another target; it comes back by itself
};

/// Takes down what changes in a deployment and takes it back. Entries with all that they store,
/// their order and the classes are covered; names of the project's directory on the targets and
/// the project's own properties are not, since no edit of the list changes the ones, and the
/// others belong to the project file and not to the list.
///
/// Nothing of this depends on how many entries there are, but for steps that add, remove or move
/// entries: they compare the order of the list.
class TEditHistory {
public:
  /// Takes down the list as it is, the default one of a project without a list. The project must
  /// outlive the object. Throws what reading the defaults throws.
  explicit TEditHistory(TOpenProject& project, const THistoryLimits& limits = {});
  TEditHistory(const TEditHistory&) = delete;
  TEditHistory& operator=(const TEditHistory&) = delete;

  /// What changed since the last step becomes a step that can be undone; without a change there is
  /// none, and the answer is false. Steps that were undone cannot be done again from then on.
  /// `name` is for menus. An edit marks the project as changed.
  bool EndStep(std::string name, TLook look = TLook::Notified, TStepKind kind = TStepKind::Edit);

  /// Names a step by what it did.
  using TNaming = std::function<std::string(const TListChange&)>;
  /// The same as EndStep for a step whose name depends on the change.
  bool EndStepNamed(const TNaming& name, TLook look, TStepKind kind = TStepKind::Edit);

  /// The step that Undo takes back; 0 for none. No two steps have the same number.
  std::uint64_t LastStep() const { return FUndo.empty() ? 0 : FUndo.back().Id; }
  /// True while the step can be taken back, perhaps behind others.
  bool IsDone(std::uint64_t step) const;

  bool CanUndo() const { return !FUndo.empty(); }
  bool CanRedo() const { return !FRedo.empty(); }
  /// Empty when there is no such step.
  const std::string& UndoName() const;
  const std::string& RedoName() const;
  /// Takes the last step back, or does the one again that was taken back last. What changed since
  /// the last step becomes a step without a name first. The project counts as changed, and
  /// listeners of the deployment hear of it once, as of a change of one entry. Without a step
  /// these do nothing.
  void Undo();
  void Redo();
  /// Forgets all steps; the list stays as it is.
  void Clear();

  /// Says that the list stands on disk as it is now.
  void MarkSaved();
  /// True when the list is what it was when it was read or MarkSaved was called last, but for
  /// computed steps.
  bool IsAtSavedStep() const;

  /// Called after each step that was made, undone or done again with what was done to the list, so
  /// that doing it in turn to the list as it was gives the list as it is.
  using TOnStep = std::function<void(const TListChange&)>;
  /// Null for none.
  void SetOnStep(TOnStep onStep) { FOnStep = std::move(onStep); }

  /// How many entries were looked at to find out what changed in the last step.
  std::size_t LookedAt() const { return FSnapshot.LookedAt(); }

private:
  struct TStep {
    std::string Name;
    std::uint64_t Id = 0;
    TStepKind Kind = TStepKind::Edit;
    TSnapshotChange Change;
  };

  void Restore(const TStep& step, TDirection direction);
  void Report(const TStep& step, TListChange change) const;
  void DropOldSteps();
  // Of the last edit in the list as it is.
  std::uint64_t PresentEdit() const;

  TOpenProject& FProject;
  const THistoryLimits FLimits;
  TListSnapshot FSnapshot;
  std::deque<TStep> FUndo;
  std::vector<TStep> FRedo;
  std::size_t FChanges = 0;      // in FUndo
  std::uint64_t FLastId = 0;     // of all steps that were ever made
  std::uint64_t FOldestEdit = 0; // the last one that was dropped: the state below FUndo
  std::uint64_t FSavedEdit = 0;  // the one after which the list was saved
  TOnStep FOnStep;
};

} // namespace workbench
