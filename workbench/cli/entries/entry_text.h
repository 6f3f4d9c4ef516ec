// Entries of a deployment as lines for people.
#pragma once

#include "package/host/api/deploymentapi.h"
#include "workbench/cli/context/output.h"

#include <string>

namespace workbench {

/// Names of the operations, in order of their ordinals.
std::string OperationName(deployment::TDeployOperation operation);

/// One line: local name, class, configuration, and for each platform where the file goes.
std::string FileLine(deployment::IProjectDeploymentFile& file, const TOutput& output);
/// One line: name, description, and the directory on each platform.
std::string ClassLine(deployment::IProjectDeploymentClass& deploymentClass, const TOutput& output);
/// "data\x.dat (Debug; Win32, Android)", for messages.
std::string EntryName(const deployment::IProjectDeploymentFile& file);

} // namespace workbench
