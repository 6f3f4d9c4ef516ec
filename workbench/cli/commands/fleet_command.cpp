// deploymgr fleet: the files of a target for many machines, by way of Ansible.
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/interrupt_watch.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/targets/deploy_conduct.h"
#include "workbench/cli/view/deployment_view.h"
#include "workbench/cli/view/fleet_results.h"
#include "workbench/deploy/fleet/fleet_export.h"
#include "workbench/deploy/fleet/fleet_folder.h"
#include "workbench/deploy/fleet/fleet_play.h"
#include "workbench/services/remote_profile_services.h"
#include "workbench/text/utf8.h"

#include <algorithm>
#include <atomic>
#include <cstdlib>
#include <iostream>
#include <unistd.h>

namespace workbench {
namespace {

constexpr std::size_t FleetProblemsShown = 20;

bool IsProgramInstalled(std::string_view name) {
  const char* variable = std::getenv("PATH");
  for (std::string_view rest = variable ? variable : ""; !rest.empty();) {
    const std::size_t end = std::min(rest.find(':'), rest.size());
    const auto file = std::filesystem::path(rest.substr(0, end)) / name;
    if (::access(file.c_str(), X_OK) == 0)
      return true;
    rest.remove_prefix(std::min(end + 1, rest.size()));
  }
  return false;
}

// What the engine said last, on one line.
std::string LastWords(const std::string& text) {
  constexpr std::size_t Longest = 2000;
  std::string end = text.size() > Longest ? text.substr(text.size() - Longest) : text;
  while (end.ends_with('\n'))
    end.pop_back();
  std::ranges::replace(end, '\n', ' ');
  return end;
}

class TFleetCommand final : public ICommand {
public:
  std::string Name() const override { return "fleet"; }
  std::string Summary() const override {
    return "Export a deployment for Ansible, or deploy to an inventory of machines";
  }

  void AddOptions(IOptions& options) override {
    options.Choice("ACTION", FAction, {"export", "deploy"}, "export or deploy").Required();
    AddProjectArgument(options, FProject);
    FOfExport = {&options.Text("--out", FFolder, "export: folder to write").ValueName("DIR")};
    FOfDeploy = {
        &options.Text("--inventory", FInventory, "deploy: inventory of the machines")
             .ValueName("FILE"),
        &options.Text("--limit", FLimit, "deploy: only the machines that the pattern means")
             .ValueName("PATTERN"),
        &options.Number("--forks", FForks, 1, 1000, "deploy: machines at a time"),
        &options.Flag("--check", FCheck,
                      "deploy: change nothing; end with 7 when something would change, with 8 when "
                      "others changed a machine")};
    AddPlanOptions(options, FOptions);
    options.Flag("--break-lock", FOptions.BreakLock, "Go on though somebody else deploys there");
    options.Flag("--no-undo", FOptions.NoUndo,
                 "Keep nothing on the machines to take the deploy back by");
    options.Flag("--allow-commands", FAllowed.Commands, "Let the project's commands run");
    options.Flag("--allow-outside", FAllowed.Outside,
                 "Send files that stand beyond the project's directory, working copy or solution");
    options.Flag("--dry-run", FDryRun, "Say what would be done; change nothing");
    options.Flag("--yes", FYes, "Answer every question with yes (commands need --allow-commands)");
    options.Footer(
        "The exported folder is an Ansible project that needs nothing of ours: ansible-core 2.14 "
        "or newer runs it anywhere, with Python 3.6 or newer on the machines. The files go below "
        "the path of the assigned profile, or where the inventory says deployment_root.");
  }

  int Run(TCommandContext& context) override {
    CheckArguments();
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    const TTarget target = ChooseTarget(context, project);
    if (target.AllPlatforms)
      throw TUsageError("fleet needs a single platform, not \"all\"");
    if (!IsFleetPlatform(target.Platform))
      throw TUsageError("machines of the platform \"" + target.Platform +
                        "\" have no Python; a fleet is one of Linux or OS X machines");
    if (FAction == "deploy" && !IsProgramInstalled("ansible-playbook"))
      throw TWorkError(NotInstalled);
    const std::size_t told = project.Warnings().size();
    TDeploymentView view(context);
    view.Open(project, target);
    WarnSince(context, project, told);
    if (!project.Project().GetProjectDeployment())
      throw TWorkError("the project has no deployment, so that there is nothing to bring anywhere");
    TakeDeploySettings(context.Session.Settings(), FOptions);
    FOptions.DryRun = FDryRun || FCheck;
    std::atomic<int> cancelled = 0;
    const TInterruptWatch watch(cancelled);
    TFleetExport fleet = ExportOf(context, project, target, cancelled);
    try {
      return FAction == "export" ? Export(context, target, fleet)
                                 : Deploy(context, fleet, cancelled);
    } catch (const TFleetError& error) {
      if (cancelled != 0)
        throw TExitError(128 + cancelled, "the run was interrupted");
      throw TWorkError(error.what());
    } catch (const TArchiveError& error) {
      throw TWorkError(std::string("nothing was exported: ") + error.what());
    }
  }

private:
  static constexpr const char* NotInstalled =
      "ansible-playbook is not installed, or not in PATH; install ansible-core 2.14 or newer "
      "(Debian, Ubuntu: apt-get install ansible-core; elsewhere: pipx install ansible-core)";

