// deploymgr explain: why a file is in the list of a target, or is not.
#include "package/common/class_names.h"
#include "package/host/api/platforms.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/commands/output_explanation.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/project_argument.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/build_changes.h"
#include "workbench/cli/entries/entry_text.h"
#include "workbench/cli/entries/value_sources.h"
#include "workbench/explain/explanation.h"
#include "workbench/explain/reason_text.h"

#include <algorithm>

namespace workbench {
namespace {

class TExplainCommand final : public ICommand {
public:
  std::string Name() const override { return "explain"; }
  std::string Summary() const override {
    return "Say why a file is in the list of a target, or is not";
  }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Text("FILE", FFile, "Local name of a file, or the name of a class or option");
    options.Flag("--output", FOutput, "Say where the path of what a build makes comes from");
    options.Footer("The target is reconciled in memory to learn the reasons; nothing is saved.");
  }

  int Run(TCommandContext& context) override {
    if (FFile.empty() != FOutput)
      throw TUsageError("either a file or --output is wanted");
    if (!FOutput)
      CheckOrder("explain", FProject, {FFile});
    context.Output.ShowRemarks();
    TOpenProject& project = OpenProject(context, FProject, TOpenPurpose::Look);
    FChosen = ChooseTarget(context, project);
    if (FOutput) {
      if (FChosen.AllPlatforms)
        throw TUsageError("\"explain\" wants one platform");
      ExplainOutput(context, project, FChosen);
      return exit_status::Done;
    }
    FTarget = {FChosen.Configuration,
               FChosen.AllPlatforms ? std::string(deployment::sAllPlatforms) : FChosen.Platform};
    const std::size_t told = project.Warnings().size();
    TExplainer explainer(context.Session, project, FTarget);
    const TExplanation explanation = explainer.Explain(FFile);
    WarnSince(context, project, told);
    if (context.Output.IsJson())
      PrintJson(context, project, explanation);
    else
      PrintText(context, project, explanation);
    return exit_status::Done;
  }

private:
  std::string TargetName() const { return FTarget.Configuration + ", " + FTarget.Platform; }

  void PrintText(TCommandContext& context, TOpenProject& project,
                 const TExplanation& explanation) const {
    TOutput& output = context.Output;
    if (explanation.Entries.empty())
      output.Line(Visible(explanation.Name + " is not in the list for " + TargetName()));
    for (const TExplainedEntry& entry : explanation.Entries)
      PrintEntry(output, project, entry);
    for (const TSavedEntry& entry : explanation.Leaving)
      output.Line("  " + Visible(entry.LocalName + " is in the project file as \"" +
                                 entry.ClassName + "\"; a reconcile takes it out"));
    for (const std::string& reason : explanation.Reasons)
      output.Line("  " + Visible(reason));
    for (const deployment::TReconcileReason& reason : explanation.Journal) {
      if (!explanation.Entries.empty() && !IsTold(reason, explanation))
        output.Line("  " + Visible(ReasonSentence(reason) + About(reason, explanation.Name)));
    }
    for (const auto& entry : explanation.Elsewhere)
      output.Line("  it is in the list elsewhere: " + Visible(EntryName(*entry)));
  }

  static std::string About(const deployment::TReconcileReason& reason, const std::string& name) {
    const bool isClear = reason.LocalName.empty() || reason.LocalName == name;
    return isClear ? "" : " (" + reason.LocalName + ")";
  }
  static bool IsTold(const deployment::TReconcileReason& reason, const TExplanation& explanation) {
    return std::ranges::any_of(explanation.Entries, [&](const TExplainedEntry& entry) {
      return std::ranges::find(entry.Reasons, ReasonSentence(reason)) != entry.Reasons.end();
    });
  }

