// What a command line that is being typed may go on with, for the completions of shells.
#pragma once

#include "workbench/cli/reference/command_reference.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace workbench {

/// The first argument of a program that a shell asks for completions; then come the shell's name
/// and the words behind the program's name, the one at the cursor last.
inline constexpr std::string_view CompletionArgument = "__complete";

/// What the shell is told. The first line is "words", or what the shell knows better itself:
/// "files", "directories" or "projects". Behind "words" comes a line for each candidate that begins
/// as the current word does, with its description behind a tab. Never throws, save for want of
/// memory.
std::string CompletionsOf(const std::vector<std::unique_ptr<ICommand>>& commands,
                          std::string_view shell, const std::vector<std::string>& words);

} // namespace workbench
