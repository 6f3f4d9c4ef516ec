// The files beyond its own tree that the user let a project send. They stand among the user's
// settings, so that no project can bring a yes of its own.
#pragma once

#include "workbench/settings/settings_store.h"

#include <filesystem>
#include <string>
#include <vector>

namespace workbench {

/// Those of the files (full paths) that the user has not said yes to yet. Throws TInputError, with
/// the settings file, when what is kept cannot be understood.
std::vector<std::string> SourcesWithoutConsent(const TSettings& settings,
                                               const std::filesystem::path& project,
                                               const std::vector<std::string>& files);
/// Keeps the user's yes beside those that were given before, each file once. Throws as
/// TSettings::Set does, and as SourcesWithoutConsent.
void AllowSources(TSettings& settings, const std::filesystem::path& project,
                  const std::vector<std::string>& files);

} // namespace workbench
