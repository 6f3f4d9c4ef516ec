// The files of this machine that a command line names, as they stand on a list.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/session/added_file.h"

#include <string>
#include <vector>

namespace workbench {

/// What the command line says about files.
struct TFileArguments {
  std::vector<std::string> Files; ///< names, names with macros, and patterns
  std::vector<std::string> Trees; ///< directories
  bool MissingOk = false;         ///< a file may come later
  bool Outside = false;           ///< a file may stand beyond the project's directory
  bool Chains = true;             ///< a versioned library comes with the links that lead to it
};

/// All of them, each once, in order. Throws TWorkError, before anything is changed, for a file that
/// is not there or stands outside, and for a pattern or a directory without files; TUsageError for
/// a name that cannot be stored.
std::vector<TAddedFile> CollectFiles(TCommandContext& context, const TFileArguments& arguments,
                                     const TOpenProject& project);

} // namespace workbench
