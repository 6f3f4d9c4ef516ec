// What an entry says for the platform that a frame shows, which may be all of them: then the
// entry's own platforms speak together, and an edit reaches each of them. Nothing is written under
// the name of all platforms, which no reader of the project would find.
#pragma once

#include "package/host/api/deploymentapi.h"

#include <string>
#include <string_view>

namespace deployment::target_values {

/// True when an edit for the platform reaches the entry: it holds the platform, compared exactly,
/// or any platform at all where `platform` is "All Platforms".
bool CanEdit(const IProjectDeploymentFile& file, std::string_view platform);

/// For "All Platforms": true when the entry is enabled for each of its platforms.
bool GetEnabled(const IProjectDeploymentFile& file, std::string_view platform);
/// For "All Platforms": false when each of its platforms says so.
bool GetOverwrite(const IProjectDeploymentFile& file, std::string_view platform);
/// The entry's own or its class's. For "All Platforms": what all its platforms agree on, else what
/// holds for a platform without a record.
std::string GetRemoteDir(const IProjectDeploymentFile& file, std::string_view platform,
                         const IDeploymentClassList& classes);
std::string GetRemoteName(const IProjectDeploymentFile& file, std::string_view platform);

void SetEnabled(IProjectDeploymentFile& file, std::string_view platform, bool value);
void SetOverwrite(IProjectDeploymentFile& file, std::string_view platform, bool value);
void SetRemoteDir(IProjectDeploymentFile& file, std::string_view platform, std::string_view value);
void SetRemoteName(IProjectDeploymentFile& file, std::string_view platform, std::string_view value);

} // namespace deployment::target_values
