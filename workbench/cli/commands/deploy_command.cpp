// deploymgr deploy: brings the files of a target to where they belong.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/view/deploy_progress.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/settings/command_consent.h"

#include <CLI/CLI.hpp>

#include <array>
#include <atomic>
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

class TDeployCommand final : public ICommand {
public:
  std::string Name() const override { return "deploy"; }
  std::string Summary() const override { return "Copy what differs to the target"; }

  void AddOptions(CLI::App& app) override {
    AddProjectArgument(app, FProject);
    app.add_flag("--force", FOptions.Force, "Copy also what is the same");
    app.add_flag("--checksum", FOptions.Checksum, "Compare content instead of size and time");
    app.add_flag("--skip-missing", FOptions.SkipMissing,
                 "Skip missing local files that are not required");
    app.add_option("--jobs", FOptions.Jobs, "How many files are copied at a time")
        ->check(CLI::Range(1, 64));
    app.add_flag("--allow-commands", FAllowCommands, "Let the project's commands run");
    AddChangeOptions(app, FChange);
  }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    const TTarget target = ChooseTarget(context, project);
    if (target.AllPlatforms)
      throw TUsageError("deploy needs a single platform, not \"all\"");
    context.Session.RemoteProfiles().Destinations().Prepare(project.Project(), target.Platform);
    const std::size_t told = project.Warnings().size();
    TDeploymentView view(context);
    view.Open(project, target);
    FOptions.DryRun = FChange.DryRun;
    WarnSince(context, project, told);
    const TDeployReport report = Deploy(context, project, target);
    return Report(context, target, report);
  }

private:
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

  int Report(TCommandContext& context, const TTarget& target, const TDeployReport& report) const {
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
      return 128 + report.Signal;
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
    TJson files = TJson::array();
    for (const TDeployRow& row : report.Rows)
      files.push_back({{"localName", row.LocalName},
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
        document[std::string(DeployActionName(action))] = counts[i];
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
