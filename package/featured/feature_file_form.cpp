#include "package/featured/feature_file_form.h"

#include "package/common/class_names.h"
#include "package/common/delimited_list.h"
#include "package/host/api/deploymentapi.h"

#include <algorithm>
#include <map>
#include <utility>

namespace deployment {
namespace {

// True when adding the file anew would leave the entry as it is.
bool IsAsAdded(IProjectDeploymentFile& file, const TFeatureNode& data,
               std::string_view configuration) {
  if (file.GetPlatforms() != std::vector{data.Platform} ||
      file.GetConfiguration() != configuration || file.GetDeploymentClass() != class_names::File ||
      !file.GetCondition().empty() || file.GetRequired())
    return false;
  const TFileData& record = *file.GetFileData(data.Platform, /*create=*/false);
  return record.Enabled && record.Overwrite && record.RemoteDir == data.RemoteDir &&
         record.RemoteName.empty() && record.Operation == TDeployOperation::Default &&
         record.LocalCommands.empty() && record.RemoteCommands.empty();
}

} // namespace

TFeatureFileForm::TFeatureFileForm(const TFeatures& features, ICustomProject& project)
    : FFeatures(features), FProject(project), FConfigurations(ConfigurationNames()), FNodes(1) {
  if (FProject.GetProjectDeployment())
    BuildTree();
}

std::vector<std::string> TFeatureFileForm::ConfigurationNames() const {
  std::vector<std::string> names;
  if (const auto* options = FProject.GetOptionsConfigurations()) {
    for (const IOTABuildConfiguration* configuration : options->GetConfigurations()) {
      if (configuration != &options->GetBaseConfiguration())
        names.push_back(configuration->GetName());
    }
  }
  return names;
}

void TFeatureFileForm::BuildTree() {
  for (const TFeature& feature : FFeatures.List())
    AddFeature(feature);
  for (const TNodeId node : FNodes.front().Children)
    CheckAllParents(node);
}

void TFeatureFileForm::AddFeature(const TFeature& feature) {
  TFeatureNode data;
  data.Title = feature.Title();
  data.FeatureClasses = JoinDelimited(feature.FeaturesClasses());
  const TNodeId featureNode = AddNode(0, std::move(data));
  std::map<std::string, TNodeId, std::less<>> platformNodes;
  for (const TDeployFile& file : feature.DeployFiles()) {
    for (const std::string& platform : file.Platforms()) {
      auto found = platformNodes.find(platform);
      if (found == platformNodes.end()) {
        TFeatureNode platformData;
        platformData.Platform = platform;
        found =
            platformNodes.emplace(platform, AddNode(featureNode, std::move(platformData))).first;
      }
      AddFile(found->second, feature, file, platform);
    }
  }
}

// The data are those of the configuration that was looked at last; without one there are none.
void TFeatureFileForm::AddFile(TNodeId platformNode, const TFeature& feature,
                               const TDeployFile& file, const std::string& platform) {
  const TNodeId node = AddNode(platformNode, {});
  IProjectDeployment& deployment = *FProject.GetProjectDeployment();
  for (const std::string& configuration : FConfigurations) {
    const auto entry = deployment.FindFile(configuration, platform, file.LocalName());
    if (entry && entry->GetEnabled(platform))
      FNodes[node].State = TCheckState::Checked;
    FNodes[node].Data = {{},
                         JoinDelimited(feature.FeaturesClasses()),
                         file.LocalName(),
                         file.ClassDesc(),
                         platform,
                         file.Configuration().empty() ? configuration : file.Configuration(),
                         file.GetRemoteDir(platform)};
  }
}

TNodeId TFeatureFileForm::AddNode(TNodeId parent, TFeatureNode data) {
  const TNodeId node = FNodes.size();
  FNodes.push_back({std::move(data), parent});
  FNodes[parent].Children.push_back(node);
  return node;
}

const std::vector<TNodeId>& TFeatureFileForm::GetChildren(TNodeId node) const {
  return FNodes[node].Children;
}

std::string TFeatureFileForm::GetText(TNodeId node) const {
  const TFeatureNode& data = FNodes[node].Data;
  for (const std::string* text :
       {&data.Title, &data.LocalName, &data.Platform, &data.RemoteDir, &data.Configuration}) {
    if (!text->empty())
      return *text;
  }
  return {};
}

void TFeatureFileForm::CheckAllParents(TNodeId node) {
  for (const TNodeId child : FNodes[node].Children)
    CheckAllParents(child);
  Derive(node);
}

void TFeatureFileForm::Derive(TNodeId node) {
  const std::vector<TNodeId>& children = FNodes[node].Children;
  if (children.empty())
    return;
  const TCheckState first = FNodes[children.front()].State;
  const bool same = std::all_of(children.begin(), children.end(),
                                [&](TNodeId child) { return FNodes[child].State == first; });
  FNodes[node].State = same ? first : TCheckState::Mixed;
}

void TFeatureFileForm::SetChecked(TNodeId node, bool checked) {
  CheckBelow(node, checked ? TCheckState::Checked : TCheckState::Unchecked);
  for (TNodeId parent = FNodes[node].Parent; parent != 0; parent = FNodes[parent].Parent)
    Derive(parent);
}

void TFeatureFileForm::CheckBelow(TNodeId node, TCheckState state) {
  FNodes[node].State = state;
  for (const TNodeId child : FNodes[node].Children)
    CheckBelow(child, state);
}

void TFeatureFileForm::FormClose(TModalResult result) {
  if (result != TModalResult::OK || !FProject.GetProjectDeployment())
    return;
  const std::vector<TNodeId> files = FileNodes();
  for (const TNodeId node : files) {
    if (FNodes[node].State == TCheckState::Unchecked)
      DeleteFile(FNodes[node].Data);
  }
  for (const TNodeId node : files) {
    if (FNodes[node].State == TCheckState::Checked)
      AddToDeployment(FNodes[node].Data);
  }
}

// From top to bottom, as the tree shows them; those without data are left out.
std::vector<TNodeId> TFeatureFileForm::FileNodes() const {
  std::vector<TNodeId> nodes;
  for (const TNodeId feature : GetChildren(0)) {
    for (const TNodeId platform : GetChildren(feature)) {
      for (const TNodeId file : GetChildren(platform)) {
        if (!FNodes[file].Data.LocalName.empty())
          nodes.push_back(file);
      }
    }
  }
  return nodes;
}

void TFeatureFileForm::DeleteFile(const TFeatureNode& data) {
  for (const std::string& configuration : FConfigurations)
    FProject.GetProjectDeployment()->RemoveFile(configuration, data.Platform, data.LocalName);
}

void TFeatureFileForm::AddToDeployment(const TFeatureNode& data) {
  IProjectDeployment& deployment = *FProject.GetProjectDeployment();
  for (const std::string& configuration : FConfigurations) {
    const auto present = deployment.FindFile(configuration, data.Platform, data.LocalName);
    if (present && IsAsAdded(*present, data, configuration))
      continue;
    const auto file = deployment.CreateFile(configuration, data.Platform, data.LocalName);
    file->SetEnabled(data.Platform, true);
    // Whatever class the catalog names: entries that a person chose are the person's.
    file->SetDeploymentClass(class_names::File);
    file->SetFilePlatform(data.Platform);
    file->SetConfiguration(configuration);
    file->SetRemoteDir(data.Platform, data.RemoteDir);
    deployment.AddFileEntry(configuration, data.Platform, file);
  }
  FAddedFiles = data.FeatureClasses;
}

std::string TFeatureFileForm::GetAddedFiles(std::string_view extension) const {
  if (extension.empty())
    return FAddedFiles;
  std::vector<std::string> names;
  for (const std::string_view name : SplitDelimited(FAddedFiles)) {
    const TFeatureClass* featureClass = FFeatures.FindClass(name);
    if (!featureClass || featureClass->Claims(extension))
      names.emplace_back(name);
  }
  return JoinDelimited(names);
}

} // namespace deployment
