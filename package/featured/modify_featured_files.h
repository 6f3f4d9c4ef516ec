// Offers the optional files of the catalog for a project.
#pragma once

#include "package/host/api/codemgr.h"
#include "package/host/api/forms.h"
#include "package/host/api/ideservices.h"

#include <memory>
#include <string_view>

namespace deployment {

/// Where the user's settings say whether the dialog comes up by itself.
inline constexpr std::string_view FeaturedSettingsSection = "DeploymentManager";
inline constexpr std::string_view ShowFeaturedFormAuto = "ShowFeaturedFormAuto";

/// True when the dialog may come up by itself.
bool MayOfferFeaturedFiles(VelmorIDEServices& host);

/// The door to the dialog. With an extension it comes up by itself, when the user's settings let
/// it; an empty one is the user's own wish, which the settings do not keep away. What the user says
/// in the box "Show automatically when required" goes into the settings. True when the user said
/// OK. Throws as ModifyFeaturedFiles.
bool AskForFeaturedFiles(ICustomProject& project, std::string_view extension,
                         VelmorIDEServices& host);

/// Shows the dialog and applies what is chosen. With an extension, only the features that claim it
/// are offered, and not again once their classes are recorded in the project; an empty one offers
/// them all. `showAuto` is the state of the box, which the user may change; the caller keeps it.
/// Does nothing in a host without dialogs. True when the user said OK. Throws TInputError when the
/// catalog cannot be understood; nothing is changed then.
bool ModifyFeaturedFiles(ICustomProject& project, bool& showAuto, std::string_view extension,
                         VelmorIDEServices& host);

/// The dialog as it would come up, for whoever wants to look without showing it. Project and host
/// must outlive it. Throws TInputError when the catalog cannot be understood.
std::shared_ptr<const IFeatureFileForm>
LookAtFeaturedFiles(ICustomProject& project, std::string_view extension, VelmorIDEServices& host);

} // namespace deployment
