// The storage of deployments: owner of the Deployment section of project files.
#pragma once

#include "package/host/api/ideservices.h"
#include "package/model/deployment_storage.h"

#include <string>

namespace deployment {

class TLostContent;

/// Reads and writes the deployments of all projects. One per run of the host.
class TDeploymentStorageManager : public IOTAProjectFileStorageNotifier, public IDeploymentStorage {
public:
  /// `host` must outlive the manager.
  explicit TDeploymentStorageManager(VelmorIDEServices& host) : FHost(host) {}

  std::string GetName() const override;
  TSectionLayout GetLayout(IXMLNode& node) const override;
  // Modules without a deployment are skipped by all four.
  void CreatingProject(IOTAModule& projectOrGroup) override;
  /// Throws TInputError when the section cannot be understood; the entries before the error stay.
  void ProjectLoaded(IOTAModule& projectOrGroup, IXMLNode* node) override;
  void ProjectSaving(IOTAModule& projectOrGroup, IXMLNode& node) override;
  void ProjectClosing(IOTAModule& projectOrGroup) override;

  void ReadDefaultDeployment(ICustomProject& project, IProjectDeployment& deployment) override;
  void WriteMSB(ICustomProject& project, IProjectDeployment& deployment) override;

  /// Adds the content of a section to the deployment; an element of another name is ignored.
  void Read(IProjectDeployment& deployment, IXMLNode& node);
  /// Rebuilds the section from the deployment.
  void Write(IProjectDeployment& deployment, IXMLNode& node) const;

private:
  void ReadSection(IProjectDeployment& deployment, IXMLNode& node, TLostContent* lost);

  VelmorIDEServices& FHost;
  /// Layout of the section last read, of whichever project, or of the default deployment.
  int FDeploymentFileVersion = 0;
};

} // namespace deployment
