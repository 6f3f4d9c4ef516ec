#include "workbench/cli/commands/commands.h"

namespace workbench {

std::vector<std::unique_ptr<ICommand>> AllCommands() {
  std::vector<std::unique_ptr<ICommand>> commands;
  commands.push_back(MakeNewCommand());
  commands.push_back(MakeRefreshCommand());
  commands.push_back(MakeShowCommand());
  commands.push_back(MakeListCommand());
  commands.push_back(MakeStatusCommand());
  commands.push_back(MakeAddCommand());
  commands.push_back(MakeRemoveCommand());
  commands.push_back(MakeSetCommand());
  commands.push_back(MakeReconcileCommand());
  commands.push_back(MakeRevertCommand());
  commands.push_back(MakeExplainCommand());
  commands.push_back(MakeFeaturedCommand());
  commands.push_back(MakeProfileCommand());
  commands.push_back(MakeDeployCommand());
  commands.push_back(MakePlanCommand());
  commands.push_back(MakeApplyCommand());
  commands.push_back(MakeUndoCommand());
  commands.push_back(MakeVerifyCommand());
  commands.push_back(MakeHistoryCommand());
  commands.push_back(MakeFleetCommand());
  commands.push_back(MakeUpgradeCommand());
  commands.push_back(MakeExportCommand());
  commands.push_back(MakeClassesCommand());
  commands.push_back(MakePlatformsCommand());
  commands.push_back(MakeSettingsCommand());
  commands.push_back(MakeOpenCommand());
  return commands;
}

} // namespace workbench
