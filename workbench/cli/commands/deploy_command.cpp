// deploymgr deploy: brings the files of a target to where they belong.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/context/solution_run.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/targets/deploy_conduct.h"
#include "workbench/cli/targets/deploy_targets.h"
#include "workbench/cli/view/deploy_json.h"
#include "workbench/cli/view/deploy_progress.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/cli/view/known_states.h"
#include "workbench/services/remote_profile_services.h"

#include <atomic>

namespace workbench {
namespace {

class TDeployCommand final : public ICommand {
public:
  std::string Name() const override { return "deploy"; }
  std::string Summary() const override { return "Copy what differs to the target"; }

  void AddOptions(IOptions& options) override {
    AddProjectsArgument(options, FProject);
    AddPlanOptions(options, FOptions);
    options.Flag("--check", FCheck,
                 "Change nothing; end with 7 when something would change, with 8 when others "
                 "changed the target");
    AddRunOptions(options, FOptions, FAllowed);
    AddTargetOptions(options, FTargets);
    AddChangeOptions(options, FChange);
  }

  int Run(TCommandContext& context) override {
    FOptions.DryRun = FChange.DryRun || FCheck;
    TakeDeploySettings(context.Session.Settings(), FOptions);
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
    if (FTargets.AreGiven())
      return DeployToTargets(
          context, project, target,
          {.Targets = FTargets, .Options = FOptions, .Allowed = FAllowed, .IsCheck = FCheck});
    if (!FOptions.Compress)
      context.Session.RemoteProfiles().Destinations().Prepare(project.Project(), target.Platform);
    const std::size_t told = project.Warnings().size();
    TDeploymentView view(context);
    view.Open(project, target);
    WarnSince(context, project, told);
    const deployment::TDeploymentTarget place{target.Configuration, target.Platform};
    const TDeployReport report = Deploy(context, project, place);
    const TDeployCounts counts(report);
    if (report.WasCarriedOut && counts.ChangedFiles() > 0)
      KeepKnownStates(
          {project.GivenFileName(), target.Platform, target.Configuration,
           context.Session.RemoteProfiles().Destinations().Find(project.Project(), place).Text()},
          report);
    return ReportDeploy(context, place, report,
                        {.File = project.GivenFileName().string(),
                         .IsDry = FOptions.DryRun,
                         .IsCheck = FCheck,
                         .Allowed = FAllowed});
  }

  TDeployReport Deploy(TCommandContext& context, TOpenProject& project,
                       const deployment::TDeploymentTarget& target) const {
    std::atomic<int> cancelled = 0;
    const TInterruptWatch watch(cancelled);
    TDeployProgress progress(context.Output);
    const TDeployRequest request{
        .Project = project.Project(),
        .Target = target,
        .Options = FOptions,
        .MayRun = ConsentOf(context, project.GivenFileName(), FAllowed.Commands),
        .MaySend = SourceConsentOf(context, project.GivenFileName(), FAllowed.Outside),
        .Cancelled = &cancelled};
    TDeployReport report = context.Session.RemoteProfiles().Deploys().Deploy(request, progress);
    progress.Finish();
    return report;
  }

  std::string FProject;
  TDeployOptions FOptions;
  TTargetOptions FTargets;
  TAllowed FAllowed;
  bool FCheck = false;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeDeployCommand() {
  return std::make_unique<TDeployCommand>();
}

} // namespace workbench
