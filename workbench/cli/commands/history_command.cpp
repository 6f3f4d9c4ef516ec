// deploymgr history: the deploys that a target remembers.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/targets/target_options.h"
#include "workbench/cli/targets/targets_run.h"
#include "workbench/cli/view/deploy_json.h"
#include "workbench/services/remote_profile_services.h"

#include <utility>
#include <vector>

namespace workbench {
namespace {

class THistoryCommand final : public ICommand {
public:
  std::string Name() const override { return "history"; }
  std::string Summary() const override { return "List the deploys that the target remembers"; }

  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    AddTargetOptions(options, FTargets);
  }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    const TTarget target = ChooseTarget(context, project);
    if (target.AllPlatforms)
      throw TUsageError("history needs a single platform, not \"all\"");
    if (FTargets.AreGiven())
      return RunForTargets(context, project, target);
    return Tell(context, Read(context, project, target));
  }

private:
  int RunForTargets(TCommandContext& context, TOpenProject& project, const TTarget& target) const {
    std::vector<TProfile> profiles = ChooseTargets(context, project, FTargets, target.Platform);
    const TDeployService& deploys = context.Session.RemoteProfiles().Deploys();
    const TDeploySubject subject =
        deploys.SubjectOf(project.Project(), {target.Configuration, target.Platform});
    TTargetsRun run(context, std::move(profiles), FTargets.Hosts);
    std::vector<TRecordReading> readings(run.Profiles().size());
    const auto read = [&](std::size_t i) {
      readings[i] = deploys.ReadRecord(subject, run.Profiles()[i], &run.Cancelled());
      CheckNotInterrupted(run.Cancelled());
    };
    const auto tell = [&](std::size_t i, TCommandContext& part) {
      const TRecordReading reading = std::exchange(readings[i], {});
      const int status = Tell(part, reading);
      const std::size_t count = reading.Record.Runs.size();
      part.Output.Line(std::to_string(count) + (count == 1 ? " run" : " runs"));
      return status;
    };
    return run.Run({read, tell});
  }

  int Tell(TCommandContext& context, const TRecordReading& reading) const {
    if (reading.State == TRecordState::Newer)
      throw TExitError(exit_status::Unexpected,
                       "the record on the target is of a newer version of this program");
    if (reading.State == TRecordState::Damaged)
      context.Output.Warn({"the record on the target is damaged: " + reading.Problem, FProject, 0});
    TJson runs = TJson::Array();
    for (const TRecordedRun& run : reading.Record.Runs) {
      runs.Append(RunJson(run));
      context.Output.Line(LineOf(run));
    }
    if (context.Output.IsJson())
      context.Output.Document({{"runs", std::move(runs)}});
    return exit_status::Done;
  }

  static TRecordReading Read(TCommandContext& context, TOpenProject& project,
                             const TTarget& target) {
    try {
      return context.Session.RemoteProfiles().Deploys().ReadRecord(
          project.Project(), {target.Configuration, target.Platform}, nullptr);
    } catch (const TConnectionError& error) {
      throw TExitError(exit_status::NoConnection, error.what());
    }
  }

  static std::string LineOf(const TRecordedRun& run) {
    std::string line = Visible(run.Id) + "  " + Visible(run.At) + "  " + Visible(run.By) + " on " +
                       Visible(run.Machine) + "  " + std::string(RunResultName(run.Result)) + "  " +
                       std::to_string(run.Copied) + " copied, " + std::to_string(run.Removed) +
                       " removed, " + std::to_string(run.Failed) + " failed";
    return run.Revision.empty() ? line : line + "  " + Visible(run.Revision);
  }

  std::string FProject;
  TTargetOptions FTargets;
};

} // namespace

std::unique_ptr<ICommand> MakeHistoryCommand() {
  return std::make_unique<THistoryCommand>();
}

} // namespace workbench
