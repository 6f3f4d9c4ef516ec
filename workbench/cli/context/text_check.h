// Which texts of the command line can stand in a project.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "workbench/session/session.h"

#include <string>
#include <string_view>

namespace workbench {

/// Throws TUsageError when the text holds control characters, or others that an XML file cannot
/// hold. `what` names it in the message.
void CheckStorable(const std::string& what, std::string_view text);

/// Throws TUsageError when the text cannot be the name of a configuration and the like: names stand
/// in conditions and in ";"-lists of projects.
void CheckName(const std::string& what, const std::string& name);

/// Throws TUsageError when a build could not evaluate the condition for one of the targets of the
/// entry: the side file would carry it, and the project that imports it would open no more.
void CheckCondition(const std::string& condition, const TOpenProject& project,
                    const deployment::IProjectDeploymentFile& file);

} // namespace workbench
