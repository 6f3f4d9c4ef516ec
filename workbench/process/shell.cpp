#include "workbench/process/shell.h"

#include "workbench/process/shell_text.h"

#include <algorithm>
#include <array>

namespace workbench {
namespace {

bool HasControls(std::string_view text) {
  return std::ranges::any_of(
      text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; });
}

// Inside its quotes all but these mean themselves; "%" is looked up there, too.
std::optional<std::string> QuotedForCmd(std::string_view text) {
  if (HasControls(text) || text.find_first_of("\"%") != std::string_view::npos)
    return std::nullopt;
  // What reads its arguments in the usual way takes "\"" for a quote, and "\\" in front of one for
  // "\".
  const std::size_t last = text.find_last_not_of('\\');
  const std::size_t trailing = text.size() - (last == std::string_view::npos ? 0 : last + 1);
  return "\"" + std::string(text) + std::string(trailing, '\\') + "\"";
}

// A quote is doubled; typographic ones end a text as the plain one does.
std::optional<std::string> QuotedForPowerShell(std::string_view text) {
  if (HasControls(text))
    return std::nullopt;
  constexpr std::array<std::string_view, 5> Quotes{"'", "\xE2\x80\x98", "\xE2\x80\x99",
                                                   "\xE2\x80\x9A", "\xE2\x80\x9B"};
  std::string quoted = "'";
  while (!text.empty()) {
    const auto found = std::ranges::find_if(
        Quotes, [text](std::string_view quote) { return text.starts_with(quote); });
    const std::string_view next = found == Quotes.end() ? text.substr(0, 1) : *found;
    quoted += next;
    if (found != Quotes.end())
      quoted += next;
    text.remove_prefix(next.size());
  }
  return quoted + "'";
}

bool IsOnDrive(std::string_view path) {
  return path.size() > 2 && path[0] == '/' && path[2] == ':';
}

// The drive's own way to write a path that file transfer begins with "/".
std::string PathFor(TShell shell, std::string_view path) {
  std::string text(IsOnDrive(path) ? path.substr(1) : path);
  if (shell == TShell::Cmd || (shell == TShell::PowerShell && IsOnDrive(path)))
    std::ranges::replace(text, '/', '\\');
  return text;
}

std::optional<std::string> Around(std::string_view before, const std::optional<std::string>& word,
                                  std::string_view after = {}) {
  return word ? std::optional(std::string(before) + *word + std::string(after)) : std::nullopt;
}

} // namespace

const std::string_view ShellProbe = "echo deploymgr %ComSpec% $PSVersionTable.PSEdition";

std::string_view ShellName(TShell shell) {
  constexpr std::array<std::string_view, 4> Names{"no known shell", "a POSIX shell", "cmd",
                                                  "PowerShell"};
  return Names[static_cast<std::size_t>(shell)];
}

// A POSIX shell finds no such variable and leaves the rest; cmd knows its own one alone;
// PowerShell leaves the other one and tells its edition.
TShell ShellOfAnswer(std::string_view output) {
  const auto has = [output](std::string_view part) {
    return output.find(part) != std::string_view::npos;
  };
  if (!has("deploymgr"))
    return TShell::None;
  if (has("%ComSpec% .PSEdition"))
    return TShell::Posix;
  if (has("%ComSpec%"))
    return has("Desktop") || has("Core") ? TShell::PowerShell : TShell::None;
  return has("$PSVersionTable.PSEdition") ? TShell::Cmd : TShell::None;
}

std::optional<std::string> QuotedFor(TShell shell, std::string_view text) {
  if (text.find('\0') != std::string_view::npos)
    return std::nullopt;
  switch (shell) {
  case TShell::Posix:
    return ShellQuoted(text);
  case TShell::Cmd:
    return QuotedForCmd(text);
  case TShell::PowerShell:
    return QuotedForPowerShell(text);
  case TShell::None:
    break;
  }
  return std::nullopt;
}

std::optional<std::string> InDirectory(TShell shell, std::string_view directory,
                                       std::string_view command) {
  const auto word = QuotedFor(shell, PathFor(shell, directory));
  switch (shell) {
  case TShell::Posix:
    return Around("cd ", word, " || exit 1\n" + std::string(command));
  case TShell::Cmd:
    return Around("cd /d ", word, " || exit 1 & " + std::string(command));
  case TShell::PowerShell:
    return Around("$ErrorActionPreference = 'Stop'; Set-Location -LiteralPath ", word,
                  "; $LASTEXITCODE = 0; " + std::string(command) +
                      "; if ($LASTEXITCODE) { exit $LASTEXITCODE }");
  case TShell::None:
    break;
  }
  return std::nullopt;
}

std::optional<std::string> RunFileCommand(TShell shell, std::string_view name) {
  if (shell == TShell::Cmd)
    return QuotedFor(shell, ".\\" + std::string(name));
  return Around(shell == TShell::PowerShell ? "& " : "",
                QuotedFor(shell, "./" + std::string(name)));
}

} // namespace workbench
