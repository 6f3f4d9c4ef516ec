#include "package/model/deployment_storage_manager.h"

#include "package/model/default_deployment.h"
#include "package/model/deployment_section.h"
#include "package/model/deployment_upgrade.h"
#include "package/model/deployproj_writer.h"
#include "package/model/lost_content.h"
#include "package/model/section_names.h"

namespace deployment {
namespace {

IProjectDeployment* DeploymentOf(IOTAModule& module) {
  const ICustomProject* project = module.GetProject();
  return project ? project->GetProjectDeployment() : nullptr;
}

} // namespace

std::string TDeploymentStorageManager::GetName() const {
  return std::string(DeploymentSectionName);
}

TSectionLayout TDeploymentStorageManager::GetLayout(IXMLNode& node) const {
  return ReadSectionLayout(node);
}

void TDeploymentStorageManager::CreatingProject(IOTAModule& projectOrGroup) {
  if (!DeploymentOf(projectOrGroup))
    return;
  // A new project has no section yet, unless it was made from a template that carries one.
  IOTAProjectFileStorage& storage = FHost.GetProjectFileStorage();
  IXMLNode* present = storage.GetProjectStorageNode(projectOrGroup, DeploymentSectionName);
  IXMLNode& node =
      present ? *present : storage.AddNewSection(projectOrGroup, DeploymentSectionName);
  node.RemoveChildren();
  node.SetAttribute(section_names::Version, std::to_string(CurrentSectionVersion));
}

void TDeploymentStorageManager::ProjectLoaded(IOTAModule& projectOrGroup, IXMLNode* node) {
  IProjectDeployment* deployment = DeploymentOf(projectOrGroup);
  if (!deployment)
    return;
  if (node) {
    TLostContent lost(FHost.GetMessageServices());
    ReadSection(*deployment, *node, &lost);
  }
  UpgradeDeployment(*deployment, node, FDeploymentFileVersion);
  FDeploymentFileVersion = CurrentSectionVersion;
}

void TDeploymentStorageManager::ProjectSaving(IOTAModule& projectOrGroup, IXMLNode& node) {
  if (IProjectDeployment* deployment = DeploymentOf(projectOrGroup))
    Write(*deployment, node);
}

// The deployment goes with its module; the storage keeps nothing of it.
void TDeploymentStorageManager::ProjectClosing(IOTAModule& /*projectOrGroup*/) {}

void TDeploymentStorageManager::ReadDefaultDeployment(ICustomProject& project,
                                                      IProjectDeployment& deployment) {
  if (!project.GetProjectDeployment())
    return;
  if (const auto document = LoadDefaultDeployment(FHost, project))
    Read(deployment, document->DocumentElement());
}

void TDeploymentStorageManager::WriteMSB(ICustomProject& project, IProjectDeployment& deployment) {
  WriteDeployProj(FHost, project, deployment);
}

void TDeploymentStorageManager::Read(IProjectDeployment& deployment, IXMLNode& node) {
  ReadSection(deployment, node, nullptr);
}

void TDeploymentStorageManager::ReadSection(IProjectDeployment& deployment, IXMLNode& node,
                                            TLostContent* lost) {
  if (!IsDeploymentSection(node))
    return;
  FDeploymentFileVersion = ReadSectionLayout(node).Version;
  ReadSectionEntries(deployment, node, lost);
}

void TDeploymentStorageManager::Write(IProjectDeployment& deployment, IXMLNode& node) const {
  WriteSection(deployment, node);
}

} // namespace deployment
