#include "workbench/cli/targets/deploy_targets.h"

#include "workbench/cli/targets/deploy_conduct.h"
#include "workbench/cli/targets/targets_run.h"
#include "workbench/cli/view/deploy_json.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/cli/view/known_states.h"
#include "workbench/deploy/plan/outside_sources.h"
#include "workbench/deploy/shared_work.h"
#include "workbench/services/remote_profile_services.h"

#include <utility>

namespace workbench {
namespace {

// What is asked for consent, by target.
std::vector<TPlaceCommands> CommandsAt(const std::filesystem::path& project,
                                       const TDestinations& destinations,
                                       const TDeploySubject& subject,
                                       const std::vector<TProfile>& profiles) {
  std::vector<TPlaceCommands> places;
  places.reserve(profiles.size());
  for (const TProfile& profile : profiles) {
    const TDestination destination{.Profile = profile};
    const TPlaceRules rules = destinations.RulesOf(destination, profile.Platform);
    places.push_back(
        {project, destination.Text(), CommandsOf(subject.Files, rules, profile.AfterDeploy)});
  }
  return places;
}

} // namespace

int DeployToTargets(TCommandContext& context, TOpenProject& project, const TTarget& target,
                    const TTargetsDeploy& wanted) {
  const deployment::TDeploymentTarget place{target.Configuration, target.Platform};
  const TRemoteProfileServices& services = context.Session.RemoteProfiles();
  std::vector<TProfile> profiles = ChooseTargets(context, project, wanted.Targets, target.Platform);
  for (TProfile& profile : profiles)
    profile.Compress = profile.Compress || wanted.Options.Compress;
  const TDeploySubject subject = ReadSubject(context, project, target);
  const std::vector<TPlaceCommands> commands =
      CommandsAt(project.GivenFileName(), services.Destinations(), subject, profiles);
  const bool mayRun =
      wanted.Options.DryRun || MayRunAtAll(context, commands, wanted.Allowed.Commands);
  const TMaySend maySend = wanted.Options.DryRun || !mayRun
                               ? nullptr
                               : SourceConsentOfAll(context, project.GivenFileName(),
                                                    OutsideOf(subject.Files, subject.SourceRoots),
                                                    wanted.Allowed.Outside);
  TTargetsRun run(context, std::move(profiles), wanted.Targets.Hosts);
  const std::string file = project.GivenFileName().string();
  if (!mayRun)
    return run.Run({.Do = nullptr, .Tell = [&](std::size_t, TCommandContext&) {
                      return RefuseCommands(commands);
                    }});
  TSharedWork shared;
  std::vector<TDeployReport> reports(run.Profiles().size());
  const auto deploy = [&](std::size_t i) {
    reports[i] = services.Deploys().Deploy(subject, run.Profiles()[i],
                                           {.Options = wanted.Options,
                                            .MayRun = [](const auto&, const auto&) { return true; },
                                            .MaySend = maySend,
                                            .Cancelled = &run.Cancelled(),
                                            .Shared = &shared},
                                           run.ObserverOf(i));
  };
  const auto tell = [&](std::size_t i, TCommandContext& part) {
    const TDeployReport report = std::exchange(reports[i], {});
    if (report.WasCarriedOut && TDeployCounts(report).ChangedFiles() > 0)
      KeepKnownStates({project.GivenFileName(), target.Platform, target.Configuration,
                       TDestination{.Profile = run.Profiles()[i]}.Text()},
                      report);
    return ReportDeploy(part, place, report,
                        {.File = file,
                         .IsDry = wanted.Options.DryRun,
                         .IsCheck = wanted.IsCheck,
                         .Allowed = wanted.Allowed});
  };
  return run.Run({deploy, tell});
}

} // namespace workbench
