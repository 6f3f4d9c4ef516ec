// Turns a file argument into the local name that the list stores.
#pragma once

#include "workbench/cli/command.h"

#include <filesystem>
#include <string>

namespace workbench {

/// A name to be stored, and whether the file is there now.
struct TAddedFile {
  std::string LocalName;
  bool Exists = true;
};

/// A name with macros is stored as given. A file that stands relative to the current directory is
/// stored as seen from the project's directory; one that stands relative to the project, or
/// nowhere, as given, with "\" as delimiter. Throws TUsageError for names that cannot be stored,
/// and TWorkError for a directory.
TAddedFile LocalNameOf(const std::string& argument, const std::filesystem::path& projectFile);

} // namespace workbench
