#include "workbench/cli/targets/deploy_conduct.h"

#include "workbench/cli/view/deploy_json.h"
#include "workbench/cli/view/deploy_progress.h"
#include "workbench/settings/command_consent.h"
#include "workbench/settings/number_setting.h"
#include "workbench/settings/source_consent.h"

#include <algorithm>
#include <iostream>
#include <set>
#include <string_view>
#include <utility>

namespace workbench {
namespace {

constexpr std::size_t ProblemsShown = 20;

std::string ProblemText(const std::vector<std::string>& problems) {
  std::string text = "nothing was copied: ";
  const std::size_t shown = std::min(problems.size(), ProblemsShown);
  for (std::size_t i = 0; i < shown; ++i)
    text.append(i > 0 ? "; " : "").append(problems[i]);
  if (shown < problems.size())
    text += "; and " + std::to_string(problems.size() - shown) + " more";
  return text;
}

std::string ConsentMessage(std::string_view what, const std::vector<std::string>& listed) {
  std::string text = "nothing was copied: " + std::string(what) + " gives it. They are: ";
  for (std::size_t i = 0; i < listed.size(); ++i)
    text.append(i > 0 ? "; " : "").append(listed[i]);
  return text;
}

std::string CommandsMessage(const std::vector<std::string>& commands) {
  return ConsentMessage("the project's commands may not run without consent; --allow-commands",
                        commands);
}

bool MayRun(TCommandContext& context, const std::filesystem::path& project,
            const std::vector<std::string>& commands, const std::string& place) {
  return MayRunAtAll(context, {{project, place, commands}}, /*allow=*/false);
}

bool MaySend(TCommandContext& context, const std::filesystem::path& project,
             const std::vector<std::string>& files) {
  TSettings& settings = context.Session.Settings();
  const std::vector<std::string> asked = SourcesWithoutConsent(settings, project, files);
  if (asked.empty())
    return true;
  if (!context.Output.CanAsk())
    return false;
  std::cerr << "The project wants to send these files, which stand beyond its directory:\n";
  for (const std::string& file : asked)
    std::cerr << "  " << Visible(file) << '\n';
  if (context.Output.Ask("Send them, now and from now on?", /*several=*/false) != TAnswer::Yes)
    return false;
  AllowSources(settings, project, asked);
  return true;
}

void PrintSummary(TCommandContext& context, const deployment::TDeploymentTarget& target,
                  const TDeployReport& report, bool isDry) {
  if (context.Output.IsJson()) {
    context.Output.Document(DeployJson(target.Platform, target.Configuration, report));
    return;
  }
  for (const TDeployRow& row : report.Rows) {
    const bool isNamed =
        row.Action == TDeployAction::Failed || row.Action == TDeployAction::Refused;
    if (isNamed)
      context.Output.Complain(row.LocalName + ": " + (row.Error.empty() ? row.Reason : row.Error));
  }
  if (!report.AfterDeployProblem.empty())
    context.Output.Complain(report.AfterDeployProblem);
  context.Output.Line((isDry ? "would be: " : "") + TDeployCounts(report).Text());
}

} // namespace

void AddPlanOptions(IOptions& options, TDeployOptions& wanted) {
  options.Flag("--force", wanted.Force, "Copy also what is the same");
  options.Flag("--checksum", wanted.Checksum, "Compare content instead of size and time");
  options.Flag("--skip-missing", wanted.SkipMissing,
               "Skip missing local files that are not required");
  options.Flag("--overwrite-changed", wanted.OverwriteChanged,
               "Copy also over what others changed on the target");
  options.Flag("--prune", wanted.Prune, "Remove what was deployed and is not in the list any more");
}

void AddRunOptions(IOptions& options, TDeployOptions& wanted, TAllowed& allowed) {
  options.Flag("--break-lock", wanted.BreakLock, "Go on though somebody else deploys there");
  options.Flag("--no-undo", wanted.NoUndo, "Keep nothing on the target to take the deploy back by");
  options.Flag("--compress", wanted.Compress, "Compress what travels, for thin lines");
  options.Number("--jobs", wanted.Jobs, 1, 64, "How many files are copied at a time");
  options.Flag("--allow-commands", allowed.Commands, "Let the project's commands run");
  options.Flag("--allow-outside", allowed.Outside,
               "Send files that stand beyond the project's directory, working copy or solution");
}

void TakeDeploySettings(const TSettings& settings, TDeployOptions& wanted) {
  wanted.Undo.Runs = NumberSetting(settings, "undo-runs", wanted.Undo.Runs);
  wanted.Undo.Bytes = NumberSetting(settings, "undo-bytes", wanted.Undo.Bytes);
}

TMayRun ConsentOf(TCommandContext& context, std::filesystem::path project, bool allow) {
  return [&context, project = std::move(project), allow](const auto& commands, const auto& place) {
    return allow || MayRun(context, project, commands, place);
  };
}

TMaySend SourceConsentOf(TCommandContext& context, std::filesystem::path project, bool allow) {
  return [&context, project = std::move(project), allow](const auto& files) {
    return allow || MaySend(context, project, files);
  };
}

TMaySend SourceConsentOfAll(TCommandContext& context, const std::filesystem::path& project,
                            const std::vector<std::string>& files, bool allow) {
  if (allow)
    return [](const auto&) { return true; };
  static_cast<void>(MaySend(context, project, files));
  const std::vector<std::string> refused =
      SourcesWithoutConsent(context.Session.Settings(), project, files);
  std::set<std::string> allowed(files.begin(), files.end());
  for (const std::string& file : refused)
    allowed.erase(file);
  return [allowed = std::move(allowed)](const auto& asked) {
    return std::ranges::all_of(asked,
                               [&](const std::string& file) { return allowed.contains(file); });
  };
}

bool MayRunAtAll(TCommandContext& context, const std::vector<TPlaceCommands>& places, bool allow) {
  TSettings& settings = context.Session.Settings();
  std::vector<TPlaceCommands> asked;
  for (const TPlaceCommands& place : places) {
    if (!allow && !place.Commands.empty() &&
        !IsAllowed(settings, place.Project, place.Place, place.Commands))
      asked.push_back(place);
  }
  if (asked.empty())
    return true;
  if (!context.Output.CanAsk())
    return false;
  std::string text = "The project wants to run these commands when it is deployed to ";
  for (std::size_t i = 0; i < asked.size(); ++i)
    text.append(i > 0 ? ", " : "").append(asked[i].Place);
  std::cerr << text << ":\n";
  for (const std::string& command : CommandsOfAll(asked))
    std::cerr << "  " << Visible(command) << '\n';
  if (context.Output.Ask("Run them, now and whenever they are the same?", /*several=*/false) !=
      TAnswer::Yes)
    return false;
  for (const TPlaceCommands& place : asked)
    Allow(settings, place.Project, place.Place, place.Commands);
  return true;
}

std::vector<std::string> CommandsOfAll(const std::vector<TPlaceCommands>& places) {
  std::vector<std::string> all;
  std::set<std::string_view> known;
  for (const TPlaceCommands& place : places) {
    for (const std::string& command : place.Commands) {
      if (known.insert(command).second)
        all.push_back(command);
    }
  }
  return all;
}

int RefuseCommands(const std::vector<TPlaceCommands>& places) {
  throw TExitError(exit_status::NoConsent, CommandsMessage(CommandsOfAll(places)));
}

void CheckWasBegun(const TDeployReport& report) {
  switch (report.End) {
  case TDeployEnd::Refused:
    throw TWorkError(ProblemText(report.Problems));
  case TDeployEnd::Unexpected:
    if (!report.Problems.empty())
      throw TExitError(exit_status::Unexpected, ProblemText(report.Problems));
    break;
  case TDeployEnd::NoConnection:
    throw TExitError(exit_status::NoConnection, report.Message);
  case TDeployEnd::NoConsent:
    throw TExitError(exit_status::NoConsent, CommandsMessage(report.Commands));
  case TDeployEnd::NoSourceConsent:
    throw TExitError(exit_status::NoConsent,
                     ConsentMessage("files beyond the project's directory may not be sent without "
                                    "consent; --allow-outside",
                                    report.Outside));
  default:
    break;
  }
}

void PrintPlan(TCommandContext& context, const TDeployReport& report, const TDeployTelling& how) {
  if (!how.IsCheck && !how.Allowed.Commands) {
    for (const std::string& command : report.Commands)
      context.Output.Warn({"this command needs consent: " + command, how.File, 0});
  }
  if (!how.IsCheck && !how.Allowed.Outside) {
    for (const std::string& file : report.Outside)
      context.Output.Warn(
          {"this file beyond the project's directory needs consent: " + file, how.File, 0});
  }
  if (context.Output.IsJson() || context.Output.IsQuiet())
    return;
  for (const TDeployRow& row : report.Rows)
    context.Output.Line(DeployLine(row, /*dryRun=*/true));
  for (const TPlannedCommand& command : report.Planned)
    context.Output.Line(std::string("would run ") +
                        (command.IsLocal ? "on this machine: " : "on the target: ") +
                        Visible(command.Command));
  for (const TLeftOver& leftOver : report.LeftOvers)
    context.Output.Line(std::string(FileStateName(leftOver.State)) + " " +
                        Visible(leftOver.RemoteFile()));
}

int ReportDeploy(TCommandContext& context, const deployment::TDeploymentTarget& target,
                 const TDeployReport& report, const TDeployTelling& how) {
  CheckWasBegun(report);
  for (const std::string& warning : report.Warnings)
    context.Output.Warn({warning, how.File, 0});
  if (how.IsDry)
    PrintPlan(context, report, how);
  PrintSummary(context, target, report, how.IsDry);
  return StatusOf(report, how.IsCheck);
}

int StatusOf(const TDeployReport& report, bool isCheck) {
  if (report.End == TDeployEnd::Interrupted)
    return 128 + report.Signal;
  if (report.End == TDeployEnd::Unexpected)
    return exit_status::Unexpected;
  if (report.End == TDeployEnd::Failed)
    return exit_status::WorkFailed;
  const TDeployCounts counts(report);
  const bool changes = !report.Planned.empty() || counts.ChangedFiles() > 0;
  return isCheck && changes ? exit_status::WouldChange : exit_status::Done;
}

} // namespace workbench
