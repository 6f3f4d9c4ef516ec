#include "workbench/history/edit_history.h"

#include "workbench/list/entry_restore.h"

#include <utility>

namespace workbench {
namespace {

const std::string NoName;

} // namespace

TEditHistory::TEditHistory(TOpenProject& project, const THistoryLimits& limits)
    : FProject(project), FLimits(limits), FSnapshot(project.Deployment()) {}

void TEditHistory::EndStep(std::string name, TLook look) {
  TSnapshotChange change = FSnapshot.Collect(look);
  if (change.IsEmpty())
    return;
  FRedo.clear();
  FChanges += change.Entries.size();
  FUndo.push_back({std::move(name), ++FLastId, std::move(change)});
  DropOldSteps();
  Tell(FUndo.back(), TDirection::Forth);
}

const std::string& TEditHistory::UndoName() const {
  return FUndo.empty() ? NoName : FUndo.back().Name;
}

const std::string& TEditHistory::RedoName() const {
  return FRedo.empty() ? NoName : FRedo.back().Name;
}

void TEditHistory::Undo() {
  EndStep({});
  if (FUndo.empty())
    return;
  FChanges -= FUndo.back().Change.Entries.size();
  FRedo.push_back(std::move(FUndo.back()));
  FUndo.pop_back();
  Restore(FRedo.back(), TDirection::Back);
}

void TEditHistory::Redo() {
  EndStep({});
  if (FRedo.empty())
    return;
  FUndo.push_back(std::move(FRedo.back()));
  FRedo.pop_back();
  FChanges += FUndo.back().Change.Entries.size();
  Restore(FUndo.back(), TDirection::Forth);
}

// Who hears of it finds the step done.
void TEditHistory::Restore(const TStep& step, TDirection direction) {
  auto* held = FSnapshot.Restore(step.Change, direction);
  FProject.MarkChanged();
  Tell(step, direction);
  NotifyListeners(FProject.Deployment(), held);
}

void TEditHistory::Tell(const TStep& step, TDirection direction) const {
  if (!FOnStep)
    return;
  TListChange change = ListChangeOf(step.Change, direction);
  change.Name = step.Name;
  FOnStep(change);
}

void TEditHistory::Clear() {
  EndStep({});
  if (!FUndo.empty())
    FOldestId = FUndo.back().Id;
  FUndo.clear();
  FRedo.clear();
  FChanges = 0;
}

void TEditHistory::DropOldSteps() {
  while (FUndo.size() > 1 && (FUndo.size() > FLimits.Steps || FChanges > FLimits.Changes)) {
    FChanges -= FUndo.front().Change.Entries.size();
    FOldestId = FUndo.front().Id;
    FUndo.pop_front();
  }
}

std::uint64_t TEditHistory::PresentId() const {
  return FUndo.empty() ? FOldestId : FUndo.back().Id;
}

void TEditHistory::MarkSaved() {
  EndStep({});
  FSavedId = PresentId();
}

bool TEditHistory::IsAtSavedStep() const {
  return PresentId() == FSavedId;
}

} // namespace workbench
