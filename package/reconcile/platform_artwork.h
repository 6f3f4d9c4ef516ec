// Icons, spotlight and settings images, launch and splash images of mobile platforms: the tables of
// the options that name them.
#pragma once

#include "package/host/api/deploymentapi.h"

#include <memory>
#include <string_view>
#include <vector>

namespace deployment {

/// One image of a platform.
struct TArtworkFileData {
  std::string_view ClassName;  ///< the option that names the image, and the class of its entry
  std::string_view RemoteName; ///< name on the device; empty where the class decides
  /// The entry, once one is attached; the tables leave it null.
  std::shared_ptr<IProjectDeploymentFile> DeploymentFile = nullptr;
};

/// The images of a platform for a device family ("iPhone", "iPad", anything else for both), in
/// order; none for a platform without artwork.
std::vector<TArtworkFileData> GetPlatformArtWork(std::string_view platform,
                                                 std::string_view deviceFamily);

} // namespace deployment