  void PrintEntry(TOutput& output, TOpenProject& project, const TExplainedEntry& entry) const {
    output.Line(output.Bold(Visible(entry.File->GetLocalName())) +
                Visible((entry.IsSaved ? " is in the list for "
                                       : " will be in the list, once it is reconciled, for ") +
                        TargetName() + " as \"" + entry.File->GetDeploymentClass() + "\""));
    for (const std::string& reason : entry.Reasons)
      output.Line("  " + Visible(reason));
    if (FTarget.Platform == deployment::sAllPlatforms) {
      for (const auto& [platform, remoteFile] : entry.Landings)
        output.Line(std::string("  lands at ")
                        .append(Visible(remoteFile))
                        .append(" on ")
                        .append(Visible(platform)));
      return;
    }
    const auto& [platform, remoteFile] = entry.Landings.front();
    if (entry.File->GetDeploymentClass() == deployment::class_names::ProjectOutput)
      PrintOutputSteps(output, project, FChosen);
    for (const TSourcedValue& value : SourcedValues(*entry.File, platform, project.Deployment()))
      output.Line("  " + value.Name + " " +
                  Visible("\"" + value.Value + "\" (" + value.Source + ")"));
    output.Line("  lands at " + Visible(remoteFile));
  }

  void PrintJson(TCommandContext& context, TOpenProject& project,
                 const TExplanation& explanation) const {
    TJson entries = TJson::Array();
    for (const TExplainedEntry& entry : explanation.Entries)
      entries.Append(EntryAsJson(project, entry));
    TJson leaving = TJson::Array();
    for (const TSavedEntry& entry : explanation.Leaving)
      leaving.Append({{"localName", entry.LocalName},
                      {"class", entry.ClassName},
                      {"configuration", entry.Configuration}});
    TJson elsewhere = TJson::Array();
    for (const auto& entry : explanation.Elsewhere)
      elsewhere.Append({{"localName", entry->GetLocalName()},
                        {"class", entry->GetDeploymentClass()},
                        {"configuration", entry->GetConfiguration()},
                        {"platforms", entry->GetPlatforms()}});
    TJson reasons = TJson::Array();
    for (const deployment::TReconcileReason& reason : explanation.Journal)
      reasons.Append(ReasonAsJson(reason));
    context.Output.Document({{"project", project.GivenFileName().string()},
                             {"file", explanation.Name},
                             {"platform", FTarget.Platform},
                             {"configuration", FTarget.Configuration},
                             {"listed", !explanation.Entries.empty()},
                             {"entries", entries},
                             {"leaving", leaving},
                             {"elsewhere", elsewhere},
                             {"reasons", reasons},
                             {"because", explanation.Reasons}});
  }

  TJson EntryAsJson(TOpenProject& project, const TExplainedEntry& entry) const {
    deployment::IProjectDeploymentFile& file = *entry.File;
    TJson document = {{"localName", file.GetLocalName()},
                      {"class", file.GetDeploymentClass()},
                      {"configuration", file.GetConfiguration()},
                      {"condition", file.GetCondition()},
                      {"saved", entry.IsSaved},
                      {"deployed", entry.IsDeployed},
                      {"localFile", entry.LocalFile},
                      {"exists", entry.IsThere},
                      {"because", entry.Reasons}};
    if (FTarget.Platform != deployment::sAllPlatforms) {
      const auto& [platform, remoteFile] = entry.Landings.front();
      TJson values = TJson::Object();
      for (const TSourcedValue& value : SourcedValues(file, platform, project.Deployment()))
        values.Add(value.Name, TJson{{"value", value.Value}, {"source", value.Source}});
      document.Add("values", values);
      document.Add("remoteFile", remoteFile);
      if (file.GetDeploymentClass() == deployment::class_names::ProjectOutput)
        document.Add("output", OutputStepsAsJson(project, FChosen));
    }
    TJson remoteFiles = TJson::Object();
    for (const auto& [platform, remoteFile] : entry.Landings)
      remoteFiles.Add(platform, remoteFile);
    document.Add("remoteFiles", remoteFiles);
    return document;
  }

  std::string FProject;
  std::string FFile;
  TTarget FChosen;
  deployment::TDeploymentTarget FTarget; ///< the same as the list knows it
  bool FOutput = false;
};

} // namespace

std::unique_ptr<ICommand> MakeExplainCommand() {
  return std::make_unique<TExplainCommand>();
}

} // namespace workbench
