#include "workbench/deploy/plan/row_choices.h"

#include "workbench/deploy/plan/deploy_plan.h"
#include "workbench/deploy/plan/left_overs.h"

#include <string_view>
#include <unordered_set>

namespace workbench {
namespace {

// Others may have changed the file again while the plan was looked at.
bool StandsAsSeen(const TRowChoice& choice, const TRemoteStatus& there) {
  return choice.SizeThere == there.Size && choice.TimeThere == there.Modified;
}

void TakeOurs(const TRowChoice& choice, TPlannedFile& file) {
  const bool wasAsked =
      file.Action == TDeployAction::Refused &&
      (file.State == TFileState::ChangedThere || file.State == TFileState::Conflict);
  if (!wasAsked)
    return;
  if (!StandsAsSeen(choice, file.There)) {
    file.Reason = "it was changed on the target again since the plan was looked at";
    return;
  }
  file.Action = TDeployAction::Copied;
  file.Reason.clear();
  file.Bytes = file.Link.empty() ? file.Local.Size : 0;
  file.Steps = AfterStepsOf(file.File);
}

void LeaveOut(TPlannedFile& file) {
  if (file.Action == TDeployAction::Unchanged || file.Action == TDeployAction::Kept)
    return;
  file.Action =
      file.Action == TDeployAction::Refused ? TDeployAction::Kept : TDeployAction::Skipped;
  file.Reason.clear();
  file.Bytes = 0;
  file.TimeDiffers = false;
  file.Steps.clear();
}

// A file that is left out is not sent; another entry may send the same one.
void ForgetOutside(const TDeployPlan& plan, std::vector<std::string>& outside) {
  if (outside.empty())
    return;
  std::unordered_set<std::string> taken;
  for (const TPlannedFile& file : plan.Files) {
    if (file.Action != TDeployAction::Skipped && file.Action != TDeployAction::Kept)
      taken.insert(file.File.LocalFile.string());
  }
  std::erase_if(outside, [&](const std::string& path) { return !taken.contains(path); });
}

} // namespace

void ApplyChoices(const TRowChoices& choices, TDeployPlan& plan) {
  if (choices.empty())
    return;
  for (TPlannedFile& file : plan.Files) {
    const auto found = choices.find(file.RemoteFile());
    if (found == choices.end())
      continue;
    if (found->second.Kind == TRowChoice::TKind::Take)
      TakeOurs(found->second, file);
    else
      LeaveOut(file);
  }
  std::unordered_set<std::string> planned;
  for (const TPlannedFile& file : plan.Files)
    planned.insert(file.RecordPath);
  for (const TLeftOver& leftOver : plan.LeftOvers) {
    const auto found = choices.find(leftOver.RemoteFile());
    const bool goes = found != choices.end() && found->second.Kind == TRowChoice::TKind::Take &&
                      !planned.contains(leftOver.RecordPath);
    if (goes && StandsAsSeen(found->second, leftOver.There))
      plan.Files.push_back(RemovalOf(leftOver));
  }
  ForgetOutside(plan, plan.Outside);
}

} // namespace workbench
