// The commands of deploymgr; each lives in a file of its own name.
#pragma once

#include "workbench/cli/context/command.h"

#include <memory>
#include <vector>

namespace workbench {

/// All commands, in the order of the help.
std::vector<std::unique_ptr<ICommand>> AllCommands();

std::unique_ptr<ICommand> MakeNewCommand();
std::unique_ptr<ICommand> MakeRefreshCommand();
std::unique_ptr<ICommand> MakeShowCommand();
std::unique_ptr<ICommand> MakeListCommand();
std::unique_ptr<ICommand> MakeStatusCommand();
std::unique_ptr<ICommand> MakeAddCommand();
std::unique_ptr<ICommand> MakeRemoveCommand();
std::unique_ptr<ICommand> MakeSetCommand();
std::unique_ptr<ICommand> MakeReconcileCommand();
std::unique_ptr<ICommand> MakeRevertCommand();
std::unique_ptr<ICommand> MakeExplainCommand();
std::unique_ptr<ICommand> MakeFeaturedCommand();
std::unique_ptr<ICommand> MakeProfileCommand();
std::unique_ptr<ICommand> MakeDeployCommand();
std::unique_ptr<ICommand> MakePlanCommand();
std::unique_ptr<ICommand> MakeApplyCommand();
std::unique_ptr<ICommand> MakeUndoCommand();
std::unique_ptr<ICommand> MakeVerifyCommand();
std::unique_ptr<ICommand> MakeFleetCommand();
std::unique_ptr<ICommand> MakeHistoryCommand();
std::unique_ptr<ICommand> MakeUpgradeCommand();
std::unique_ptr<ICommand> MakeExportCommand();
std::unique_ptr<ICommand> MakeClassesCommand();
std::unique_ptr<ICommand> MakePlatformsCommand();
std::unique_ptr<ICommand> MakeSettingsCommand();
std::unique_ptr<ICommand> MakeOpenCommand();

} // namespace workbench