  void CheckArguments() const {
    const bool isExport = FAction == "export";
    for (const IOption* option : isExport ? FOfDeploy : FOfExport) {
      if (option->IsGiven())
        throw TUsageError(option->Name() + " is not for fleet " + FAction);
    }
    if (isExport && FFolder.empty())
      throw TUsageError("fleet export needs a folder to write; name it with --out");
    if (isExport)
      return;
    if (FInventory.empty())
      throw TUsageError("fleet deploy needs an inventory; name it with --inventory");
    if (FInventory.find(',') != std::string::npos)
      throw TUsageError("the path of an inventory has no comma, which Ansible takes for a list");
    if (std::error_code error; !std::filesystem::exists(FInventory, error))
      throw deployment::TInputError("there is no inventory there", {FInventory, 0});
  }

  TFleetExport ExportOf(TCommandContext& context, TOpenProject& project, const TTarget& target,
                        const std::atomic<int>& cancelled) {
    const deployment::TDeploymentTarget place{target.Configuration, target.Platform};
    const auto hear = [](std::string_view line) { std::cerr << Visible(line) << '\n'; };
    try {
      TFleetExport fleet(context.Session.RemoteProfiles().Deploys().FactsOf(
                             {.Project = project.Project(), .Target = place, .Options = FOptions}),
                         FOptions, hear, cancelled);
      Check(context, project, fleet.Plan());
      return fleet;
    } catch (const TConnectionError& error) {
      throw TExitError(exit_status::NoConnection, error.what());
    }
  }

  void Check(TCommandContext& context, const TOpenProject& project, const TDeployPlan& plan) const {
    if (!plan.Problems.empty()) {
      std::string text = "nothing was exported: ";
      const std::size_t shown = std::min(plan.Problems.size(), FleetProblemsShown);
      for (std::size_t i = 0; i < shown; ++i)
        text.append(i > 0 ? "; " : "").append(plan.Problems[i]);
      if (shown < plan.Problems.size())
        text += "; and " + std::to_string(plan.Problems.size() - shown) + " more";
      throw TWorkError(text);
    }
    if (FOptions.DryRun)
      return;
    const std::filesystem::path& file = project.GivenFileName();
    if (!plan.Outside.empty() && !SourceConsentOf(context, file, FAllowed.Outside)(plan.Outside))
      RefuseWithout("files beyond the project's directory may not be sent without consent; "
                    "--allow-outside",
                    plan.Outside);
    if (!plan.Commands.empty() &&
        !ConsentOf(context, file, FAllowed.Commands)(plan.Commands, "a fleet"))
      RefuseWithout("the project's commands may not run without consent; --allow-commands",
                    plan.Commands);
  }

  [[noreturn]] static void RefuseWithout(std::string_view what,
                                         const std::vector<std::string>& listed) {
    std::string text = "nothing was exported: " + std::string(what) + " gives it. They are: ";
    for (std::size_t i = 0; i < listed.size(); ++i)
      text.append(i > 0 ? "; " : "").append(listed[i]);
    throw TExitError(exit_status::NoConsent, text);
  }

  int Export(TCommandContext& context, const TTarget& target, TFleetExport& fleet) const {
    if (FDryRun)
      CheckFleetFolder(FFolder);
    else
      fleet.Write(FFolder);
    const TDeployPlan& plan = fleet.Current();
    TJson files = TJson::Array();
    std::size_t missing = 0;
    for (const TPlannedFile& file : plan.Files) {
      const bool isMissing = file.State == TFileState::MissingHere;
      missing += isMissing ? 1 : 0;
      if (isMissing && !FOptions.SkipMissing && !context.Output.IsJson())
        context.Output.Complain(file.File.LocalName + ": " + file.Reason);
      files.Append({{"localName", file.File.LocalName},
                    {"remoteFile", file.RecordPath},
                    {"bytes", isMissing ? 0 : file.Bytes},
                    {"error", isMissing ? file.Reason : std::string()}});
      if (!isMissing)
        context.Output.Line((FDryRun ? "would be exported " : "exported ") +
                            Visible(file.File.LocalName) + " -> " + Visible(file.RecordPath));
    }
    if (context.Output.IsJson())
      context.Output.Document({{"folder", FFolder},
                               {"platform", target.Platform},
                               {"configuration", target.Configuration},
                               {"dryRun", FDryRun},
                               {"files", std::move(files)},
                               {"commands", plan.Commands}});
    return missing > 0 && !FOptions.SkipMissing ? exit_status::WorkFailed : exit_status::Done;
  }

