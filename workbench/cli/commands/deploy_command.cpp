// deploymgr deploy: brings the files of a target to where they belong.
#include "package/host/api/view_buttons.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/view/deploy_progress.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/settings/command_consent.h"

#include <array>
#include <iostream>
#include <unistd.h>

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

// A command deploys once, as its arguments say.
class TDesk final : public IDeployDesk {
public:
  explicit TDesk(TDeployRun& run) : FRun(run) {}
  TDeployRun& Begin() override { return FRun; }
  void End(TDeployRun& /*run*/) override {}

private:
  TDeployRun& FRun;
};

class TDeployCommand final : public ICommand {
public:
  std::string Name() const override { return "deploy"; }
  std::string Summary() const override { return "Copy what differs to the target"; }

  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Flag("--force", FOptions.Force, "Copy also what is the same");
    options.Flag("--checksum", FOptions.Checksum, "Compare content instead of size and time");
    options.Flag("--skip-missing", FOptions.SkipMissing,
                 "Skip missing local files that are not required");
    options.Number("--jobs", FOptions.Jobs, 1, 64, "How many files are copied at a time");
    options.Flag("--allow-commands", FAllowCommands, "Let the project's commands run");
    AddChangeOptions(options, FChange);
  }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    const TTarget target = ChooseTarget(context, project);
    if (target.AllPlatforms)
      throw TUsageError("deploy needs a single platform, not \"all\"");
    context.Session.RemoteProfiles().PrepareConnection(project.Project(), target.Platform);
    const std::size_t told = project.Warnings().size();
    TDeploymentView view(context);
    view.Open(project, target);
    WarnSince(context, project, told);
    TDeployRun run;
    run.Options = FOptions;
    run.Options.DryRun = FChange.DryRun;
    run.MayRun = [&](const auto& commands) { return MayRun(context, project, commands); };
    Deploy(context, project, target, view, run);
    return Report(context, target, run);
  }

private:
  // The view's button is disabled when no checked file exists here, and a person who pressed it
  // would be asked to make a missing profile. Neither says what is wrong, so the services are asked
  // themselves then.
  static void Deploy(TCommandContext& context, TOpenProject& project, const TTarget& target,
                     TDeploymentView& view, TDeployRun& run) {
    TRemoteProfileServices& services = context.Session.RemoteProfiles();
    TDeployProgress progress(context.Output);
    run.Progress = &progress;
    {
      const TInterruptWatch watch(run.Cancelled);
      TDesk desk(run);
      services.SetDeployDesk(&desk);
      view.Press(deployment::view_button::Deploy);
      if (run.Report.End == TDeployEnd::NotStarted)
        services.Deploy(project.Project(), target.Platform, target.Configuration, /*final=*/true);
      services.SetDeployDesk(nullptr);
    }
    progress.Finish();
    run.Progress = nullptr;
  }

  bool MayRun(TCommandContext& context, const TOpenProject& project,
              const std::vector<std::string>& commands) const {
    TSettings& settings = context.Session.Settings();
    const std::filesystem::path& file = project.GivenFileName();
    if (FAllowCommands || IsAllowed(settings, file, commands))
      return true;
    if (!context.Output.CanAsk())
      return false;
    std::cerr << "The project wants to run these commands:\n";
    for (const std::string& command : commands)
      std::cerr << "  " << Visible(command) << '\n';
    if (context.Output.Ask("Run them, now and whenever they are the same?", /*several=*/false) !=
        TAnswer::Yes)
      return false;
    Allow(settings, file, commands);
    return true;
  }

  int Report(TCommandContext& context, const TTarget& target, const TDeployRun& run) const {
    const TDeployReport& report = run.Report;
    switch (report.End) {
    case TDeployEnd::Refused:
      throw TWorkError(ProblemText(report.Problems));
    case TDeployEnd::NoConnection:
      throw TExitError(exit_status::NoConnection, report.Message);
    case TDeployEnd::NoConsent:
      throw TExitError(exit_status::NoConsent, ConsentMessage(report.Commands));
    default:
      break;
    }
    if (FChange.DryRun) {
      WarnOfCommands(context, report.Commands);
      for (const TDeployRow& row : report.Rows) {
        if (!context.Output.IsJson() && !context.Output.IsQuiet())
          context.Output.Line(DeployLine(row, /*dryRun=*/true));
      }
    }
    PrintSummary(context, target, report);
    if (report.End == TDeployEnd::Interrupted)
      return 128 + run.Cancelled;
    return report.End == TDeployEnd::Failed ? exit_status::WorkFailed : exit_status::Done;
  }

  static std::string ConsentMessage(const std::vector<std::string>& commands) {
    std::string text = "nothing was copied: the project's commands may not run without consent; "
                       "--allow-commands gives it. They are: ";
    for (std::size_t i = 0; i < commands.size(); ++i)
      text += (i > 0 ? "; " : "") + commands[i];
    return text;
  }

  void WarnOfCommands(TCommandContext& context, const std::vector<std::string>& commands) const {
    if (FAllowCommands)
      return;
    for (const std::string& command : commands)
      context.Output.Warn({"this command needs consent: " + command, FProject, 0});
  }

  void PrintSummary(TCommandContext& context, const TTarget& target,
                    const TDeployReport& report) const {
    std::array<std::size_t, 6> counts{};
    std::uint64_t bytes = 0;
    for (const TDeployRow& row : report.Rows) {
      ++counts[static_cast<std::size_t>(row.Action)];
      bytes += row.Bytes;
      if (row.Action == TDeployAction::Failed && !context.Output.IsJson())
        std::cerr << "deploymgr: " << Visible(row.LocalName) << ": " << Visible(row.Error) << '\n';
    }
    if (context.Output.IsJson()) {
      context.Output.Document(AsJson(target, report, counts));
      return;
    }
    std::string text;
    for (std::size_t i = 0; i < counts.size(); ++i) {
      const auto action = static_cast<TDeployAction>(i);
      if (counts[i] > 0 || action == TDeployAction::Copied)
        text += (text.empty() ? "" : ", ") + std::to_string(counts[i]) + " " +
                std::string(DeployActionName(action));
    }
    context.Output.Line((FChange.DryRun ? "would be: " : "") + text + " (" + BytesText(bytes) +
                        ")");
  }

  static TJson AsJson(const TTarget& target, const TDeployReport& report,
                      const std::array<std::size_t, 6>& counts) {
    TJson files = TJson::Array();
    for (const TDeployRow& row : report.Rows)
      files.Append({{"localName", row.LocalName},
                    {"remoteFile", row.RemoteFile},
                    {"action", DeployActionName(row.Action)},
                    {"bytes", row.Bytes},
                    {"error", row.Error}});
    TJson document = {{"platform", target.Platform},
                      {"configuration", target.Configuration},
                      {"files", std::move(files)}};
    for (std::size_t i = 0; i < counts.size(); ++i) {
      const auto action = static_cast<TDeployAction>(i);
      if (counts[i] > 0 || action != TDeployAction::Removed)
        document.Add(std::string(DeployActionName(action)), counts[i]);
    }
    return document;
  }

  std::string FProject;
  TDeployOptions FOptions;
  bool FAllowCommands = false;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeDeployCommand() {
  return std::make_unique<TDeployCommand>();
}

} // namespace workbench
