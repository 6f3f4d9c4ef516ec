// deploymgr verify: is the target exactly what the list and its record say?
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/targets/target_options.h"
#include "workbench/cli/targets/targets_run.h"
#include "workbench/cli/view/deploy_json.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/services/remote_profile_services.h"

#include <utility>
#include <vector>

namespace workbench {
namespace {

// A file that is to stay as it is on the target is what the list says.
bool IsAsItShould(const TDeployRow& row) {
  return row.Action == TDeployAction::Kept || row.Action == TDeployAction::Skipped ||
         (row.Action == TDeployAction::Unchanged && (!row.State || row.State == TFileState::Same));
}

class TVerifyCommand final : public ICommand {
public:
  std::string Name() const override { return "verify"; }
  std::string Summary() const override {
    return "Compare every file on the target with the list, by content";
  }

  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    AddTargetOptions(options, FTargets);
    options.Footer("Ends with 0 when the target is exactly what the list and its record say, else "
                   "with 8.");
  }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    const TTarget target = ChooseTarget(context, project);
    if (target.AllPlatforms)
      throw TUsageError("verify needs a single platform, not \"all\"");
    if (FTargets.AreGiven())
      return VerifyTargets(context, project, target);
    const std::size_t told = project.Warnings().size();
    TDeploymentView view(context);
    view.Open(project, target);
    WarnSince(context, project, told);
    TSilentObserver nobody;
    return Tell(context, context.Session.RemoteProfiles().Deploys().Deploy(
                             {.Project = project.Project(),
                              .Target = {target.Configuration, target.Platform},
                              .Options = Comparing()},
                             nobody));
  }

private:
  static TDeployOptions Comparing() { return {.DryRun = true, .Checksum = true}; }

  int VerifyTargets(TCommandContext& context, TOpenProject& project, const TTarget& target) const {
    std::vector<TProfile> profiles = ChooseTargets(context, project, FTargets, target.Platform);
    const TDeploySubject subject = ReadSubject(context, project, target);
    TTargetsRun run(context, std::move(profiles), FTargets.Hosts);
    std::vector<TDeployReport> reports(run.Profiles().size());
    const auto verify = [&](std::size_t i) {
      reports[i] = context.Session.RemoteProfiles().Deploys().Deploy(
          subject, run.Profiles()[i], {.Options = Comparing(), .Cancelled = &run.Cancelled()},
          run.ObserverOf(i));
      CheckNotInterrupted(run.Cancelled());
    };
    const auto tell = [&](std::size_t i, TCommandContext& part) {
      return Tell(part, std::exchange(reports[i], {}));
    };
    return run.Run({verify, tell});
  }

  int Tell(TCommandContext& context, const TDeployReport& report) const {
    for (const std::string& warning : report.Warnings)
      context.Output.Warn({warning, FProject, 0});
    if (report.End == TDeployEnd::NoConnection)
      throw TExitError(exit_status::NoConnection, report.Message);
    if (!report.Problems.empty())
      throw TExitError(report.End == TDeployEnd::Unexpected ? exit_status::Unexpected
                                                            : exit_status::WorkFailed,
                       report.Problems.front());
    return Report(context, report);
  }

  static int Report(TCommandContext& context, const TDeployReport& report) {
    TJson rows = TJson::Array();
    std::size_t wrong = 0;
    const auto add = [&](const std::string& remoteFile, const std::string& localName,
                         const std::string& state) {
      rows.Append({{"remoteFile", remoteFile}, {"localName", localName}, {"state", state}});
      context.Output.Line(state + " " + Visible(remoteFile));
    };
    for (const TDeployRow& row : report.Rows) {
      if (IsAsItShould(row))
        continue;
      ++wrong;
      // Content that is the same under other rights is named by them.
      const bool isMode = row.Action == TDeployAction::Mode;
      add(row.RemoteFile, row.LocalName,
          isMode || !row.State ? std::string(DeployActionName(row.Action))
                               : std::string(FileStateName(*row.State)));
    }
    for (const TLeftOver& leftOver : report.LeftOvers)
      add(leftOver.RemoteFile(), leftOver.LocalName, std::string(FileStateName(leftOver.State)));
    if (context.Output.IsJson())
      context.Output.Document({{"rows", std::move(rows)}});
    context.Output.Line(std::to_string(report.Rows.size() - wrong) + " of " +
                        std::to_string(report.Rows.size()) + " files are what they should be");
    return wrong > 0 ? exit_status::Unexpected : exit_status::Done;
  }

  std::string FProject;
  TTargetOptions FTargets;
};

} // namespace

std::unique_ptr<ICommand> MakeVerifyCommand() {
  return std::make_unique<TVerifyCommand>();
}

} // namespace workbench
