// deploymgr undo: takes back what the last deploy did.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/targets/target_options.h"
#include "workbench/cli/targets/targets_run.h"
#include "workbench/cli/view/deploy_json.h"
#include "workbench/services/remote_profile_services.h"

#include <array>
#include <atomic>
#include <utility>
#include <vector>

namespace workbench {
namespace {

class TUndoCommand final : public ICommand {
public:
  std::string Name() const override { return "undo"; }
  std::string Summary() const override { return "Take back what the last deploy did"; }

  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Text("--to", FRequest.To, "Go back to what this run left, as history names it")
        .ValueName("RUN");
    options.Flag("--break-lock", FRequest.BreakLock, "Go on though somebody else deploys there");
    options.Flag("--dry-run", FRequest.DryRun, "Say what would be taken back, change nothing");
    options.Flag("--yes", FYes, "Confirm without being asked");
    AddTargetOptions(options, FTargets);
    options.Footer("What was replaced or removed comes back with its content, rights and time; "
                   "what was new goes. A file that others changed since is left alone, and the "
                   "exit status is 8 then.");
  }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    const TTarget target = ChooseTarget(context, project);
    if (target.AllPlatforms)
      throw TUsageError("undo needs a single platform, not \"all\"");
    if (FTargets.AreGiven())
      return UndoTargets(context, project, target);
    std::atomic<int> cancelled = 0;
    const TInterruptWatch watch(cancelled);
    FRequest.Cancelled = &cancelled;
    FRequest.MayUndo = [&](const TUndoReport& planned) { return MayUndo(context, planned); };
    const TUndoReport report = context.Session.RemoteProfiles().Deploys().Undo(
        project.Project(), {target.Configuration, target.Platform}, FRequest);
    return Tell(context, target, report);
  }

private:
  int UndoTargets(TCommandContext& context, TOpenProject& project, const TTarget& target) const {
    std::vector<TProfile> profiles = ChooseTargets(context, project, FTargets, target.Platform);
    const TDeployService& deploys = context.Session.RemoteProfiles().Deploys();
    const TDeploySubject subject =
        deploys.SubjectOf(project.Project(), {target.Configuration, target.Platform});
    const bool mayUndo = FYes || FRequest.DryRun || MayUndoAll(context, profiles);
    TTargetsRun run(context, std::move(profiles), FTargets.Hosts);
    std::vector<TUndoReport> reports(run.Profiles().size());
    const auto undo = [&](std::size_t i) {
      TUndoRequest request = FRequest;
      request.Cancelled = &run.Cancelled();
      request.MayUndo = [&](const TUndoReport& planned) { return mayUndo || planned.Runs.empty(); };
      reports[i] = deploys.Undo(subject, run.Profiles()[i], request);
    };
    const auto tell = [&](std::size_t i, TCommandContext& part) {
      return Tell(part, target, std::exchange(reports[i], {}));
    };
    return run.Run({undo, tell});
  }

  // One question for all of them, before the first is looked at.
  bool MayUndoAll(TCommandContext& context, const std::vector<TProfile>& profiles) const {
    std::string names;
    for (const TProfile& profile : profiles)
      names.append(names.empty() ? "" : ", ").append(profile.Name);
    const std::string what = FRequest.To.empty() ? std::string("Take back the last deploy")
                                                 : "Take back the deploys behind " + FRequest.To;
    return context.Output.CanAsk() &&
           context.Output.Ask(what + " on " + names + "?", /*several=*/false) == TAnswer::Yes;
  }

  int Tell(TCommandContext& context, const TTarget& target, const TUndoReport& report) const {
    Check(report);
    for (const std::string& warning : report.Warnings)
      context.Output.Warn({warning, FProject, 0});
    Print(context, target, report);
    return StatusOfUndo(report);
  }

  bool MayUndo(TCommandContext& context, const TUndoReport& planned) const {
    if (FYes || planned.Runs.empty())
      return true;
    std::string runs;
    for (const TRecordedRun& run : planned.Runs)
      runs.append(runs.empty() ? "" : ", ")
          .append(Visible(run.Id))
          .append(" of ")
          .append(Visible(run.By));
    return context.Output.CanAsk() &&
           context.Output.Ask("Take back " + runs + " (" + std::to_string(planned.Rows.size()) +
                                  " files)?",
                              /*several=*/false) == TAnswer::Yes;
  }

  static void Check(const TUndoReport& report) {
    const std::string start = "nothing was taken back: ";
    if (report.End == TDeployEnd::NoConnection)
      throw TExitError(exit_status::NoConnection, report.Message);
    if (report.End == TDeployEnd::NoConsent)
      throw TWorkError(start + "it was not confirmed; --yes does");
    if (!report.Problems.empty())
      throw TExitError(report.End == TDeployEnd::Unexpected ? exit_status::Unexpected
                                                            : exit_status::WorkFailed,
                       start + report.Problems.front());
  }

  static int StatusOfUndo(const TUndoReport& report) {
    if (report.End == TDeployEnd::Interrupted)
      return 128 + report.Signal;
    if (report.End == TDeployEnd::Unexpected)
      return exit_status::Unexpected;
    return report.End == TDeployEnd::Failed ? exit_status::WorkFailed : exit_status::Done;
  }

  void Print(TCommandContext& context, const TTarget& target, const TUndoReport& report) const {
    std::array<std::size_t, UndoActionCount> counts{};
    TJson files = TJson::Array();
    for (const TUndoRow& row : report.Rows) {
      ++counts[static_cast<std::size_t>(row.Action)];
      files.Append({{"localName", row.LocalName},
                    {"remoteFile", row.RemoteFile},
                    {"action", UndoActionName(row.Action)},
                    {"reason", row.Reason}});
      const bool isBad = row.Action == TUndoAction::Refused || row.Action == TUndoAction::Failed;
      if (isBad && !context.Output.IsJson())
        context.Output.Complain(Visible(row.RemoteFile) + ": " + Visible(row.Reason));
      else
        context.Output.Line((FRequest.DryRun ? "would be " : "") +
                            std::string(UndoActionName(row.Action)) + " " +
                            Visible(row.RemoteFile));
    }
    TJson runs = TJson::Array();
    std::string text;
    for (const TRecordedRun& run : report.Runs) {
      runs.Append(run.Id);
      text.append(text.empty() ? "" : ", ").append(Visible(run.Id));
    }
    TJson document{{"platform", target.Platform},
                   {"configuration", target.Configuration},
                   {"dryRun", FRequest.DryRun},
                   {"runs", std::move(runs)},
                   {"result", report.End == TDeployEnd::Done ? "undone" : "partly"},
                   {"files", std::move(files)}};
    std::string summary;
    for (std::size_t i = 0; i < counts.size(); ++i) {
      const std::string name(UndoActionName(static_cast<TUndoAction>(i)));
      document.Add(name, counts[i]);
      if (counts[i] > 0)
        summary.append(summary.empty() ? "" : ", ").append(std::to_string(counts[i]) + " " + name);
    }
    if (context.Output.IsJson())
      context.Output.Document(document);
    context.Output.Line(report.Runs.empty()
                            ? std::string("nothing to take back")
                            : (FRequest.DryRun ? "would be taken back: " : "taken back: ") + text +
                                  (summary.empty() ? "" : ": " + summary));
  }

  std::string FProject;
  TUndoRequest FRequest;
  TTargetOptions FTargets;
  bool FYes = false;
};

} // namespace

std::unique_ptr<ICommand> MakeUndoCommand() {
  return std::make_unique<TUndoCommand>();
}

} // namespace workbench
