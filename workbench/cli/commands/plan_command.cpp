// deploymgr plan: writes down what a deploy would do, for apply.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/targets/deploy_conduct.h"
#include "workbench/cli/targets/target_options.h"
#include "workbench/cli/targets/targets_run.h"
#include "workbench/cli/view/deploy_json.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/files/file_saver.h"
#include "workbench/services/remote_profile_services.h"

#include <array>
#include <atomic>
#include <filesystem>
#include <optional>
#include <system_error>
#include <utility>
#include <vector>

namespace workbench {
namespace {

class TPlanCommand final : public ICommand {
public:
  std::string Name() const override { return "plan"; }
  std::string Summary() const override { return "Write down what a deploy would do, for apply"; }

  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options
        .Text("--out", FFile,
              "File to write the plan to; for several targets a directory, with NAME.plan for each")
        .ValueName("FILE");
    AddPlanOptions(options, FOptions);
    // How it is to be carried out stands in the plan, too.
    AddRunOptions(options, FOptions, FAllowed);
    AddTargetOptions(options, FTargets);
    options.Footer("Nothing is changed on the target, and no consent is needed. Ends as a deploy "
                   "would: with 8 when rows are refused.");
  }

  int Run(TCommandContext& context) override {
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    const TTarget target = ChooseTarget(context, project);
    if (target.AllPlatforms)
      throw TUsageError("plan needs a single platform, not \"all\"");
    if (FFile.empty() && !context.Output.IsJson())
      throw TUsageError("plan needs a file to write to; name it with --out");
    if (FTargets.AreGiven())
      return PlanForTargets(context, project, target);
    const std::size_t told = project.Warnings().size();
    TDeploymentView view(context);
    view.Open(project, target);
    WarnSince(context, project, told);
    std::atomic<int> cancelled = 0;
    const TInterruptWatch watch(cancelled);
    TDeployReport report;
    const std::optional<TPlanFile> plan = context.Session.RemoteProfiles().Deploys().Plan(
        {.Project = project.Project(),
         .Target = {target.Configuration, target.Platform},
         .Options = FOptions,
         .Cancelled = &cancelled},
        report);
    return Tell(context, plan, report, FFile);
  }

private:
  struct TPlanned {
    TDeployReport Report;
    std::optional<TPlanFile> File;
  };

  int PlanForTargets(TCommandContext& context, TOpenProject& project, const TTarget& target) const {
    std::vector<TProfile> profiles = ChooseTargets(context, project, FTargets, target.Platform);
    for (TProfile& profile : profiles)
      profile.Compress = profile.Compress || FOptions.Compress;
    const std::vector<std::filesystem::path> files = FilesFor(profiles);
    const TDeploySubject subject = ReadSubject(context, project, target);
    TTargetsRun run(context, std::move(profiles), FTargets.Hosts);
    std::vector<TPlanned> plans(run.Profiles().size());
    const auto plan = [&](std::size_t i) {
      plans[i].File = context.Session.RemoteProfiles().Deploys().Plan(
          subject, run.Profiles()[i], {.Options = FOptions, .Cancelled = &run.Cancelled()},
          plans[i].Report);
      CheckNotInterrupted(run.Cancelled());
    };
    const auto tell = [&](std::size_t i, TCommandContext& part) {
      const TPlanned planned = std::exchange(plans[i], {});
      return Tell(part, planned.File, planned.Report, files[i]);
    };
    return run.Run({plan, tell});
  }

  // Where each plan goes; empty paths where none is kept. One target that was named alone has a
  // file, as without targets.
  std::vector<std::filesystem::path> FilesFor(const std::vector<TProfile>& profiles) const {
    std::vector<std::filesystem::path> files(profiles.size());
    std::error_code error;
    const bool isDirectory = std::filesystem::is_directory(FFile, error);
    if (FFile.empty())
      return files;
    if (profiles.size() == 1 && !FTargets.HasGroup() && !isDirectory && !FFile.ends_with('/'))
      return {FFile};
    for (std::size_t i = 0; i < profiles.size(); ++i) {
      if (profiles[i].Name.find('/') != std::string::npos)
        throw TUsageError("the name of the profile \"" + profiles[i].Name +
                          "\" cannot be that of a file, as a plan for it would have");
      files[i] = std::filesystem::path(FFile) / (profiles[i].Name + ".plan");
    }
    std::filesystem::create_directories(FFile, error);
    if (!std::filesystem::is_directory(FFile))
      throw TUsageError("several plans need a directory, and \"" + FFile + "\" is none" +
                        (error ? ": " + error.message() : std::string()));
    return files;
  }

  int Tell(TCommandContext& context, const std::optional<TPlanFile>& plan,
           const TDeployReport& report, const std::filesystem::path& file) const {
    CheckWasBegun(report);
    if (!plan)
      throw TWorkError("there is nothing to plan: the project has no deployment");
    return Report(context, *plan, report, file);
  }

  int Report(TCommandContext& context, const TPlanFile& plan, const TDeployReport& report,
             const std::filesystem::path& file) const {
    for (const std::string& warning : report.Warnings)
      context.Output.Warn({warning, FProject, 0});
    PrintPlan(context, report, {.File = FProject, .IsDry = true, .Allowed = FAllowed});
    const TJson document = PlanJson(plan);
    if (!file.empty())
      Save(document, file);
    if (context.Output.IsJson())
      context.Output.Document(document);
    context.Output.Line("would be: " + TDeployCounts(report).Text());
    return StatusOf(report, /*isCheck=*/false);
  }

  static void Save(const TJson& document, const std::filesystem::path& file) {
    TJson whole{{"schema", JsonSchema}};
    whole.AddAll(document);
    whole.Add("warnings", TJson::Array());
    if (!IsStorableJson(whole))
      throw TWorkError("a plan holds no names that are not UTF-8");
    const std::string text = JsonText(whole) + "\n";
    const std::array<std::string_view, 1> content{text};
    SaveFile({.Target = file, .Content = content, .Force = true, .WithBackup = false});
  }

  std::string FProject;
  std::string FFile;
  TDeployOptions FOptions;
  TTargetOptions FTargets;
  TAllowed FAllowed;
};

} // namespace

std::unique_ptr<ICommand> MakePlanCommand() {
  return std::make_unique<TPlanCommand>();
}

} // namespace workbench
