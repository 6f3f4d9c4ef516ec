// deploymgr plan: writes down what a deploy would do, for apply.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/commands/deploy_conduct.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/view/deploy_json.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/files/file_saver.h"
#include "workbench/services/remote_profile_services.h"

#include <array>
#include <atomic>

namespace workbench {
namespace {

class TPlanCommand final : public ICommand {
public:
  std::string Name() const override { return "plan"; }
  std::string Summary() const override { return "Write down what a deploy would do, for apply"; }

  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Text("--out", FFile, "File to write the plan to").ValueName("FILE");
    AddPlanOptions(options, FOptions);
    // How it is to be carried out stands in the plan, too.
    AddRunOptions(options, FOptions, FAllowed);
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
    CheckWasBegun(report);
    if (!plan)
      throw TWorkError("there is nothing to plan: the project has no deployment");
    return Report(context, *plan, report);
  }

private:
  int Report(TCommandContext& context, const TPlanFile& plan, const TDeployReport& report) const {
    for (const std::string& warning : report.Warnings)
      context.Output.Warn({warning, FProject, 0});
    PrintPlan(context, report, {.File = FProject, .IsDry = true, .Allowed = FAllowed});
    const TJson document = PlanJson(plan);
    if (!FFile.empty())
      Save(document);
    if (context.Output.IsJson())
      context.Output.Document(document);
    context.Output.Line("would be: " + TDeployCounts(report).Text());
    return StatusOf(report, /*isCheck=*/false);
  }

  void Save(const TJson& document) const {
    TJson whole{{"schema", JsonSchema}};
    whole.AddAll(document);
    whole.Add("warnings", TJson::Array());
    if (!IsStorableJson(whole))
      throw TWorkError("a plan holds no names that are not UTF-8");
    const std::string text = JsonText(whole) + "\n";
    const std::array<std::string_view, 1> content{text};
    SaveFile({.Target = FFile, .Content = content, .Force = true, .WithBackup = false});
  }

  std::string FProject;
  std::string FFile;
  TDeployOptions FOptions;
  TAllowed FAllowed;
};

} // namespace

std::unique_ptr<ICommand> MakePlanCommand() {
  return std::make_unique<TPlanCommand>();
}

} // namespace workbench
