// What a deployment asks of the storage that knows the layout of project files and templates.
#pragma once

namespace deployment {

class ICustomProject;
class IProjectDeployment;

/// Implemented by the storage manager, which outlives every deployment that was given it.
class IDeploymentStorage {
public:
  virtual ~IDeploymentStorage() = default;
  /// Adds the default classes and files of the project to the deployment. A missing template adds
  /// nothing. Throws TInputError when the template cannot be understood.
  virtual void ReadDefaultDeployment(ICustomProject& project, IProjectDeployment& deployment) = 0;
  /// Writes the project's MSBuild deployment project beside the project file. Throws what the
  /// host's save throws.
  virtual void WriteMSB(ICustomProject& project, IProjectDeployment& deployment) = 0;
};

} // namespace deployment
