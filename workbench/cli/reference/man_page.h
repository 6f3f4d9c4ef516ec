// Pages of the manual in the language of man, made of what the commands declare.
#pragma once

#include "workbench/cli/reference/command_reference.h"

#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// What the pages need to know besides one command.
struct TManual {
  std::string Version; ///< of the program, such as "0.1.0"
  std::vector<TCommandReference> Commands;
  std::vector<TOptionReference> CommonOptions;
};

/// The page of the program, "deploymgr(1)".
std::string ProgramManPage(const TManual& manual);
/// The page of a command, "deploymgr-NAME(1)".
std::string CommandManPage(const TManual& manual, const TCommandReference& command);

/// Text that stands for itself: nothing in it is taken for a request or an escape.
std::string ManText(std::string_view text);

} // namespace workbench
