// Brings the entries that came from a build in line with what the build installs now.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "workbench/project/build_import/build_record.h"

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// What became of one file.
struct TListUpdate {
  enum class TAction {
    Added,
    Changed,
    Removed,
    Present,    ///< the user had put it on the list already; it stays as it is
    StaysOut,   ///< the user took it off the list
    StaysInList ///< the build does not install it any more, but the user changed its entry
  };
  TAction Action;
  std::string LocalName;
  std::string Configuration;
};

/// Entries that nobody touched follow the build. What a person changed on an entry stays, value by
/// value; so does an entry that was taken off the list or put there by hand. `before` is what was
/// taken last. Classes of components that are new are added. Returns what was done, in the order of
/// `now`; what is as it should be is not mentioned.
std::vector<TListUpdate> UpdateList(deployment::IProjectDeployment& deployment,
                                    std::string_view platform,
                                    const std::vector<TTakenFile>& before,
                                    const std::vector<TTakenFile>& now);

} // namespace workbench
