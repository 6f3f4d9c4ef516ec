// deploymgr apply: does what a plan says, and nothing else.
#include "package/common/errors.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/targets/deploy_conduct.h"
#include "workbench/cli/targets/target_options.h"
#include "workbench/cli/targets/targets_run.h"
#include "workbench/cli/view/deploy_progress.h"
#include "workbench/deploy/shared_work.h"
#include "workbench/files/file_reader.h"
#include "workbench/services/remote_profile_services.h"

#include <atomic>
#include <exception>
#include <filesystem>
#include <map>
#include <utility>
#include <vector>

namespace workbench {
namespace {

constexpr std::uint64_t LargestPlan = std::uint64_t(256) * 1024 * 1024;

// One plan of several, or why it is none.
struct TGivenPlan {
  TPlanFile File;
  std::exception_ptr Problem;
};

// The same place twice would meet at its lock.
void CheckPlaces(const std::vector<std::string>& files, const std::vector<TGivenPlan>& plans) {
  std::map<std::pair<std::string, std::string>, std::string> places;
  for (std::size_t i = 0; i < plans.size(); ++i) {
    const TBinding& bound = plans[i].File.Bound;
    if (plans[i].Problem)
      continue;
    const auto [entry, isNew] = places.emplace(std::pair(bound.Machine, bound.Place), files[i]);
    if (!isNew)
      throw TUsageError("the plans " + entry->second + " and " + files[i] +
                        " are for the same place, " + bound.Place);
  }
}

class TApplyCommand final : public ICommand {
public:
  std::string Name() const override { return "apply"; }
  std::string Summary() const override { return "Do exactly what a plan says"; }

  void AddOptions(IOptions& options) override {
    options.Texts("FILE", FFiles, "Plans, as \"plan\" wrote them").Required();
    AddRunOptions(options, FOptions, FAllowed);
    options.Flag("--dry-run", FOptions.DryRun, "Say what would be done, change nothing");
    options
        .Number("--hosts", FHosts, 1, MostHosts,
                "How many plans at a time, where there are several")
        .ShowDefault();
    options.Footer("Ends with 8, and copies nothing, when a local file, a file on the target, the "
                   "place, its host key or the plan itself is not what it was; every cause is "
                   "named.");
  }

  int Run(TCommandContext& context) override {
    TakeDeploySettings(context.Session.Settings(), FOptions);
    return FFiles.size() > 1 ? ApplyAll(context) : ApplyOne(context, FFiles.front());
  }

private:
  int ApplyOne(TCommandContext& context, const std::string& file) const {
    const TPlanFile plan = ReadPlan(file);
    std::atomic<int> cancelled = 0;
    const TInterruptWatch watch(cancelled);
    TDeployProgress progress(context.Output);
    const TDeployReport report = context.Session.RemoteProfiles().Deploys().Apply(
        plan,
        {.Options = OptionsOf(plan),
         .MayRun = ConsentOf(context, plan.ProjectFile, FAllowed.Commands),
         .MaySend = SourceConsentOf(context, plan.ProjectFile, FAllowed.Outside),
         .Cancelled = &cancelled},
        progress);
    progress.Finish();
    return Tell(context, plan, report, file);
  }

  int ApplyAll(TCommandContext& context) const {
    std::vector<TGivenPlan> plans;
    plans.reserve(FFiles.size());
    for (const std::string& file : FFiles) {
      try {
        plans.push_back({ReadPlan(file), nullptr});
      } catch (const std::exception&) {
        plans.push_back({{}, std::current_exception()});
      }
    }
    CheckPlaces(FFiles, plans);
    const TRemoteProfileServices& services = context.Session.RemoteProfiles();
    std::vector<TPlaceCommands> commands;
    std::vector<TProfile> profiles;
    profiles.reserve(plans.size());
    for (std::size_t i = 0; i < plans.size(); ++i)
      profiles.push_back(ProfileOf(services.Destinations(), FFiles[i], plans[i], commands));
    const bool mayRun = FOptions.DryRun || MayRunAtAll(context, commands, FAllowed.Commands);
    TTargetsRun run(context, std::move(profiles), FHosts);
    if (!mayRun)
      return run.Run({.Do = nullptr, .Tell = [&](std::size_t, TCommandContext&) {
                        return RefuseCommands(commands);
                      }});
    const std::map<std::filesystem::path, TMaySend> maySend = SourceConsents(context, plans);
    TSharedWork shared;
    std::vector<TDeployReport> reports(plans.size());
    const auto apply = [&](std::size_t i) {
      if (plans[i].Problem)
        std::rethrow_exception(plans[i].Problem);
      reports[i] =
          services.Deploys().Apply(plans[i].File,
                                   {.Options = OptionsOf(plans[i].File),
                                    .MayRun = [](const auto&, const auto&) { return true; },
                                    .MaySend = maySend.at(plans[i].File.ProjectFile),
                                    .Cancelled = &run.Cancelled(),
                                    .Shared = &shared},
                                   run.ObserverOf(i));
    };
    const auto tell = [&](std::size_t i, TCommandContext& part) {
      return Tell(part, plans[i].File, std::exchange(reports[i], {}), FFiles[i]);
    };
    return run.Run({apply, tell});
  }

