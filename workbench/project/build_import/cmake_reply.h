// The install rules of a CMake build directory, as CMake's File API tells them.
#pragma once

#include "workbench/project/build_import/install_plan.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// True for a directory that CMake has configured.
bool IsCMakeBuild(const std::filesystem::path& directory);

/// True when CMake has left a reply about the build's rules there.
bool HasCMakeReply(const std::filesystem::path& directory);

/// Writes the question into the build directory and runs CMake there, which answers it. Throws
/// TInputError, with what CMake said, when it fails or leaves no reply.
void AskCMake(const std::filesystem::path& directory);

/// Reads the reply; `components` as for TInstallCollector. Throws TInputError with the place.
TInstallPlan ReadCMakeReply(const std::filesystem::path& directory,
                            const std::vector<std::string>& components);

} // namespace workbench
