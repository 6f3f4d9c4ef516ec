#include "workbench/history/edit_history.h"

#include "workbench/list/entry_restore.h"

#include <algorithm>
#include <utility>

namespace workbench {
namespace {

const std::string NoName;

} // namespace

TEditHistory::TEditHistory(TOpenProject& project, const THistoryLimits& limits)
    : FProject(project), FLimits(limits), FSnapshot(project.Deployment()) {}

bool TEditHistory::EndStep(std::string name, TLook look, TStepKind kind) {
  return EndStepNamed([&name](const TListChange&) { return std::move(name); }, look, kind);
}

bool TEditHistory::EndStepNamed(const TNaming& name, TLook look, TStepKind kind) {
  TSnapshotChange change = FSnapshot.Collect(look);
  if (change.IsEmpty())
    return false;
  FRedo.clear();
  FChanges += change.Entries.size();
  TListChange told = ListChangeOf(change, TDirection::Forth);
  FUndo.push_back({name(told), ++FLastId, kind, std::move(change)});
  DropOldSteps();
  if (kind == TStepKind::Edit)
    FProject.MarkChanged();
  Report(FUndo.back(), std::move(told));
  return true;
}

bool TEditHistory::IsDone(std::uint64_t step) const {
  return std::ranges::find(FUndo, step, &TStep::Id) != FUndo.end();
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

// Listeners find the step done.
void TEditHistory::Restore(const TStep& step, TDirection direction) {
  auto* held = FSnapshot.Restore(step.Change, direction);
  FProject.MarkChanged();
  Report(step, ListChangeOf(step.Change, direction));
  NotifyListeners(FProject.Deployment(), held);
}

void TEditHistory::Report(const TStep& step, TListChange change) const {
  if (!FOnStep)
    return;
  change.Name = step.Name;
  change.IsComputed = step.Kind == TStepKind::Computed;
  FOnStep(change);
}

void TEditHistory::Clear() {
  EndStep({});
  FOldestEdit = PresentEdit();
  FUndo.clear();
  FRedo.clear();
  FChanges = 0;
}

void TEditHistory::DropOldSteps() {
  while (FUndo.size() > 1 && (FUndo.size() > FLimits.Steps || FChanges > FLimits.Changes)) {
    FChanges -= FUndo.front().Change.Entries.size();
    if (FUndo.front().Kind == TStepKind::Edit)
      FOldestEdit = FUndo.front().Id;
    FUndo.pop_front();
  }
}

std::uint64_t TEditHistory::PresentEdit() const {
  const auto last = std::find_if(FUndo.rbegin(), FUndo.rend(),
                                 [](const TStep& step) { return step.Kind == TStepKind::Edit; });
  return last == FUndo.rend() ? FOldestEdit : last->Id;
}

void TEditHistory::MarkSaved() {
  EndStep({});
  FSavedEdit = PresentEdit();
}

bool TEditHistory::IsAtSavedStep() const {
  return PresentEdit() == FSavedEdit;
}

} // namespace workbench
