// The install rules in the directory objects of CMake's code model.
#pragma once

#include "workbench/project/build_import/install_collector.h"
#include "workbench/project/build_import/reply_value.h"

#include <filesystem>
#include <string>

namespace workbench {

/// Where the files of a reply are.
struct TCMakeReplyFiles {
  std::filesystem::path Directory;
  std::filesystem::path Build; ///< the build directory that it speaks of

  /// The file of the reply that the value names. Throws TInputError.
  TReplyValue Read(const TReplyValue& name) const;
};

/// Hands the rules of all directories of one configuration of the code model to the collector; the
/// files count to `nameInProject`. Throws TInputError.
void CollectCMakeInstallers(const TCMakeReplyFiles& files, const TReplyValue& model,
                            const TReplyValue& configuration, const std::string& nameInProject,
                            TInstallCollector& collector);

} // namespace workbench
