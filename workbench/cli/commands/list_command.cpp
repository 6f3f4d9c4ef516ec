// deploymgr list and deploymgr status: the rows of the Deployment Manager.
#include "package/host/api/file_columns.h"
#include "package/host/api/platforms.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/solution_run.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/context/terminal_interaction.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/cli/view/row_table.h"
#include "workbench/cli/view/target_status.h"
#include "workbench/services/remote_profile_services.h"

namespace workbench {
namespace {

using deployment::FileColumns;

class TListCommand final : public ICommand {
public:
  TListCommand(std::string name, std::string summary, bool connects)
      : FName(std::move(name)), FSummary(std::move(summary)), FConnects(connects) {}

  std::string Name() const override { return FName; }
  std::string Summary() const override { return FSummary; }
  void AddOptions(IOptions& options) override {
    AddProjectsArgument(options, FProject);
    options.Text("--sort", FSort, "Sort by this text of the rows; \":desc\" turns the order")
        .ValueName("KEY[:desc]");
    if (!FConnects)
      options.Flag("--connect", FConnect, "Show the state of the files on the target");
    options.Footer("The target is reconciled in memory first; nothing is saved.");
  }

  int Run(TCommandContext& context) override {
    TRowTable table;
    const int status = RunForProjects(context, FProject, TOpenPurpose::Look, TWorkTargets::One,
                                      [&](TCommandContext& part, TOpenProject& project) {
                                        return ListProject(part, project, table);
                                      });
    if (!context.Output.IsJson())
      table.Print(context.Output);
    return status;
  }

private:
  int ListProject(TCommandContext& context, TOpenProject& project, TRowTable& table) const {
    const TTarget target = ChooseTarget(context, project);
    const bool connect = FConnects || FConnect;
    if (connect && target.AllPlatforms)
      throw TUsageError("one platform is wanted to connect to");
    if (connect)
      context.Session.RemoteProfiles().Destinations().Prepare(project.Project(), target.Platform);
    const std::size_t told = project.Warnings().size();
    TDeploymentView view(context);
    if (connect)
      view.OpenConnected(project, target);
    else
      view.Open(project, target);
    Sort(view);
    WarnOfNothingBuilt(context, project, target);
    WarnSince(context, project, told);
    const TTargetStatus status =
        FConnects ? AskTarget(context, project, target) : TTargetStatus(TDeployReport());
    std::vector<std::string> lost = context.Interaction.LostConnections();
    if (lost.empty() && status.Report().End == TDeployEnd::NoConnection)
      lost.push_back(status.Report().Message);
    if (context.Output.IsJson())
      PrintJson(context, project, target, connect && lost.empty(), view.Rows(), status);
    else
      AddText(context, view.Rows(), status, table);
    // What was not answered stands as unknown in the rows.
    for (const std::string& reason : lost)
      context.Output.Complain(reason);
    return lost.empty() ? exit_status::Done : exit_status::NoConnection;
  }

  void Sort(TDeploymentView& view) const {
    if (FSort.empty())
      return;
    constexpr std::string_view Down = ":desc";
    constexpr std::string_view Up = ":asc";
    std::string_view key = FSort;
    const bool descending = key.ends_with(Down);
    if (descending)
      key.remove_suffix(Down.size());
    else if (key.ends_with(Up))
      key.remove_suffix(Up.size());
    view.Sort(key, descending);
  }

  // A plan that is not carried out knows every state.
  TTargetStatus AskTarget(TCommandContext& context, TOpenProject& project,
                          const TTarget& target) const {
    TSilentObserver nobody;
    TTargetStatus status(context.Session.RemoteProfiles().Deploys().Deploy(
        {.Project = project.Project(),
         .Target = {target.Configuration, target.Platform},
         .Options = {.DryRun = true, .SkipMissing = true}},
        nobody));
    for (const std::string& warning : status.Report().Warnings)
      context.Output.Warn({warning, project.GivenFileName().string(), 0});
    for (const std::string& problem : status.Report().Problems)
      context.Output.Warn({problem, project.GivenFileName().string(), 0});
    return status;
  }

  void PrintJson(TCommandContext& context, const TOpenProject& project, const TTarget& target,
                 bool connected, const std::vector<TViewRow>& rows,
                 const TTargetStatus& status) const {
    TJson list = TJson::Array();
    for (const TViewRow& row : rows) {
      TJson entry = TJson::Object();
      for (std::size_t i = 0; i < FileColumns.size(); ++i)
        entry.Add(std::string(FileColumns[i].Key), row.Texts[i]);
      entry.Add("checked", row.Checked);
      entry.Add("dimmed", row.Dimmed);
      if (FConnects)
        status.AddState(row, entry);
      list.Append(std::move(entry));
    }
    TJson document = {{"project", project.GivenFileName().string()},
                      {"platform", target.AllPlatforms ? std::string(deployment::sAllPlatforms)
                                                       : target.Platform},
                      {"configuration", target.Configuration},
                      {"connected", connected},
                      {"rows", std::move(list)}};
    if (FConnects)
      status.AddTarget(document);
    context.Output.Document(document);
  }

  void AddText(const TCommandContext& context, const std::vector<TViewRow>& rows,
               const TTargetStatus& status, TRowTable& table) const {
    table.Add(context.PartName, rows);
    if (!FConnects)
      return;
    for (const std::string& line : status.Summary())
      table.AddSummary(context.PartName, line);
  }

  const std::string FName;
  const std::string FSummary;
  const bool FConnects;
  std::string FProject;
  std::string FSort;
  bool FConnect = false;
};

} // namespace

std::unique_ptr<ICommand> MakeListCommand() {
  return std::make_unique<TListCommand>("list", "Show the files of a target as rows",
                                        /*connects=*/false);
}

std::unique_ptr<ICommand> MakeStatusCommand() {
  return std::make_unique<TListCommand>("status", "Show the files of a target here and there",
                                        /*connects=*/true);
}

} // namespace workbench
