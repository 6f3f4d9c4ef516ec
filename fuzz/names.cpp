// Names on targets and texts in command lines: nothing leaves its place, a quoted text is one word
// that means itself, and paths keep their parts.
#include "fuzz/fuzz_input.h"
#include "package/common/delimited_list.h"
#include "package/common/path_text.h"
#include "workbench/msbuild/values/project_paths.h"
#include "workbench/process/shell.h"
#include "workbench/remote/ssh/known_hosts.h"
#include "workbench/remote/target/remote_path.h"
#include "workbench/remote/target/target_place.h"
#include "workbench/remote/target/unfinished_names.h"
#include "workbench/text/utf8.h"
#include "workbench/text/visible_text.h"

#include <array>
#include <optional>

namespace workbench::fuzz {
namespace {

// The one word that a POSIX shell makes of a text; nothing when it is not one word.
std::optional<std::string> PosixWord(std::string_view text) {
  std::string word;
  bool isQuoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == '\'') {
      isQuoted = !isQuoted;
    } else if (isQuoted) {
      word += text[i];
    } else if (text[i] == '\\' && i + 1 < text.size()) {
      word += text[++i];
    } else {
      return std::nullopt;
    }
  }
  return isQuoted ? std::nullopt : std::optional(word);
}

// The same of PowerShell, which takes typographic quotes for plain ones.
std::optional<std::string> PowerShellWord(std::string_view text) {
  const auto quoteLength = [](std::string_view rest) -> std::size_t {
    for (const std::string_view quote :
         {"\xE2\x80\x98", "\xE2\x80\x99", "\xE2\x80\x9A", "\xE2\x80\x9B"}) {
      if (rest.starts_with(quote))
        return quote.size();
    }
    return rest.starts_with('\'') ? 1 : 0;
  };
  std::string word;
  if (!text.starts_with('\''))
    return std::nullopt;
  text.remove_prefix(1);
  while (true) {
    const std::size_t length = quoteLength(text);
    if (length == 0 && text.empty())
      return std::nullopt;
    const std::size_t second = length == 0 ? 0 : quoteLength(text.substr(length));
    if (length > 0 && second == 0)
      return text.size() == length ? std::optional(word) : std::nullopt;
    word += text.substr(0, length == 0 ? 1 : length);
    text.remove_prefix(length == 0 ? 1 : length + second);
  }
}

// What the interpreter of Windows and then the program make of it.
std::optional<std::string> CmdWord(std::string_view text) {
  if (text.size() < 2 || !text.starts_with('"') || !text.ends_with('"'))
    return std::nullopt;
  text = text.substr(1, text.size() - 2);
  if (text.find_first_of("\"%\r\n") != std::string_view::npos)
    return std::nullopt;
  // In front of a quote two of them are one, and one alone would make the quote a part of the word.
  const std::size_t last = text.find_last_not_of('\\');
  const std::size_t count = text.size() - (last == std::string_view::npos ? 0 : last + 1);
  return count % 2 == 0 ? std::optional(std::string(text.substr(0, text.size() - count / 2)))
                        : std::nullopt;
}

void CheckQuoting(std::string_view text) {
  const auto posix = QuotedFor(TShell::Posix, text);
  Require(posix.has_value() == (text.find('\0') == std::string_view::npos),
          "a POSIX shell can be told any text");
  if (posix)
    Require(PosixWord(*posix) == text, "quoted for a POSIX shell it is one word", *posix);
  if (const auto quoted = QuotedFor(TShell::PowerShell, text))
    Require(PowerShellWord(*quoted) == text, "quoted for PowerShell it is one word", *quoted);
  if (const auto quoted = QuotedFor(TShell::Cmd, text))
    Require(CmdWord(*quoted) == text, "quoted for cmd it is one word", *quoted);
}

void CheckPlace(std::string_view text) {
  for (const bool isWindows : {false, true}) {
    const TPlaceRules rules{{isWindows, isWindows}, false};
    const TTargetPlace place = FindTargetPlace(text, rules);
    if (!place.Problem.empty())
      continue;
    const std::string full = place.Name.Directory + "/" + place.Name.Name;
    Require(!place.Name.Name.empty() && place.Name.Name != "." && place.Name.Name != "..",
            "a place has a name", full);
    Require(("/" + full + "/").find("/../") == std::string::npos, "a place does not climb", full);
    Require(!full.starts_with("//") && !(place.Name.Directory + "/").starts_with("~/") &&
                !place.Name.Directory.starts_with('/'),
            "a place is below the profile's path", full);
    Require(place.Name.Name.find_first_of("/\\") == std::string::npos, "a name has no parts", full);
    Require(!isWindows || full.find(':') == std::string::npos, "no drive, no stream", full);
    Require(!IsUnfinishedName(place.Name.Name), "names of unfinished files are kept", full);
    const TTargetPlace again =
        FindTargetPlace(place.Name.Directory.empty() ? place.Name.Name : full, rules);
    Require(again.Problem.empty() && again.Name.Directory == place.Name.Directory &&
                again.Name.Name == place.Name.Name,
            "a place leads to itself", full);
  }
}

void CheckPaths(std::string_view text) {
  using namespace deployment;
  RequireEqual(std::string(DirectoryPart(text)) + std::string(FileNamePart(text)), text,
               "directory and name make the path");
  const std::string canonical = CanonicalizePath(text);
  // A name with a colon in front is a drive when nothing stands before it any more.
  if (text.find(':') == std::string_view::npos)
    RequireEqual(CanonicalizePath(canonical), canonical, "a canonical path is canonical");
  Require(WithTrailingDelimiter(text).ends_with(text.ends_with('/') ? '/' : '\\'),
          "a directory ends in a delimiter");
  std::vector<std::string> items;
  for (const std::string_view item : SplitDelimited(text))
    items.emplace_back(item);
  RequireEqual(JoinDelimited(items), text, "a list joined is the list");
  if (text.find('\0') == std::string_view::npos && !IsForeignPath(text))
    Require(ResolvePath(text, "/tree/project").is_absolute(), "a resolved path is a full one");
}

void CheckShown(std::string_view text) {
  const std::string shown = Visible(text);
  for (const char c : shown)
    Require(static_cast<unsigned char>(c) >= 0x20 && c != '\x7f', "no control is shown", shown);
  Require(!IsUtf8(text) || IsUtf8(shown), "what is shown stays UTF-8", shown);
  if (IsUtf8(text))
    RequireEqual(Visible(shown), shown, "what is visible is shown as it is");
  Require(IsUtf8(SaidText(text)), "what a machine said is shown as UTF-8", text);
}

void CheckKeys(std::string_view text) {
  if (const auto key = ParseKeyText(text.substr(0, text.find('\n'))))
    Require(!key->Type.empty() && !key->Base64.empty(), "a key has its type and text");
  if (const auto name = ParseUnfinishedName(text))
    Require(name->Process > 0 && IsUnfinishedName(text), "an unfinished file has its writer", text);
}

} // namespace
} // namespace workbench::fuzz

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace workbench::fuzz;
  const std::string_view text = TFuzzInput(data, size).Rest();
  CheckQuoting(text);
  CheckPlace(text);
  CheckPaths(text);
  CheckShown(text);
  CheckKeys(text);
  return 0;
}
