// deploymgr featured: the catalog of optional files, and what a project takes from it.
#include "package/common/case_fold.h"
#include "package/common/delimited_list.h"
#include "package/common/text_trim.h"
#include "package/host/api/default_deployment.h"
#include "package/host/api/forms.h"
#include "workbench/cli/commands/commands.h"
#include "workbench/cli/context/command.h"
#include "workbench/cli/context/name_hint.h"
#include "workbench/cli/context/target.h"
#include "workbench/cli/entries/changes_output.h"
#include "workbench/explain/list_changes.h"
#include "workbench/settings/settings_store.h"

#include <algorithm>
#include <map>
#include <utility>

namespace workbench {
namespace {

using deployment::IFeatureFileForm;
using deployment::TCheckState;
using deployment::TFeatureNode;
using deployment::TModalResult;
using deployment::TNodeId;

std::string StateName(TCheckState state) {
  switch (state) {
  case TCheckState::Checked:
    return "checked";
  case TCheckState::Mixed:
    return "mixed";
  default:
    return "unchecked";
  }
}

// One file of a feature, with every platform that it is for.
struct TFeatureFile {
  std::string LocalName;
  std::string ClassName;
  std::vector<std::string> Platforms;
  TJson RemoteDirs = TJson::Object();
};

// The nodes of files in the order of the catalog, which is that of their making.
std::vector<TNodeId> FileNodesOf(const IFeatureFileForm& form, TNodeId feature) {
  std::vector<TNodeId> nodes;
  for (const TNodeId platform : form.GetChildren(feature)) {
    const std::vector<TNodeId>& files = form.GetChildren(platform);
    nodes.insert(nodes.end(), files.begin(), files.end());
  }
  std::sort(nodes.begin(), nodes.end());
  return nodes;
}

std::vector<TFeatureFile> FilesOf(const IFeatureFileForm& form, TNodeId feature) {
  std::vector<TFeatureFile> files;
  std::map<std::pair<std::string, std::string>, std::size_t> places; // by name and class
  for (const TNodeId node : FileNodesOf(form, feature)) {
    const TFeatureNode& data = form.GetNode(node);
    if (data.LocalName.empty())
      continue;
    const auto [place, isNew] = places.try_emplace({data.LocalName, data.ClassDesc}, files.size());
    if (isNew)
      files.push_back({data.LocalName, data.ClassDesc, {}});
    TFeatureFile& file = files[place->second];
    file.Platforms.push_back(data.Platform);
    file.RemoteDirs.Set(data.Platform, data.RemoteDir);
  }
  return files;
}

// A project of the root configuration alone has nothing to put files into: its nodes are empty.
bool TakesNoFiles(const IFeatureFileForm& form) {
  for (const TNodeId feature : form.GetChildren(0)) {
    for (const TNodeId node : FileNodesOf(form, feature))
      return form.GetNode(node).LocalName.empty();
  }
  return false;
}

std::vector<std::string> ClassesOf(const TFeatureNode& feature) {
  std::vector<std::string> names;
  for (const std::string_view name : deployment::SplitDelimited(feature.FeatureClasses))
    names.emplace_back(name);
  return names;
}

// The dialog, answered by the command line.
class TChoosingForms final : public deployment::IModalForms {
public:
  TChoosingForms(const std::vector<std::string>& chosen, const std::vector<std::string>& dropped)
      : FChosen(chosen), FDropped(dropped) {}

  TModalResult ShowFeatureFiles(IFeatureFileForm& form) override {
    for (const TNodeId feature : form.GetChildren(0)) {
      const std::string& title = form.GetNode(feature).Title;
      if (Contains(FChosen, title))
        form.SetChecked(feature, true);
      if (Contains(FDropped, title))
        form.SetChecked(feature, false);
    }
    return TModalResult::OK;
  }

private:
  static bool Contains(const std::vector<std::string>& titles, const std::string& title) {
    return std::find(titles.begin(), titles.end(), title) != titles.end();
  }

  const std::vector<std::string>& FChosen;
  const std::vector<std::string>& FDropped;
};

class TFeaturedCommand final : public ICommand {
public:
  std::string Name() const override { return "featured"; }
  std::string Summary() const override { return "Show, choose and drop optional files"; }
  void AddOptions(IOptions& options) override {
    AddProjectArgument(options, FProject);
    options.Text("--extension", FExtension, "Only what goes with files of this extension")
        .ValueName("EXT");
    options.Texts("--choose", FChosen, "Put the files of this feature on the list")
        .ValueName("TITLE");
    options.Texts("--drop", FDropped, "Take the files of this feature off the list")
        .ValueName("TITLE");
    AddChangeOptions(options, FChange);
  }

