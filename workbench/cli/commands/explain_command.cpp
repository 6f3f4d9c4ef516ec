// deploymgr explain: why a file is in the list of a target, or is not.
#include "package/common/case_fold.h"
#include "package/common/path_text.h"
#include "package/host/api/platforms.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/build_changes.h"
#include "workbench/cli/entries/entry_text.h"
#include "workbench/cli/entries/reason_text.h"
#include "workbench/cli/entries/value_sources.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>

namespace workbench {
namespace {

using deployment::SameFileName;
using deployment::TReconcileReason;

// Keeps what the steps tell.
class TJournal final : public deployment::IReconcileJournal {
public:
  void Record(const TReconcileReason& reason) override { Reasons.push_back(reason); }

  std::vector<TReconcileReason> Reasons;
};

// Everything that was found out about one file.
struct TExplanation {
  std::string File;
  TTarget Target;
  deployment::TDeploymentFiles Entries; ///< of the target
  deployment::TDeploymentFiles Others;  ///< of other targets
  /// What was in the list before the target was reconciled.
  std::unordered_set<const deployment::IProjectDeploymentFile*> Saved;
  std::vector<TReconcileReason> Reasons;
};

bool IsAboutFile(const TReconcileReason& reason, const std::string& file) {
  return (!reason.LocalName.empty() && SameFileName(reason.LocalName, file)) ||
         deployment::SameText(reason.ClassName, file) ||
         (reason.Source == deployment::TReasonSource::Option &&
          SameFileName(reason.SourceValue, file));
}

// A name without a directory may be meant for any directory.
bool HasFileName(const TReconcileReason& reason, const std::string& file) {
  return deployment::DirectoryPart(file).empty() && !reason.LocalName.empty() &&
         SameFileName(deployment::FileNamePart(reason.LocalName), file);
}

template <class TMatches>
std::vector<TReconcileReason> Select(const std::vector<TReconcileReason>& reasons,
                                     TMatches matches) {
  std::vector<TReconcileReason> selected;
  std::copy_if(reasons.begin(), reasons.end(), std::back_inserter(selected), matches);
  return selected;
}

std::vector<TReconcileReason> ReasonsFor(const std::vector<TReconcileReason>& reasons,
                                         const std::string& file) {
  auto selected =
      Select(reasons, [&](const TReconcileReason& reason) { return IsAboutFile(reason, file); });
  if (selected.empty())
    selected =
        Select(reasons, [&](const TReconcileReason& reason) { return HasFileName(reason, file); });
  return selected;
}

// The steps that did not run at all say something about every file that is not in the list.
bool IsGate(const TReconcileReason& reason) {
  return reason.ClassName.empty() && reason.LocalName.empty();
}

class TExplainCommand final : public ICommand {
public:
  std::string Name() const override { return "explain"; }
  std::string Summary() const override {
    return "Say why a file is in the list of a target, or is not";
  }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Text("FILE", FFile, "Local name of a file, or the name of a class or option")
        .Required();
    options.Footer("The target is reconciled in memory to learn the reasons; nothing is saved.");
  }

  int Run(TCommandContext& context) override {
    if (FFile.empty())
      throw TUsageError("the name of the file is empty");
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    const TExplanation explanation = Explain(context, project);
    if (context.Output.IsJson())
      PrintJson(context, project, explanation);
    else
      PrintText(context, project, explanation);
    return exit_status::Done;
  }

private:
  TExplanation Explain(TCommandContext& context, TOpenProject& project) const {
    TExplanation explanation;
    explanation.File = FFile;
    explanation.Target = ChooseTarget(context, project);
    if (explanation.Target.AllPlatforms)
      throw TUsageError("\"explain\" wants one platform");
    const std::size_t told = project.Warnings().size();
    deployment::IProjectDeployment& deployment = project.Deployment();
    const deployment::TDeploymentFiles before = deployment.GetFiles();
    for (const auto& file : before)
      explanation.Saved.insert(file.get());
    TJournal journal;
    deployment.Reconcile(explanation.Target.Configuration, explanation.Target.Platform,
                         /*reconcileInternally=*/false, journal);
    WarnSince(context, project, told);
    explanation.Reasons = ReasonsFor(journal.Reasons, FFile);
    FindEntries(deployment, explanation);
    if (explanation.Reasons.empty() && explanation.Entries.empty())
      explanation.Reasons = Select(journal.Reasons, IsGate);
    return explanation;
  }

  static bool IsMeant(const deployment::IProjectDeploymentFile& file,
                      const TExplanation& explanation) {
    if (SameFileName(file.GetLocalName(), explanation.File))
      return true;
    return std::any_of(explanation.Reasons.begin(), explanation.Reasons.end(),
                       [&](const TReconcileReason& reason) {
                         return !reason.LocalName.empty() &&
                                SameFileName(reason.LocalName, file.GetLocalName());
                       });
  }

  // An entry of the root configuration is one of every configuration.
  static bool IsOfTarget(const deployment::IProjectDeploymentFile& file, const TTarget& target) {
    const std::string& configuration = file.GetConfiguration();
    const std::vector<std::string> platforms = file.GetPlatforms();
    const bool hasPlatform = std::any_of(platforms.begin(), platforms.end(), [&](const auto& name) {
      return deployment::SameText(name, target.Platform) || name == deployment::FallbackPlatform ||
             name == deployment::sAllPlatforms;
    });
    return hasPlatform &&
           (configuration.empty() || configuration == deployment::BaseConfiguration ||
            deployment::SameText(configuration, target.Configuration));
  }

