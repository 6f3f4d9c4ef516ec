// Which files of a deploy are links that stay links on the target.
#pragma once

#include "workbench/remote/target/remote_connection.h"

#include <filesystem>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// A file of a deploy, as far as links are concerned.
struct TLinkCandidate {
  std::filesystem::path LocalFile;
  TRemoteName Target;      ///< resolved
  bool MayTakePart = true; ///< it is copied as it is, to a place below the profile's path
};

/// For each file the text of the link that is to be made on the target, with "/" as delimiter;
/// empty where the content is deployed. A link stays one where the file that it leads to here takes
/// part in the deploy: it leads to that one's place there. So a link never leads out of what is
/// deployed, whatever stands in it, and never to nothing.
std::vector<std::string> LinkTexts(std::span<const TLinkCandidate> files);

/// SHA-256 of what a link stores, which stands for its content.
std::string LinkHash(std::string_view text);

} // namespace workbench
