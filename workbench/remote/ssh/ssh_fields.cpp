#include "workbench/remote/ssh/ssh_fields.h"

#include "package/common/case_fold.h"

#include <algorithm>
#include <array>
#include <stdexcept>

namespace workbench {
namespace {

constexpr unsigned LargestPort = 65535;
constexpr unsigned LongestTime = 3600; // seconds

constexpr std::string_view Letters = "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ";
constexpr std::string_view Digits = "0123456789";
// Names, addresses of both kinds with their scope, and aliases of the client's configuration.
constexpr std::string_view OtherInHost = ".-_:%+";
constexpr std::string_view NotInUser = "@;:\"'`$&|<>()*?!#/ \t";

// A connection sets these itself; another value would break it or its promises.
constexpr std::array<std::string_view, 16> OwnOptions{"BatchMode",
                                                      "ClearAllForwardings",
                                                      "ConnectTimeout",
                                                      "ControlMaster",
                                                      "ControlPath",
                                                      "ControlPersist",
                                                      "EscapeChar",
                                                      "ForkAfterAuthentication",
                                                      "LogLevel",
                                                      "PermitLocalCommand",
                                                      "RemoteCommand",
                                                      "RequestTTY",
                                                      "ServerAliveCountMax",
                                                      "ServerAliveInterval",
                                                      "SessionType",
                                                      "StrictHostKeyChecking"};

bool ConsistsOf(std::string_view text, std::initializer_list<std::string_view> sets) {
  return std::ranges::all_of(text, [&](char c) {
    return std::ranges::any_of(
        sets, [c](std::string_view set) { return set.find(c) != std::string_view::npos; });
  });
}

bool HasControls(std::string_view text) {
  return std::ranges::any_of(
      text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7f'; });
}

[[noreturn]] void Refuse(const TProfile& profile, const std::string& reason) {
  throw std::invalid_argument("the profile \"" + profile.Name + "\": " + reason);
}

void CheckOption(const TProfile& profile, std::string_view option) {
  const std::size_t sign = option.find('=');
  const std::string_view key = option.substr(0, sign);
  if (sign == std::string_view::npos || sign + 1 == option.size() || key.empty() ||
      !ConsistsOf(key, {Letters, Digits}) || HasControls(option))
    Refuse(profile, "\"" + std::string(option) + "\" is no option of the form KEY=VALUE");
  const auto isKey = [key](std::string_view own) { return deployment::SameText(own, key); };
  if (std::ranges::any_of(OwnOptions, isKey))
    Refuse(profile, "the option " + std::string(key) + " is set by the connection itself");
}

void CheckTime(const TProfile& profile, const char* what, unsigned seconds) {
  if (seconds < 1 || seconds > LongestTime)
    Refuse(profile, std::string(what) + " is " + std::to_string(seconds) +
                        " seconds, and can be 1 to " + std::to_string(LongestTime));
}

} // namespace

void CheckSshFields(const TProfile& profile) {
  if (profile.Host.empty())
    Refuse(profile, "no host is given");
  if (profile.Host.front() == '-' || !ConsistsOf(profile.Host, {Letters, Digits, OtherInHost}))
    Refuse(profile, "\"" + profile.Host + "\" cannot be a host");
  if (profile.Port > LargestPort)
    Refuse(profile, std::to_string(profile.Port) + " cannot be a port; ports are 1 to 65535");
  if (profile.User.starts_with('-') || HasControls(profile.User) ||
      profile.User.find_first_of(NotInUser) != std::string::npos)
    Refuse(profile, "\"" + profile.User + "\" cannot be a user");
  if (profile.Identity.starts_with('-') || HasControls(profile.Identity))
    Refuse(profile, "\"" + profile.Identity + "\" cannot be the file of a key");
  for (const std::string& option : profile.SshOptions)
    CheckOption(profile, option);
  CheckTime(profile, "the time-out of a connection", profile.ConnectTimeout);
  CheckTime(profile, "the time between two signs of life", profile.KeepAlive);
}

} // namespace workbench