  static void FindEntries(deployment::IProjectDeployment& deployment, TExplanation& explanation) {
    for (const auto& file : deployment.GetFiles()) {
      if (!IsMeant(*file, explanation))
        continue;
      (IsOfTarget(*file, explanation.Target) ? explanation.Entries : explanation.Others)
          .push_back(file);
    }
  }

  static void PrintText(TCommandContext& context, TOpenProject& project,
                        const TExplanation& explanation) {
    TOutput& output = context.Output;
    const std::string target =
        explanation.Target.Configuration + ", " + explanation.Target.Platform;
    if (explanation.Entries.empty())
      output.Line(Visible(explanation.File + " is not in the list for " + target));
    for (const auto& entry : explanation.Entries)
      PrintEntry(output, project, *entry, explanation);
    if (explanation.Entries.empty() && explanation.Reasons.empty())
      output.Line("  no step of a reconcile asks for it; \"deploymgr add\" puts it on the list");
    for (const TReconcileReason& reason : explanation.Reasons) {
      if (!IsToldAlready(reason, explanation))
        output.Line("  " + Visible(ReasonSentence(reason) + About(reason, explanation.File)));
    }
    for (const auto& entry : explanation.Others)
      output.Line("  it is in the list elsewhere: " + Visible(EntryName(*entry)));
  }

  static bool IsOf(const TReconcileReason& reason,
                   const deployment::IProjectDeploymentFile& entry) {
    return reason.LocalName == entry.GetLocalName() &&
           deployment::SameText(reason.ClassName, entry.GetDeploymentClass());
  }
  static bool IsToldAlready(const TReconcileReason& reason, const TExplanation& explanation) {
    return std::any_of(explanation.Entries.begin(), explanation.Entries.end(),
                       [&](const auto& entry) { return IsOf(reason, *entry); });
  }
  static std::string About(const TReconcileReason& reason, const std::string& file) {
    const bool isClear = reason.LocalName.empty() || SameFileName(reason.LocalName, file);
    return isClear ? "" : " (" + reason.LocalName + ")";
  }

  static void PrintEntry(TOutput& output, TOpenProject& project,
                         deployment::IProjectDeploymentFile& entry,
                         const TExplanation& explanation) {
    const std::string& platform = explanation.Target.Platform;
    const bool isSaved = explanation.Saved.contains(&entry);
    output.Line(output.Bold(Visible(entry.GetLocalName())) +
                Visible((isSaved ? " is in the list for "
                                 : " will be in the list, once it is reconciled, for ") +
                        explanation.Target.Configuration + ", " + platform + " as \"" +
                        entry.GetDeploymentClass() + "\""));
    const std::vector<std::string> buildReasons = BuildReasons(project, entry);
    for (const std::string& reason : buildReasons)
      output.Line("  " + Visible(reason));
    if (explanation.Reasons.empty() && buildReasons.empty())
      output.Line("  no step of a reconcile asks for it: it was added by hand");
    for (const TReconcileReason& reason : explanation.Reasons) {
      if (IsOf(reason, entry))
        output.Line("  " + Visible(ReasonSentence(reason)));
    }
    for (const TSourcedValue& value : SourcedValues(entry, platform, project.Deployment()))
      output.Line("  " + value.Name + " " +
                  Visible("\"" + value.Value + "\" (" + value.Source + ")"));
    output.Line("  lands at " + Visible(RemoteFileName(entry, platform, project.Deployment())));
  }

  static void PrintJson(TCommandContext& context, TOpenProject& project,
                        const TExplanation& explanation) {
    TJson entries = TJson::Array();
    for (const auto& entry : explanation.Entries)
      entries.Append(EntryAsJson(project, *entry, explanation));
    TJson others = TJson::Array();
    for (const auto& entry : explanation.Others)
      others.Append({{"localName", entry->GetLocalName()},
                     {"class", entry->GetDeploymentClass()},
                     {"configuration", entry->GetConfiguration()},
                     {"platforms", entry->GetPlatforms()}});
    TJson reasons = TJson::Array();
    for (const TReconcileReason& reason : explanation.Reasons)
      reasons.Append(ReasonAsJson(reason));
    context.Output.Document({{"project", project.GivenFileName().string()},
                             {"file", explanation.File},
                             {"platform", explanation.Target.Platform},
                             {"configuration", explanation.Target.Configuration},
                             {"listed", !explanation.Entries.empty()},
                             {"entries", entries},
                             {"elsewhere", others},
                             {"reasons", reasons}});
  }

  static TJson EntryAsJson(TOpenProject& project, deployment::IProjectDeploymentFile& entry,
                           const TExplanation& explanation) {
    const std::string& platform = explanation.Target.Platform;
    TJson values = TJson::Object();
    for (const TSourcedValue& value : SourcedValues(entry, platform, project.Deployment()))
      values.Add(value.Name, {{"value", value.Value}, {"source", value.Source}});
    return {{"localName", entry.GetLocalName()},
            {"class", entry.GetDeploymentClass()},
            {"configuration", entry.GetConfiguration()},
            {"saved", explanation.Saved.contains(&entry)},
            {"build", BuildReasons(project, entry)},
            {"values", values},
            {"remoteFile", RemoteFileName(entry, platform, project.Deployment())}};
  }

  std::string FProject;
  std::string FFile;
};

} // namespace

std::unique_ptr<ICommand> MakeExplainCommand() {
  return std::make_unique<TExplainCommand>();
}

} // namespace workbench
