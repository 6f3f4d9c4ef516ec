#include "workbench/remote/ssh/known_hosts.h"

#include "workbench/files/file_descriptor.h"
#include "workbench/files/runtime_directory.h"
#include "workbench/remote/ssh/askpass.h"
#include "workbench/remote/target/remote_connection.h"

#include <array>
#include <charconv>
#include <fcntl.h>
#include <fstream>
#include <sstream>
#include <sys/stat.h>

namespace workbench {
namespace {

constexpr std::string_view Blanks = " \t\r";

std::string_view NextWord(std::string_view& line) {
  line.remove_prefix(std::min(line.find_first_not_of(Blanks), line.size()));
  const std::string_view word = line.substr(0, line.find_first_of(Blanks));
  line.remove_prefix(word.size());
  return word;
}

std::string_view NextLine(std::string_view& text) {
  const std::string_view line = text.substr(0, text.find('\n'));
  text.remove_prefix(std::min(line.size() + 1, text.size()));
  return line;
}

// The client prints full paths behind each other, without quotes.
std::vector<std::filesystem::path> ParsePaths(std::string_view text) {
  std::vector<std::filesystem::path> paths;
  while (!text.empty()) {
    const std::size_t end = std::min(text.find(" /"), text.size());
    if (text.starts_with('/') && text.substr(0, end) != "/dev/null")
      paths.emplace_back(text.substr(0, end));
    text.remove_prefix(std::min(end + 1, text.size()));
  }
  return paths;
}

// The number behind the last "line " of "# Host NAME found: line 3".
unsigned LineNumber(std::string_view text) {
  constexpr std::string_view Word = "line ";
  const std::size_t at = text.rfind(Word);
  unsigned number = 0;
  if (at != std::string_view::npos)
    std::from_chars(text.data() + at + Word.size(), text.data() + text.size(), number);
  return number;
}

std::string TextOf(const TKeyText& key) {
  return (key.Marker.empty() ? "" : key.Marker + " ") + key.Host + " " + key.Type + " " +
         key.Base64 + "\n";
}

std::filesystem::path WriteScratch(const TScratchDirectory& directory, const std::string& text) {
  auto file = directory.Path() / "key";
  std::ofstream(file, std::ios::binary) << text;
  return file;
}

std::string ReadWhole(const std::filesystem::path& file) {
  std::ostringstream text;
  text << std::ifstream(file, std::ios::binary).rdbuf();
  return text.str();
}

std::string Hashed(const TKeyText& key) {
  const TScratchDirectory scratch;
  const auto file = WriteScratch(scratch, TextOf(key));
  std::string text =
      RunSshTool({"ssh-keygen", "-H", "-f", file.string()}) ? ReadWhole(file) : std::string();
  if (!ParseKeyText(text.substr(0, text.find('\n'))))
    throw TConnectionError("the host key cannot be kept: ssh-keygen did not hash it");
  return text;
}

// True when more can be written behind what stands there.
bool EndsWithLine(const TFileDescriptor& file, off_t size) {
  char last = '\n';
  return size == 0 || (::pread(file.Get(), &last, 1, size - 1) == 1 && last == '\n');
}

// In one piece, since the client may append at the same time.
void AppendWhole(const std::filesystem::path& path, const std::string& line) {
  const TFileDescriptor file(
      ::open(path.c_str(), O_RDWR | O_APPEND | O_CREAT | O_CLOEXEC, S_IRUSR | S_IWUSR));
  struct stat status = {};
  if (!file.IsOpen() || ::fstat(file.Get(), &status) != 0)
    ThrowSystemError("opening it");
  const std::string text = (EndsWithLine(file, status.st_size) ? "" : "\n") + line;
  if (::write(file.Get(), text.data(), text.size()) != static_cast<ssize_t>(text.size()) ||
      ::fsync(file.Get()) != 0)
    ThrowSystemError("writing");
}

} // namespace

std::vector<std::string> SshProfileOptions(const TProfile& profile) {
  std::vector<std::string> words;
  words.reserve(profile.SshOptions.size() + 3);
  if (profile.Port != 0)
    words.push_back("-oPort=" + std::to_string(profile.Port));
  if (!profile.User.empty())
    words.push_back("-oUser=" + profile.User);
  if (!profile.Identity.empty())
    words.push_back("-oIdentityFile=" + profile.Identity);
  for (const std::string& option : profile.SshOptions)
    words.push_back("-o" + option);
  return words;
}

std::optional<std::string> RunSshTool(std::vector<std::string> command) {
  std::string output;
  const std::string program = command.front();
  try {
    const TProcessEnd end = RunProcess(
        {.Command = std::move(command), .Environment = EnvironmentWith(AskingNobody())}, nullptr,
        [&](std::string_view bytes) { output += bytes; }, [] { return false; });
    return end.Status == 0 ? std::optional(output) : std::nullopt;
  } catch (const std::system_error& error) {
    throw TConnectionError(program + " cannot be run: " + error.what());
  }
}

TKnownHostsPlaces FindKnownHosts(const TProfile& profile) {
  std::vector<std::string> command{"ssh", "-G"};
  for (std::string& word : SshProfileOptions(profile))
    command.push_back(std::move(word));
  command.insert(command.end(), {"--", profile.Host});
  const auto text = RunSshTool(std::move(command));
  if (!text)
    throw TConnectionError("the SSH client does not say where it keeps host keys");
  return ParseKnownHostsPlaces(*text);
}

TKnownHostsPlaces ParseKnownHostsPlaces(std::string_view text) {
  TKnownHostsPlaces places;
  while (!text.empty()) {
    std::string_view line = NextLine(text);
    const std::string_view key = NextWord(line);
    line.remove_prefix(line.empty() ? 0 : 1);
    if (key == "userknownhostsfile")
      places.UserFiles = ParsePaths(line);
    else if (key == "globalknownhostsfile")
      places.GlobalFiles = ParsePaths(line);
    else if (key == "hashknownhosts")
      places.Hashes = line == "yes";
  }
  return places;
}

std::optional<TKeyText> ParseKeyText(std::string_view line) {
  TKeyText key;
  std::string_view word = NextWord(line);
  if (word.starts_with('#'))
    return std::nullopt;
  if (word.starts_with('@')) {
    key.Marker = word;
    word = NextWord(line);
  }
  key.Host = word;
  key.Type = NextWord(line);
  key.Base64 = NextWord(line);
  return key.Base64.empty() ? std::nullopt : std::optional(key);
}

std::vector<TKnownKey> LookUpHost(const TKnownHostsPlaces& places, const std::string& host) {
  std::vector<TKnownKey> known;
  for (const auto* files : {&places.UserFiles, &places.GlobalFiles}) {
    for (const std::filesystem::path& file : *files) {
      std::error_code ignored;
      if (!std::filesystem::exists(file, ignored))
        continue;
      const auto found = RunSshTool({"ssh-keygen", "-F", host, "-f", file.string()});
      std::string_view text = found ? std::string_view(*found) : std::string_view();
      unsigned number = 0;
      while (!text.empty()) {
        const std::string_view line = NextLine(text);
        if (line.starts_with('#'))
          number = LineNumber(line);
        else if (auto key = ParseKeyText(line))
          known.push_back({std::move(*key), file, number});
      }
    }
  }
  return known;
}

void KeepKey(const TKnownHostsPlaces& places, const TKeyText& key) {
  if (places.UserFiles.empty())
    throw TConnectionError("the host key cannot be kept: the configuration of the SSH client names "
                           "no file for it");
  const std::filesystem::path& file = places.UserFiles.front();
  try {
    if (::mkdir(file.parent_path().c_str(), S_IRWXU) != 0 && errno != EEXIST)
      ThrowSystemError("making its directory");
    AppendWhole(file, places.Hashes ? Hashed(key) : TextOf(key));
  } catch (const std::system_error& error) {
    throw TConnectionError("the host key cannot be kept in " + file.string() + ": " + error.what());
  }
}

TKeyPrint PrintOf(const TKeyText& key) {
  const TScratchDirectory scratch;
  const auto file = WriteScratch(scratch, key.Type + " " + key.Base64 + "\n");
  // "256 SHA256:... no comment (ED25519)"
  const auto said = RunSshTool({"ssh-keygen", "-l", "-E", "sha256", "-f", file.string()});
  std::string_view line = said ? std::string_view(*said) : std::string_view();
  line = line.substr(0, line.find('\n'));
  NextWord(line);
  TKeyPrint print;
  print.Fingerprint = NextWord(line);
  const std::size_t open = line.rfind('(');
  const std::size_t close = line.rfind(')');
  if (!print.Fingerprint.starts_with("SHA256:") || open == std::string_view::npos || close < open)
    throw TConnectionError("ssh-keygen cannot read a host key of type \"" + key.Type + "\"");
  print.Type = line.substr(open + 1, close - open - 1);
  return print;
}

} // namespace workbench
