#include "package/model/deployment_section.h"

#include "package/common/case_fold.h"
#include "package/host/api/xmlutils.h"
#include "package/model/deployment_class.h"
#include "package/model/deployment_file.h"
#include "package/model/lost_content.h"
#include "package/model/section_names.h"

#include <memory>
#include <string>

namespace deployment {
namespace {

// Each kind of element is read and written side by side.

void ReadFiles(IProjectDeployment& deployment, IXMLNode& section, TLostContent* lost) {
  std::size_t expected = deployment.FindFiles("", "", "", "").size();
  for (IXMLNode* node = FindChild(section, section_names::DeployFile); node;
       node = FirstNamed(node->NextSibling(), section_names::DeployFile)) {
    const auto file = std::make_shared<TDeploymentFile>();
    file->Read(*node);
    if (lost)
      lost->CheckFile(*node);
    deployment.AddFileEntry(file->GetConfiguration(), file->GetFilePlatform(), file);
    ++expected;
  }
  if (lost)
    lost->AddReplaced(expected - deployment.FindFiles("", "", "", "").size(), section);
}

void WriteFiles(IProjectDeployment& deployment, IXMLNode& section) {
  // Asking for every entry through the search leaves a project that nobody looked at without the
  // default deployment, so that saving it changes nothing.
  for (const auto& file : deployment.FindFiles("", "", "", ""))
    dynamic_cast<const TDeploymentFile&>(*file).Write(section.AddChild(section_names::DeployFile));
}

void ReadClasses(IProjectDeployment& deployment, IXMLNode& section, TLostContent* lost) {
  for (IXMLNode* node = FindChild(section, section_names::DeployClass); node;
       node = FirstNamed(node->NextSibling(), section_names::DeployClass)) {
    const auto deploymentClass = std::make_shared<TDeploymentClass>();
    deploymentClass->Read(*node);
    if (lost)
      lost->CheckClass(*node);
    deployment.AddClass(deploymentClass);
  }
}

void WriteClasses(IProjectDeployment& deployment, IXMLNode& section) {
  for (const auto& deploymentClass : deployment.GetClasses())
    dynamic_cast<const TDeploymentClass&>(*deploymentClass)
        .Write(section.AddChild(section_names::DeployClass));
}

void ReadProjectRoots(IProjectDeployment& deployment, IXMLNode& section, TLostContent* lost) {
  for (IXMLNode* node = FindChild(section, section_names::ProjectRoot); node;
       node = FirstNamed(node->NextSibling(), section_names::ProjectRoot)) {
    const std::string_view name = ExpectAttribute(*node, section_names::Name);
    deployment.SetProjectRoot(ExpectAttribute(*node, section_names::Platform), name);
    if (lost)
      lost->CheckProjectRoot(*node);
  }
}

void WriteProjectRoots(IProjectDeployment& deployment, IXMLNode& section) {
  for (const auto& root : deployment.GetProjectRoots()) {
    IXMLNode& node = section.AddChild(section_names::ProjectRoot);
    node.SetAttribute(section_names::Platform, root.Key);
    node.SetAttribute(section_names::Name, root.Value);
  }
}

} // namespace

bool IsDeploymentSection(const IXMLNode& node) {
  return SameText(node.NodeName(), DeploymentSectionName);
}

TSectionLayout ReadSectionLayout(IXMLNode& node) {
  const auto version = node.GetAttribute(section_names::Version);
  const int layout = version ? ExpectInteger(node, section_names::Version, *version) : 0;
  return {layout, layout < CurrentSectionVersion && node.HasChildren()};
}

void ReadSectionEntries(IProjectDeployment& deployment, IXMLNode& node, TLostContent* lost) {
  if (lost)
    lost->CheckSection(node);
  ReadFiles(deployment, node, lost);
  ReadClasses(deployment, node, lost);
  ReadProjectRoots(deployment, node, lost);
  if (lost)
    lost->Finish(node);
}

void WriteSection(IProjectDeployment& deployment, IXMLNode& node) {
  node.RemoveChildren();
  if (deployment.IsEmpty()) {
    node.RemoveAttributes();
    return;
  }
  node.SetAttribute(section_names::Version, std::to_string(CurrentSectionVersion));
  WriteFiles(deployment, node);
  WriteClasses(deployment, node);
  WriteProjectRoots(deployment, node);
}

} // namespace deployment
