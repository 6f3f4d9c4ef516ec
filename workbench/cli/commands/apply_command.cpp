// deploymgr apply: does what a plan says, and nothing else.
#include "package/common/errors.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/commands/deploy_conduct.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/view/deploy_progress.h"
#include "workbench/files/file_reader.h"
#include "workbench/services/remote_profile_services.h"

#include <atomic>

namespace workbench {
namespace {

constexpr std::uint64_t LargestPlan = std::uint64_t(256) * 1024 * 1024;

class TApplyCommand final : public ICommand {
public:
  std::string Name() const override { return "apply"; }
  std::string Summary() const override { return "Do exactly what a plan says"; }

  void AddOptions(IOptions& options) override {
    options.Text("FILE", FFile, "Plan, as \"plan\" wrote it").Required();
    AddRunOptions(options, FOptions, FAllowed);
    options.Flag("--dry-run", FOptions.DryRun, "Say what would be done, change nothing");
    options.Footer("Ends with 8, and copies nothing, when a local file, a file on the target, the "
                   "place, its host key or the plan itself is not what it was; every cause is "
                   "named.");
  }

  int Run(TCommandContext& context) override {
    const TPlanFile plan = ReadPlan();
    TakeDeploySettings(context.Session.Settings(), FOptions);
    FOptions.BreakLock = FOptions.BreakLock || plan.BreakLock;
    FOptions.Compress = FOptions.Compress || plan.Compress;
    FOptions.NoUndo = FOptions.NoUndo || plan.NoUndo;
    FOptions.Jobs = FOptions.Jobs > 0 ? FOptions.Jobs : plan.Jobs;
    std::atomic<int> cancelled = 0;
    const TInterruptWatch watch(cancelled);
    TDeployProgress progress(context.Output);
    const TDeployReport report = context.Session.RemoteProfiles().Deploys().Apply(
        plan,
        {.Options = FOptions,
         .MayRun = ConsentOf(context, plan.ProjectFile, FAllowed.Commands),
         .MaySend = SourceConsentOf(context, plan.ProjectFile, FAllowed.Outside),
         .Cancelled = &cancelled},
        progress);
    progress.Finish();
    return ReportDeploy(context, plan.Target, report,
                        {.File = FFile, .IsDry = FOptions.DryRun, .Allowed = FAllowed});
  }

private:
  TPlanFile ReadPlan() const {
    const TFileContent content = ReadWholeFile(FFile, LargestPlan, "plan");
    try {
      TPlanReading reading = ParsePlan(content.Text());
      if (!reading.IsWhole)
        throw TExitError(exit_status::Unexpected,
                         "nothing was copied: the plan is not what it was when it was written: " +
                             FFile);
      return std::move(reading.File);
    } catch (const deployment::TInputError& error) {
      throw deployment::TInputError(error.what(), {FFile, error.Place().Line});
    }
  }

  std::string FFile;
  TDeployOptions FOptions;
  TAllowed FAllowed;
};

} // namespace

std::unique_ptr<ICommand> MakeApplyCommand() {
  return std::make_unique<TApplyCommand>();
}

} // namespace workbench
