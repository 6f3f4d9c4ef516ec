// Host unit Projectfileutils: operations on project files as a whole.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/msbnodes.h"

#include <memory>
#include <string_view>

namespace deployment {

/// Implemented by the host, good as long as it runs.
class IProjectFileUtils {
public:
  virtual ~IProjectFileUtils() = default;
  /// Loads a file, which is to be an MSBuild project, as a template for a new document. Throws
  /// TInputError when it cannot be read or is none.
  virtual std::shared_ptr<IMSBuildProjectDocument>
  MSBuildLoadProjectDocument(std::string_view fileName) = 0;
  /// Makes sure, in memory, that the project file imports `import` under the condition. An import
  /// that is there already, with whatever condition, stays as it is.
  virtual void EnsureImport(ICustomProject& project, std::string_view import,
                            std::string_view condition) = 0;
};

} // namespace deployment
