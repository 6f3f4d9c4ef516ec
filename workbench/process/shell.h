// The shells that run command lines on machines, and how each is spoken to.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace workbench {

/// What a machine runs command lines with.
enum class TShell {
  None,       ///< nothing: it runs no commands, or they go to a shell that is not known
  Posix,      ///< sh and those like it
  Cmd,        ///< the command interpreter of Windows
  PowerShell, ///< either edition
};

/// "a POSIX shell", "cmd", "PowerShell" or "no known shell".
std::string_view ShellName(TShell shell);

/// A command line that any shell answers in a way of its own and that changes nothing.
extern const std::string_view ShellProbe;
/// The shell that answered the probe with this output.
TShell ShellOfAnswer(std::string_view output);

/// The text as one word that means itself; nothing when the shell has no way to say it.
std::optional<std::string> QuotedFor(TShell shell, std::string_view text);

/// A command line that runs `command` in the directory of that full path, and fails when there is
/// none. "/C:/x" is on a drive. Nothing when it cannot be said.
std::optional<std::string> InDirectory(TShell shell, std::string_view directory,
                                       std::string_view command);

/// A command line that runs a file of the current directory.
std::optional<std::string> RunFileCommand(TShell shell, std::string_view name);

} // namespace workbench
