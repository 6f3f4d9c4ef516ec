// deploymgr list and deploymgr status: the rows of the Deployment Manager.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/solution_run.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/context/terminal_interaction.h"
#include "workbench/cli/targets/status_targets.h"
#include "workbench/cli/targets/target_options.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/cli/view/known_states.h"
#include "workbench/cli/view/list_json.h"
#include "workbench/cli/view/row_table.h"
#include "workbench/cli/view/target_status.h"
#include "workbench/services/remote_profile_services.h"

#include <string_view>
#include <utility>
#include <vector>

namespace workbench {
namespace {

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
    if (FConnects)
      AddStatusOptions(options);
    else
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
  void AddStatusOptions(IOptions& options) {
    options.Flag("--offline", FOffline,
                 "Do not connect; show what was known when the target was looked at last");
    options.Flag("--differences", FDifferences,
                 "Leave out what is the same on every target; the document stays whole");
    AddTargetOptions(options, FTargets);
  }

  int ListProject(TCommandContext& context, TOpenProject& project, TRowTable& table) const {
    const TTarget target = ChooseTarget(context, project);
    const bool connect = (FConnects && !FOffline) || FConnect;
    if ((FConnects || FConnect) && target.AllPlatforms)
      throw TUsageError("one platform is wanted to connect to");
    const TSortOrder order = SortOrder();
    if (FTargets.AreGiven())
      return StatusOfTargets(context, project, target,
                             {.Targets = FTargets,
                              .Offline = FOffline,
                              .Differences = FDifferences,
                              .SortKey = std::string(order.Key),
                              .SortsDown = order.IsDown});
    if (connect)
      context.Session.RemoteProfiles().Destinations().Prepare(project.Project(), target.Platform);
    const std::size_t told = project.Warnings().size();
    TDeploymentView view(context);
    if (connect)
      view.OpenConnected(project, target);
    else
      view.Open(project, target);
    if (!order.Key.empty())
      view.Sort(order.Key, order.IsDown);
    WarnOfNothingBuilt(context, project, target);
    WarnSince(context, project, told);
    const TTargetStatus status = !FConnects ? TTargetStatus(TDeployReport())
                                 : FOffline ? RecallTarget(context, project, target)
                                            : AskTarget(context, project, target, view.Seen());
    std::vector<std::string> lost = context.Interaction.LostConnections();
    if (lost.empty() && status.Report().End == TDeployEnd::NoConnection)
      lost.push_back(status.Report().Message);
    if (context.Output.IsJson())
      context.Output.Document(ListJson({.Project = project.GivenFileName().string(),
                                        .Target = target,
                                        .IsConnected = connect && lost.empty(),
                                        .HasAge = FOffline},
                                       view.Rows(), FConnects ? &status : nullptr));
    else
      AddText(context, view.Rows(), status, table);
    // What was not answered stands as unknown in the rows.
    for (const std::string& reason : lost)
      context.Output.Complain(reason);
    return lost.empty() ? exit_status::Done : exit_status::NoConnection;
  }

  struct TSortOrder {
    std::string_view Key; // empty: the rows stay as they are
    bool IsDown = false;
  };

  TSortOrder SortOrder() const {
    constexpr std::string_view Down = ":desc";
    constexpr std::string_view Up = ":asc";
    TSortOrder order{FSort, FSort.ends_with(Down)};
    if (order.IsDown)
      order.Key.remove_suffix(Down.size());
    else if (order.Key.ends_with(Up))
      order.Key.remove_suffix(Up.size());
    return order;
  }

  // A plan that is not carried out knows every state.
  TTargetStatus AskTarget(TCommandContext& context, TOpenProject& project, const TTarget& target,
                          TSeenFiles& seen) const {
    TSilentObserver nobody;
    TDeployReport report = context.Session.RemoteProfiles().Deploys().Deploy(
        {.Project = project.Project(),
         .Target = {target.Configuration, target.Platform},
         .Options = {.DryRun = true, .SkipMissing = true},
         .Seen = &seen},
        nobody);
    if (report.End == TDeployEnd::Done || report.End == TDeployEnd::Unexpected)
      KeepKnownStates(KnownTargetOf(context, project, target), report);
    TTargetStatus status(std::move(report));
    for (const std::string& warning : status.Report().Warnings)
      context.Output.Warn({warning, project.GivenFileName().string(), 0});
    for (const std::string& problem : status.Report().Problems)
      context.Output.Warn({problem, project.GivenFileName().string(), 0});
    return status;
  }

  static TKnownTarget KnownTargetOf(TCommandContext& context, TOpenProject& project,
                                    const TTarget& target) {
    const TDestination destination = context.Session.RemoteProfiles().Destinations().Find(
        project.Project(), {target.Configuration, target.Platform});
    return {project.GivenFileName(), target.Platform, target.Configuration, destination.Text()};
  }

  static TTargetStatus RecallTarget(TCommandContext& context, TOpenProject& project,
                                    const TTarget& target) {
    try {
      TKnownStates known = ReadKnownStates(KnownTargetOf(context, project, target));
      return TTargetStatus(std::move(known.Report), std::move(known.AsOf));
    } catch (const TConnectionError& error) {
      throw TExitError(exit_status::NoConnection, error.what()); // there is no profile
    }
  }

  void AddText(const TCommandContext& context, std::vector<TViewRow> rows,
               const TTargetStatus& status, TRowTable& table) const {
    if (FDifferences)
      std::erase_if(rows, [&](const TViewRow& row) {
        return status.StateOf(row).value_or(TFileState::Same) == TFileState::Same;
      });
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
  bool FOffline = false;
  bool FDifferences = false;
  TTargetOptions FTargets;
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