  int Run(TCommandContext& context) override {
    const bool edits = !FChosen.empty() || !FDropped.empty();
    TOpenProject& project = OpenProject(
        context, FProject, edits && !FChange.DryRun ? TOpenPurpose::Edit : TOpenPurpose::Look);
    WarnOfTarget(context, &project, "optional files are for every configuration and platform");
    deployment::EnsureDefaultDeployment(project.Deployment());
    const auto form = Form(context, project);
    if (TakesNoFiles(*form))
      context.Output.Warn(
          {"the project has no configuration but Base, so it takes no optional files",
           project.GivenFileName().string(), 0});
    if (edits)
      Apply(context, project, *form);
    else
      List(context, *form);
    return exit_status::Done;
  }

private:
  // People leave out the dot.
  std::string Extension() const {
    const std::string extension(deployment::Trimmed(FExtension));
    return extension.empty() || extension.front() == '.' ? extension : "." + extension;
  }

  std::shared_ptr<const IFeatureFileForm> Form(TCommandContext& context,
                                               TOpenProject& project) const {
    return context.Session.DeploymentService().GetFeaturedFiles(project.Project(), Extension());
  }

  // The title as the catalog has it. Throws TUsageError for one that it has not.
  static std::string TitleIn(const IFeatureFileForm& form, const std::string& wanted) {
    std::vector<std::string> titles;
    for (const TNodeId feature : form.GetChildren(0))
      titles.push_back(form.GetNode(feature).Title);
    if (std::find(titles.begin(), titles.end(), wanted) != titles.end())
      return wanted;
    for (const std::string& title : titles) {
      if (deployment::SameText(title, wanted))
        return title;
    }
    throw TUsageError(
        "there is no feature \"" + wanted + "\"" +
        (titles.empty() ? std::string("; the catalog has none here") : HintAt(wanted, titles)));
  }

  void FindTitles(const IFeatureFileForm& form) {
    for (std::vector<std::string>* titles : {&FChosen, &FDropped}) {
      for (std::string& title : *titles)
        title = TitleIn(form, title);
    }
    for (const std::string& title : FChosen) {
      if (std::find(FDropped.begin(), FDropped.end(), title) != FDropped.end())
        throw TUsageError("the feature \"" + title + "\" is both chosen and dropped");
    }
  }

  void Apply(TCommandContext& context, TOpenProject& project, const IFeatureFileForm& form) {
    deployment::IProjectDeployment& deployment = project.Deployment();
    FindTitles(form);
    TListChanges list(deployment);
    TChoosingForms forms(FChosen, FDropped);
    context.Session.SetModalForms(&forms);
    context.Session.DeploymentService().ModifyFeaturedFiles(project.Project());
    context.Session.SetModalForms(nullptr);
    const TTargetChanges changes = list.Finish().front();
    const bool changed = !changes.IsEmpty() || project.HasPropertyChanges();
    if (changed)
      project.RequireShippedFiles();
    if (!FChange.DryRun) {
      const std::size_t told = project.Warnings().size();
      if (changed)
        project.Save(FChange.ForceSave);
      else
        project.RefreshSideFile();
      WarnSince(context, project, told);
    }
    if (context.Output.IsJson())
      return List(context, *Form(context, project));
    PrintChanges(context.Output, changes, FChange.DryRun);
    if (!changed)
      context.Output.Line("nothing to do");
  }

  static void List(TCommandContext& context, const IFeatureFileForm& form) {
    TJson features = TJson::Array();
    for (const TNodeId feature : form.GetChildren(0)) {
      const TFeatureNode& data = form.GetNode(feature);
      const std::string state = StateName(form.GetCheckState(feature));
      TJson files = TJson::Array();
      context.Output.Line(state + "  " + context.Output.Bold(Visible(data.Title)) + "  " +
                          context.Output.Dim("[" + Visible(data.FeatureClasses) + "]"));
      for (const TFeatureFile& file : FilesOf(form, feature)) {
        files.Append({{"localName", file.LocalName},
                      {"class", file.ClassName},
                      {"platforms", file.Platforms},
                      {"remoteDirs", file.RemoteDirs}});
        context.Output.Line("  " + Visible(file.LocalName) + "  " +
                            Visible(deployment::JoinDelimited(file.Platforms, ", ")));
      }
      features.Append({{"title", data.Title},
                       {"classes", ClassesOf(data)},
                       {"state", state},
                       {"files", files}});
    }
    if (context.Output.IsJson())
      context.Output.Document({{"features", features}});
    else if (features.AsArray().empty())
      context.Output.Line("there are no features");
  }

  std::string FProject;
  std::string FExtension;
  std::vector<std::string> FChosen;
  std::vector<std::string> FDropped;
  TChangeOptions FChange;
};

} // namespace

std::unique_ptr<ICommand> MakeFeaturedCommand() {
  return std::make_unique<TFeaturedCommand>();
}

} // namespace workbench
