// Offers the optional files of the catalog for a project.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/ideservices.h"

#include <string_view>

namespace deployment {

/// Where the user's settings say whether the dialog comes up by itself.
inline constexpr std::string_view FeaturedSettingsSection = "DeploymentManager";
inline constexpr std::string_view ShowFeaturedFormAuto = "ShowFeaturedFormAuto";

/// Shows the dialog and applies what is chosen. With an extension, only the features that claim it
/// are offered, and not again once their classes are recorded in the project; an empty one is the
/// user's own wish to see them all. `showAuto` is the state of the box "Show automatically when
/// required", which the user may change; the caller keeps it. Does nothing in a host without
/// dialogs. Throws TInputError when the catalog cannot be understood; nothing is changed then.
void ModifyFeaturedFiles(ICustomProject& project, bool& showAuto, std::string_view extension,
                         VelmorIDEServices& host);

} // namespace deployment
