// deploymgr reconcile: brings the default entries in line with the project's settings.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/asking_forms.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/solution_run.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/changes_output.h"
#include "workbench/explain/list_changes.h"
#include "workbench/project/project_settings.h"

#include <algorithm>
#include <map>

namespace workbench {
namespace {

using deployment::TReconcileResult;

struct TReconciledTarget {
  std::string Platform;
  std::string Configuration;
  TReconcileResult Result = TReconcileResult::Reconciled;
  std::string Nothing = {}; // why a build of the target makes nothing to deploy
  TTargetChanges Changes = {};
};

// A target without debug symbols takes those of every target out of the list. So the targets that
// have some come last, which leaves nothing out that one of them wants.
std::vector<TReconciledTarget*> InOrderOfRun(const TOpenProject& project,
                                             std::vector<TReconciledTarget>& targets) {
  std::vector<TReconciledTarget*> order;
  order.reserve(targets.size());
  for (TReconciledTarget& target : targets)
    order.push_back(&target);
  std::stable_partition(order.begin(), order.end(), [&](const TReconciledTarget* target) {
    return project.Settings().SymbolExtension(target->Platform).empty() ||
           !project.Settings().HasRemoteDebugSymbols(target->Configuration, target->Platform);
  });
  return order;
}

void WarnOfLost(TCommandContext& context, const std::string& project,
                const std::vector<TChangedEntry>& lost) {
  std::map<std::string, std::size_t> byClass;
  for (const TChangedEntry& entry : lost)
    ++byClass[entry.ClassName];
  for (const auto& [className, count] : byClass)
    context.Output.Warn({std::to_string(count) + " of class \"" + className +
                             "\" came with one target and went with the next, which keeps its "
                             "own only; reconcile a single target to have all of its files",
                         project, 0});
}

class TReconcileCommand final : public ICommand {
public:
  std::string Name() const override { return "reconcile"; }
  std::string Summary() const override {
    return "Bring the default entries in line with the project's settings";
  }
  void AddOptions(IOptions& options) override {
    AddProjectsArgument(options, FProject);
    options.Flag("--all", FAll, "Every platform of every configuration, not one target");
    options.Flag("--internal", FInternal, "Take the list of runtime packages for empty");
    AddChangeOptions(options, FChange);
    AddCheckOption(options, FChange);
  }

  int Run(TCommandContext& context) override {
    return RunForProjects(context, FProject, FChange.Purpose(),
                          FAll ? TWorkTargets::All : TWorkTargets::One,
                          [this](TCommandContext& part, TOpenProject& project) {
                            return ReconcileProject(part, project);
                          });
  }

private:
  int ReconcileProject(TCommandContext& context, TOpenProject& project) const {
    std::vector<TReconciledTarget> targets = Targets(context, project);
    TAskingForms forms(context.Output);
    if (context.Output.CanAsk() && !FChange.Yes && !FChange.IsDry())
      context.Session.SetModalForms(&forms);
    Reconcile(context, project, targets);
    context.Session.SetModalForms(nullptr);
    const bool changed = SaveIfChanged(context, project, targets);
    Report(context, project, targets);
    const bool noneDone =
        !targets.empty() && std::all_of(targets.begin(), targets.end(), [](const auto& target) {
          return target.Result == TReconcileResult::CannotReconcile;
        });
    return noneDone ? exit_status::CannotReconcile : StatusOf(FChange, changed);
  }

  std::vector<TReconciledTarget> Targets(TCommandContext& context,
                                         const TOpenProject& project) const {
    if (!FAll) {
      const TTarget target = ChooseTarget(context, project);
      return {{target.AllPlatforms ? std::string(deployment::sAllPlatforms) : target.Platform,
               target.Configuration}};
    }
    WarnOfTarget(context, &project, "--all takes every target");
    std::vector<TReconciledTarget> targets;
    for (const auto& configuration : project.Settings().Configurations()) {
      if (configuration->GetName() == deployment::BaseConfiguration)
        continue;
      for (const std::string& platform : configuration->GetPlatforms())
        targets.push_back({platform, configuration->GetName()});
    }
    return targets;
  }

  void Reconcile(TCommandContext& context, TOpenProject& project,
                 std::vector<TReconciledTarget>& targets) const {
    const std::size_t told = project.Warnings().size();
    const std::vector<TReconciledTarget*> order = InOrderOfRun(project, targets);
    TListChanges changes(project.Deployment());
    for (TReconciledTarget* target : order) {
      changes.StartTarget();
      target->Result =
          project.Deployment().Reconcile(target->Configuration, target->Platform, FInternal);
      target->Nothing =
          project.Project().GetNothingToDeploy(target->Configuration, target->Platform);
    }
    std::vector<TTargetChanges> changed = changes.Finish();
    for (std::size_t i = 0; i < order.size(); ++i)
      order[i]->Changes = std::move(changed[i]);
    WarnSince(context, project, told);
    WarnOfLost(context, project.GivenFileName().string(), changes.Lost());
  }

  // True when something changed, or would.
  bool SaveIfChanged(TCommandContext& context, TOpenProject& project,
                     const std::vector<TReconciledTarget>& targets) const {
    // An answer about optional files is recorded in a property of the project.
    const bool same = !project.HasPropertyChanges() &&
                      std::all_of(targets.begin(), targets.end(),
                                  [](const auto& target) { return target.Changes.IsEmpty(); });
    if (!same)
      project.RequireShippedFiles();
    if (FChange.IsDry())
      return !same;
    const std::size_t told = project.Warnings().size();
    if (same)
      project.RefreshSideFile();
    else
      project.Save(FChange.ForceSave);
    WarnSince(context, project, told);
    return !same;
  }

  void Report(TCommandContext& context, const TOpenProject& project,
              const std::vector<TReconciledTarget>& targets) const {
    TJson results = TJson::Array();
    bool nothing = true;
    for (const TReconciledTarget& target : targets) {
      TJson result = {{"platform", target.Platform},
                      {"configuration", target.Configuration},
                      {"result", static_cast<int>(target.Result)}};
      result.AddAll(ChangesAsJson(target.Changes));
      results.Append(std::move(result));
      const std::string name = target.Configuration + ", " + target.Platform;
      if (target.Result == TReconcileResult::CannotReconcile)
        context.Output.Warn({target.Nothing.empty() ? "the project cannot be reconciled for " + name
                                                    : target.Nothing,
                             project.GivenFileName().string(), 0});
      PrintChanges(context.Output, target.Changes, FChange.IsDry());
      nothing = nothing && target.Changes.IsEmpty();
    }
    if (context.Output.IsJson())
      context.Output.Document({{"results", results}});
    else if (nothing)
      context.Output.Line("nothing to do");
  }

  std::string FProject;
  bool FAll = false;
  bool FInternal = false;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeReconcileCommand() {
  return std::make_unique<TReconcileCommand>();
}

} // namespace workbench
