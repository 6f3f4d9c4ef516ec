// deploymgr deploy: brings the files of a target to where they belong.
#include "package/host/api/view_buttons.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/context/solution_run.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/view/deploy_json.h"
#include "workbench/cli/view/deploy_progress.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/settings/command_consent.h"

#include <atomic>
#include <iostream>

namespace workbench {
namespace {

constexpr std::size_t ProblemsShown = 20;

std::string ProblemText(const std::vector<std::string>& problems) {
  std::string text = "nothing was copied: ";
  const std::size_t shown = std::min(problems.size(), ProblemsShown);
  for (std::size_t i = 0; i < shown; ++i)
    text += (i > 0 ? "; " : "") + problems[i];
  if (shown < problems.size())
    text += "; and " + std::to_string(problems.size() - shown) + " more";
  return text;
}

class TDeployCommand final : public ICommand {
public:
  std::string Name() const override { return "deploy"; }
  std::string Summary() const override { return "Copy what differs to the target"; }

  void AddOptions(IOptions& options) override {
    AddProjectsArgument(options, FProject);
    options.Flag("--force", FOptions.Force, "Copy also what is the same");
    options.Flag("--checksum", FOptions.Checksum, "Compare content instead of size and time");
    options.Flag("--skip-missing", FOptions.SkipMissing,
                 "Skip missing local files that are not required");
    options.Flag("--overwrite-changed", FOptions.OverwriteChanged,
                 "Copy also over what others changed on the target");
    options.Flag("--prune", FOptions.Prune,
                 "Remove what was deployed and is not in the list any more");
    options.Flag("--break-lock", FOptions.BreakLock, "Go on though somebody else deploys there");
    options.Flag("--check", FCheck,
                 "Change nothing; end with 7 when something would change, with 8 when others "
                 "changed the target");
    options.Number("--jobs", FOptions.Jobs, 1, 64, "How many files are copied at a time");
    options.Flag("--allow-commands", FAllowCommands, "Let the project's commands run");
    AddChangeOptions(options, FChange);
  }

  int Run(TCommandContext& context) override {
    FOptions.DryRun = FChange.DryRun || FCheck;
    return RunForProjects(context, FProject, TOpenPurpose::Look, TWorkTargets::One,
                          [this](TCommandContext& part, TOpenProject& project) {
                            return DeployProject(part, project);
                          });
  }

private:
  int DeployProject(TCommandContext& context, TOpenProject& project) const {
    const TTarget target = ChooseTarget(context, project);
    if (target.AllPlatforms)
      throw TUsageError("deploy needs a single platform, not \"all\"");
    context.Session.RemoteProfiles().Destinations().Prepare(project.Project(), target.Platform);
    const std::size_t told = project.Warnings().size();
    TDeploymentView view(context);
    view.Open(project, target);
    WarnSince(context, project, told);
    const TDeployReport report = Deploy(context, project, target);
    return Report(context, project, target, report);
  }

  TDeployReport Deploy(TCommandContext& context, TOpenProject& project,
                       const TTarget& target) const {
    std::atomic<int> cancelled = 0;
    const TInterruptWatch watch(cancelled);
    TDeployProgress progress(context.Output);
    const TDeployRequest request{.Project = project.Project(),
                                 .Target = {target.Configuration, target.Platform},
                                 .Options = FOptions,
                                 .MayRun =
                                     [&](const auto& commands, const std::string& place) {
                                       return MayRun(context, project, commands, place);
                                     },
                                 .Cancelled = &cancelled};
    TDeployReport report = context.Session.RemoteProfiles().Deploys().Deploy(request, progress);
    progress.Finish();
    return report;
  }

  bool MayRun(TCommandContext& context, const TOpenProject& project,
              const std::vector<std::string>& commands, const std::string& place) const {
    TSettings& settings = context.Session.Settings();
    const std::filesystem::path& file = project.GivenFileName();
    if (FAllowCommands || IsAllowed(settings, file, place, commands))
      return true;
    if (!context.Output.CanAsk())
      return false;
    std::cerr << "The project wants to run these commands when it is deployed to " << place
              << ":\n";
    for (const std::string& command : commands)
      std::cerr << "  " << Visible(command) << '\n';
    if (context.Output.Ask("Run them, now and whenever they are the same?", /*several=*/false) !=
        TAnswer::Yes)
      return false;
    Allow(settings, file, place, commands);
    return true;
  }

  int Report(TCommandContext& context, const TOpenProject& project, const TTarget& target,
             const TDeployReport& report) const {
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
      throw TExitError(exit_status::NoConsent, ConsentMessage(report.Commands));
    default:
      break;
    }
    for (const std::string& warning : report.Warnings)
      context.Output.Warn({warning, project.GivenFileName().string(), 0});
    if (FOptions.DryRun)
      PrintPlan(context, project, report);
    PrintSummary(context, target, report);
    return StatusOf(report);
  }

  int StatusOf(const TDeployReport& report) const {
    if (report.End == TDeployEnd::Interrupted)
      return 128 + report.Signal;
    if (report.End == TDeployEnd::Unexpected)
      return exit_status::Unexpected;
    if (report.End == TDeployEnd::Failed)
      return exit_status::WorkFailed;
    const TDeployCounts counts(report);
    const bool changes = !report.Planned.empty() || counts[TDeployAction::Copied] > 0 ||
                         counts[TDeployAction::Removed] > 0 || counts[TDeployAction::Mode] > 0;
    return FCheck && changes ? exit_status::WouldChange : exit_status::Done;
  }

  void PrintPlan(TCommandContext& context, const TOpenProject& project,
                 const TDeployReport& report) const {
    if (!FCheck)
      WarnOfCommands(context, project, report.Commands);
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

  static std::string ConsentMessage(const std::vector<std::string>& commands) {
    std::string text = "nothing was copied: the project's commands may not run without consent; "
                       "--allow-commands gives it. They are: ";
    for (std::size_t i = 0; i < commands.size(); ++i)
      text += (i > 0 ? "; " : "") + commands[i];
    return text;
  }

  void WarnOfCommands(TCommandContext& context, const TOpenProject& project,
                      const std::vector<std::string>& commands) const {
    if (FAllowCommands)
      return;
    const std::string file = project.GivenFileName().string();
    for (const std::string& command : commands)
      context.Output.Warn({"this command needs consent: " + command, file, 0});
  }

  void PrintSummary(TCommandContext& context, const TTarget& target,
                    const TDeployReport& report) const {
    if (context.Output.IsJson()) {
      context.Output.Document(DeployJson(target.Platform, target.Configuration, report));
      return;
    }
    for (const TDeployRow& row : report.Rows) {
      const bool isNamed =
          row.Action == TDeployAction::Failed || row.Action == TDeployAction::Refused;
      if (isNamed)
        context.Output.Complain(row.LocalName + ": " +
                                (row.Error.empty() ? row.Reason : row.Error));
    }
    context.Output.Line((FOptions.DryRun ? "would be: " : "") + TDeployCounts(report).Text());
  }

  std::string FProject;
  TDeployOptions FOptions;
  bool FAllowCommands = false;
  bool FCheck = false;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeDeployCommand() {
  return std::make_unique<TDeployCommand>();
}

} // namespace workbench
