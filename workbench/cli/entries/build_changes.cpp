#include "workbench/cli/entries/build_changes.h"

namespace workbench {
namespace {

using TAction = TListUpdate::TAction;

std::string ActionWord(TAction action) {
  switch (action) {
  case TAction::Added:
    return "added";
  case TAction::Changed:
    return "changed";
  case TAction::Removed:
    return "removed";
  case TAction::Present:
  case TAction::StaysOut:
  case TAction::StaysInList:
    break;
  }
  return "present";
}

} // namespace

std::vector<TEntryChange> BuildChanges(TCommandContext& context, const TOpenProject& project,
                                       const std::string& platform, const TBuildRefresh& done) {
  for (const TWarning& warning : done.Warnings)
    context.Output.Warn(warning);
  std::vector<TEntryChange> changes;
  for (const TListUpdate& update : done.Updates) {
    if (update.Action == TAction::StaysInList)
      context.Output.Warn({"the build does not install \"" + update.LocalName +
                               "\" any more; its entry was changed by hand and stays",
                           project.GivenFileName().string(), 0});
    if (update.Action == TAction::StaysOut)
      context.Output.Warn({"the build installs \"" + update.LocalName +
                               "\" in another way now; it was taken off the list and stays off",
                           project.GivenFileName().string(), 0});
    if (update.Action != TAction::StaysOut)
      changes.push_back(
          {update.LocalName, update.Configuration, platform, ActionWord(update.Action)});
  }
  return changes;
}

} // namespace workbench
