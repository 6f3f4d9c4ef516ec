#include "workbench/remote/ssh/host_keys.h"

#include "workbench/files/runtime_directory.h"
#include "workbench/process/shell_text.h"
#include "workbench/remote/ssh/askpass.h"
#include "workbench/remote/target/remote_connection.h"

#include <algorithm>
#include <fstream>

namespace workbench {
namespace {

constexpr std::string_view RevokedMarker = "@revoked";
constexpr std::string_view AuthorityMarker = "@cert-authority";

bool IsSame(const TKeyText& left, const TKeyText& right) {
  return left.Type == right.Type && left.Base64 == right.Base64;
}

std::string Described(const TKeyPrint& print) {
  return print.Type + " " + print.Fingerprint;
}

[[noreturn]] void RefuseRevoked(const TKeyText& offered, const TKnownKey& line) {
  throw TConnectionError("the host key of " + offered.Host + " (" + Described(PrintOf(offered)) +
                         ") was revoked in " + line.File.string() + ", line " +
                         std::to_string(line.Line));
}

[[noreturn]] void RefuseChanged(const TKeyText& offered, const TKnownKey& line) {
  const std::string file = line.File.string();
  throw TConnectionError("the host key of " + offered.Host +
                         " has changed, so this may be another machine: known is " +
                         Described(PrintOf(line.Key)) + ", offered is " +
                         Described(PrintOf(offered)) + ". If the change is right, remove line " +
                         std::to_string(line.Line) + " of " + file + ": ssh-keygen -f " +
                         ShellQuoted(file) + " -R " + ShellQuoted(offered.Host));
}

[[noreturn]] void RefuseUnknown(const THostKey& key, bool wasAsked) {
  const std::string text =
      "the host key of " + key.Host + " is not known: " + key.Type + " " + key.Fingerprint;
  throw TConnectionError(text + (wasAsked ? "; it was not accepted"
                                          : "; nobody can be asked here whether it is the right "
                                            "one: accept it once at a terminal"));
}

// The known key that the offered one has to be compared with: one of the same type if there is one.
const TKnownKey* FindOther(const std::vector<TKnownKey>& known, const TKeyText& offered) {
  const TKnownKey* other = nullptr;
  for (const TKnownKey& line : known) {
    if (line.Key.Marker.empty() && (!other || line.Key.Type == offered.Type))
      other = &line;
  }
  return other;
}

} // namespace

bool IsAboutHostKey(std::string_view reason) {
  return reason.find("Host key verification failed") != std::string_view::npos;
}

// The client writes the key into a file of its own before it logs in, which it is not let.
std::optional<TKeyText> OfferedHostKey(const TProfile& profile, const TIsCancelled& isCancelled) {
  const TScratchDirectory scratch;
  const auto file = scratch.Path() / "keys";
  std::vector<std::string> command{"ssh",
                                   "-T",
                                   "-x",
                                   "-a",
                                   "-oBatchMode=yes",
                                   "-oCheckHostIP=no",
                                   "-oClearAllForwardings=yes",
                                   "-oConnectTimeout=" + std::to_string(profile.ConnectTimeout),
                                   "-oControlMaster=no",
                                   "-oControlPath=none",
                                   "-oGlobalKnownHostsFile=/dev/null",
                                   "-oHashKnownHosts=no",
                                   "-oKnownHostsCommand=none",
                                   "-oLogLevel=ERROR",
                                   "-oPermitLocalCommand=no",
                                   "-oPreferredAuthentications=none",
                                   "-oRemoteCommand=none",
                                   "-oStrictHostKeyChecking=accept-new",
                                   "-oUserKnownHostsFile=" + file.string(),
                                   "-oVerifyHostKeyDNS=no"};
  for (std::string& word : SshProfileOptions(profile))
    command.push_back(std::move(word));
  command.insert(command.end(), {"--", profile.Host, "true"});
  try {
    RunProcess(
        {.Command = std::move(command), .Environment = EnvironmentWith(AskingNobody())}, nullptr,
        [](std::string_view) {}, isCancelled);
  } catch (const std::system_error& error) {
    throw TConnectionError(std::string("the SSH client cannot be run: ") + error.what());
  }
  std::ifstream keys(file);
  std::string line;
  return std::getline(keys, line) ? ParseKeyText(line) : std::nullopt;
}

bool SettleHostKey(const TProfile& profile, const THostKeyQuestion& ask,
                   const TIsCancelled& isCancelled) {
  const auto offered = OfferedHostKey(profile, isCancelled);
  if (!offered)
    return false;
  const TKnownHostsPlaces places = FindKnownHosts(profile);
  std::vector<TKnownKey> known = LookUpHost(places, offered->Host);
  for (const TKnownKey& line : known) {
    if (IsSame(line.Key, *offered) && line.Key.Marker == RevokedMarker)
      RefuseRevoked(*offered, line);
  }
  std::erase_if(known, [](const TKnownKey& line) { return line.Key.Marker == AuthorityMarker; });
  if (std::ranges::any_of(known, [&](const auto& line) { return IsSame(line.Key, *offered); }))
    return false;
  if (const TKnownKey* other = FindOther(known, *offered))
    RefuseChanged(*offered, *other);
  const TKeyPrint print = PrintOf(*offered);
  const THostKey key{offered->Host, print.Type, print.Fingerprint};
  if (!ask || !ask(key))
    RefuseUnknown(key, static_cast<bool>(ask));
  KeepKey(places, *offered);
  return true;
}

} // namespace workbench
