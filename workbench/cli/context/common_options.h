// What every command takes, and the statuses that every one ends with: for the parser, the pages of
// the manual and the completions alike.
#pragma once

#include "workbench/cli/context/command.h"
#include "workbench/cli/context/options.h"

#include <span>
#include <string>
#include <string_view>

namespace workbench {

/// Declares the options that every command takes; they land in `options`.
void AddCommonOptions(IOptions& declared, TCommonOptions& options);

/// What the program is for, in one sentence.
inline constexpr std::string_view ProgramDescription =
    "Keeps the list of files that must reach each target platform of a project.";

/// Options that print a text and end.
struct TTextOption {
  std::string_view Names; ///< short and long form, as the parser takes them
  std::string_view Help;
};
inline constexpr TTextOption HelpOption{"-h,--help", "Print this help and end"};
inline constexpr TTextOption VersionOption{"-V,--version", "Print the version and end"};

/// One exit status, or several that mean the same.
struct TExitStatusText {
  std::string_view Status;
  std::string_view Meaning;
};

/// All of them in ascending order.
std::span<const TExitStatusText> ExitStatusTexts();
/// The same as one line of a help text.
std::string ExitStatusLine();

} // namespace workbench
