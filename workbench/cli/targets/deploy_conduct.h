// What the commands that plan and carry out deploys have in common: their options, the question
// whether commands may run, and what they print.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/deploy/deploy_service.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// Declares what decides what a plan does.
void AddPlanOptions(IOptions& options, TDeployOptions& wanted);
/// What the command line says yes to.
struct TAllowed {
  bool Commands = false; ///< of the project
  bool Outside = false;  ///< files from beyond the project's tree
};

/// Declares how a plan is carried out.
void AddRunOptions(IOptions& options, TDeployOptions& wanted, TAllowed& allowed);
/// Takes over what the user's settings say of deploys. Throws TInputError for a damaged one.
void TakeDeploySettings(const TSettings& settings, TDeployOptions& wanted);

/// May the commands of the project run? `allow` is the command line's yes; else one that is kept
/// counts, else a person is asked. The context must outlive the answer.
TMayRun ConsentOf(TCommandContext& context, std::filesystem::path project, bool allow);
/// May files from beyond the project's tree be sent? As above.
TMaySend SourceConsentOf(TCommandContext& context, std::filesystem::path project, bool allow);

/// The commands that run when a project is deployed to a place.
struct TPlaceCommands {
  std::filesystem::path Project;
  std::string Place; ///< as TDestination::Text
  std::vector<std::string> Commands;
};

/// The same for several places at once, where a person is asked one question for all of them.
bool MayRunAtAll(TCommandContext& context, const std::vector<TPlaceCommands>& places, bool allow);

/// May files from beyond the project's tree be sent, of all these? A person is asked one question,
/// now; the answer may be asked by several threads.
TMaySend SourceConsentOfAll(TCommandContext& context, const std::filesystem::path& project,
                            const std::vector<std::string>& files, bool allow);

/// Every command of the places once.
std::vector<std::string> CommandsOfAll(const std::vector<TPlaceCommands>& places);

/// The exit status of all when they may not. Throws TExitError, with the commands.
int RefuseCommands(const std::vector<TPlaceCommands>& places);

/// Throws TExitError and TWorkError when nothing was done at all, with every reason.
void CheckWasBegun(const TDeployReport& report);

/// How a report is told.
struct TDeployTelling {
  std::string File; ///< that warnings are about
  bool IsDry = false;
  bool IsCheck = false;
  TAllowed Allowed = {};
};

/// Prints the rows of a plan that is not carried out, for people; with --json and --quiet the
/// commands and files that need consent are warned of only.
void PrintPlan(TCommandContext& context, const TDeployReport& report, const TDeployTelling& how);
/// Warns, prints the rows or the document, and returns the exit status. Throws as CheckWasBegun.
int ReportDeploy(TCommandContext& context, const deployment::TDeploymentTarget& target,
                 const TDeployReport& report, const TDeployTelling& how);
/// The exit status of a report.
int StatusOf(const TDeployReport& report, bool isCheck);

} // namespace workbench