  // By project, whose files are asked about once.
  std::map<std::filesystem::path, TMaySend>
  SourceConsents(TCommandContext& context, const std::vector<TGivenPlan>& plans) const {
    std::map<std::filesystem::path, std::vector<std::string>> files;
    for (const TGivenPlan& plan : plans) {
      std::vector<std::string>& all = files[plan.File.ProjectFile];
      const std::vector<std::string>& outside = plan.File.Plan.Outside;
      all.insert(all.end(), outside.begin(), outside.end());
    }
    std::map<std::filesystem::path, TMaySend> consents;
    for (const auto& [project, outside] : files)
      consents.emplace(project, FOptions.DryRun ? nullptr
                                                : SourceConsentOfAll(context, project, outside,
                                                                     FAllowed.Outside));
    return consents;
  }

  // What the plan leads to, for what is asked and shown; one that leads nowhere has its file's
  // name.
  TProfile ProfileOf(const TDestinations& destinations, const std::string& file,
                     const TGivenPlan& plan, std::vector<TPlaceCommands>& commands) const {
    const TBinding& bound = plan.File.Bound;
    TProfile unknown{.Name = bound.Profile.empty() ? std::filesystem::path(file).stem().string()
                                                   : bound.Profile};
    if (plan.Problem)
      return unknown;
    auto destination = destinations.Find(bound, plan.File.Target.Platform);
    if (!destination)
      return unknown;
    if (!plan.File.Plan.Commands.empty())
      commands.push_back({plan.File.ProjectFile, destination->Text(), plan.File.Plan.Commands});
    if (!destination->Profile)
      return unknown;
    destination->Profile->Compress =
        destination->Profile->Compress || FOptions.Compress || plan.File.Compress;
    return *destination->Profile;
  }

  // What the plan says, and what the command line adds.
  TDeployOptions OptionsOf(const TPlanFile& plan) const {
    TDeployOptions options = FOptions;
    options.BreakLock = options.BreakLock || plan.BreakLock;
    options.Compress = options.Compress || plan.Compress;
    options.NoUndo = options.NoUndo || plan.NoUndo;
    options.Jobs = options.Jobs > 0 ? options.Jobs : plan.Jobs;
    return options;
  }

  int Tell(TCommandContext& context, const TPlanFile& plan, const TDeployReport& report,
           const std::string& file) const {
    return ReportDeploy(context, plan.Target, report,
                        {.File = file, .IsDry = FOptions.DryRun, .Allowed = FAllowed});
  }

  static TPlanFile ReadPlan(const std::string& file) {
    const TFileContent content = ReadWholeFile(file, LargestPlan, "plan");
    try {
      TPlanReading reading = ParsePlan(content.Text());
      if (!reading.IsWhole)
        throw TExitError(exit_status::Unexpected,
                         "nothing was copied: the plan is not what it was when it was written: " +
                             file);
      return std::move(reading.File);
    } catch (const deployment::TInputError& error) {
      throw deployment::TInputError(error.what(), {file, error.Place().Line});
    }
  }

  std::vector<std::string> FFiles;
  unsigned FHosts = TTargetOptions().Hosts;
  TDeployOptions FOptions;
  TAllowed FAllowed;
};

} // namespace

std::unique_ptr<ICommand> MakeApplyCommand() {
  return std::make_unique<TApplyCommand>();
}

} // namespace workbench