  int Deploy(TCommandContext& context, TFleetExport& fleet, const std::atomic<int>& cancelled) {
    const TPrivateDirectory scratch;
    fleet.Write(scratch.Path() / "export");
    TFleetTelling how{.IsDry = FOptions.DryRun, .IsCheck = FCheck};
    std::size_t width = 0;
    const TFleetOutcome outcome =
        PlayFleet({.Folder = scratch.Path() / "export",
                   .Scratch = scratch.Path(),
                   .Inventory = std::filesystem::absolute(FInventory),
                   .Limit = FLimit,
                   .Forks = FForks,
                   .Check = FOptions.DryRun,
                   .Cancelled = cancelled},
                  [&](const TFleetMachine& machine) {
                    width = std::max(width, CodePointCount(Visible(machine.Name)));
                    if (!machine.Answer.Find("same_places"))
                      TellMachine(context.Output, ResultOf(machine, how), width);
                  });
    how.Signal = cancelled;
    CheckOutcome(outcome, cancelled != 0);
    return Report(context, outcome, how);
  }

  // Throws for a run that began nowhere.
  void CheckOutcome(const TFleetOutcome& outcome, bool isInterrupted) const {
    if (!outcome.IsInstalled)
      throw TWorkError(NotInstalled);
    bool hasAnswer = isInterrupted;
    for (const TFleetMachine& machine : outcome.Machines) {
      hasAnswer = hasAnswer || machine.End != TFleetMachine::TEnd::NotBegun;
      if (machine.Answer.Find("same_places"))
        throw TUsageError(machine.Answer.TextOr("msg", {}));
    }
    if (hasAnswer)
      return;
    const std::string errors = LastWords(outcome.Errors);
    if (errors.find("--limit") != std::string::npos)
      throw TUsageError("no machine of the inventory is meant by --limit \"" + FLimit + "\"");
    if (outcome.HasNoMachine || outcome.Machines.empty())
      throw deployment::TInputError(errors.empty() ? "the inventory names no machine"
                                                   : "the inventory cannot be used: " + errors,
                                    {FInventory, 0});
    throw TWorkError("the playbook did not run: " + errors);
  }

  int Report(TCommandContext& context, const TFleetOutcome& outcome,
             const TFleetTelling& how) const {
    std::vector<TMachineResult> results;
    results.reserve(outcome.Machines.size());
    int status = outcome.Machines.empty() ? outcome.Status : exit_status::Done;
    std::size_t bad = 0;
    std::size_t width = 0;
    for (const TFleetMachine& machine : outcome.Machines)
      width = std::max(width, CodePointCount(Visible(machine.Name)));
    for (const TFleetMachine& machine : outcome.Machines) {
      results.push_back(ResultOf(machine, how));
      const TMachineResult& result = results.back();
      status = std::max(status, result.Exit);
      bad += result.Exit != exit_status::Done && result.Exit != exit_status::WouldChange ? 1 : 0;
      if (machine.End == TFleetMachine::TEnd::NotBegun)
        TellMachine(context.Output, result, width);
    }
    if (context.Output.IsJson())
      context.Output.Document(TargetsJson(results));
    context.Output.Line(std::to_string(results.size()) +
                        (results.size() == 1 ? " machine, " : " machines, ") +
                        std::to_string(results.size() - bad) + " as they should be, " +
                        std::to_string(bad) + " not");
    return how.Signal != 0 ? 128 + how.Signal : status;
  }

  std::string FAction, FProject, FFolder, FInventory, FLimit;
  unsigned FForks = 0;
  TDeployOptions FOptions;
  TAllowed FAllowed;
  bool FCheck = false;
  bool FDryRun = false;
  bool FYes = false;
  std::vector<IOption*> FOfExport;
  std::vector<IOption*> FOfDeploy;
};

} // namespace

std::unique_ptr<ICommand> MakeFleetCommand() {
  return std::make_unique<TFleetCommand>();
}

} // namespace workbench
