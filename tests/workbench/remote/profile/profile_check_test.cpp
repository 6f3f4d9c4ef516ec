#include "workbench/remote/profile/profile_check.h"
#include "workbench/remote/profile/profile_json.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TProfile Lab() {
  return {.Name = "lab",
          .Platform = "Win32",
          .Kind = TProfileKind::Ssh,
          .Path = "/srv/app",
          .Host = "lab.example"};
}

std::string Problem(const TProfile& profile) {
  try {
    CheckProfile(profile);
  } catch (const std::invalid_argument& error) {
    return error.what();
  }
  return {};
}

std::string HostProblem(const std::string& host) {
  TProfile profile = Lab();
  profile.Host = host;
  return Problem(profile);
}

std::string UserProblem(const std::string& user) {
  TProfile profile = Lab();
  profile.User = user;
  return Problem(profile);
}

std::string PathProblem(const std::string& path) {
  TProfile profile = Lab();
  profile.Path = path;
  return Problem(profile);
}

std::string OptionProblem(const std::string& option) {
  TProfile profile = Lab();
  profile.SshOptions = {option};
  return Problem(profile);
}

TEST(SshFields, TakeNamesAddressesAndAliases) {
  for (const char* host : {"lab", "lab-7.example", "10.0.0.1", "::1", "fe80::1%eth0", "my_alias"})
    EXPECT_EQ(HostProblem(host), "") << host;
}

TEST(SshFields, RefuseHostsThatWouldBeSomethingElse) {
  EXPECT_EQ(HostProblem(""), "the profile \"lab\": no host is given");
  EXPECT_EQ(HostProblem("-oProxyCommand=x"),
            "the profile \"lab\": \"-oProxyCommand=x\" cannot be a host");
  for (const char* host : {"a b", "a;b", "$(x)", "*", "a\nb", "user@host", "a/b", "`x`", "ü"})
    EXPECT_NE(HostProblem(host), "") << host;
}

TEST(SshFields, RefuseUsersThatWouldBeSomethingElse) {
  EXPECT_EQ(UserProblem("DOMAIN\\user.name"), "");
  for (const char* user : {"-l", "a@b", "a;b", "a\nb", "a b", "$x", "a/b"})
    EXPECT_EQ(UserProblem(user),
              "the profile \"lab\": \"" + std::string(user) + "\" cannot be a user");
}

TEST(SshFields, TakeTheKindsOfPathsThatOtherMachinesHave) {
  for (const char* path : {"/srv/app", "~/app", "~", "C:/app", "D:\\app"})
    EXPECT_EQ(PathProblem(path), "") << path;
  EXPECT_EQ(PathProblem("app"), "the path of the profile \"lab\" is not a full path: app");
  EXPECT_EQ(PathProblem("/"), "the path of the profile \"lab\" is the root of the file system");
  EXPECT_EQ(PathProblem("C:/"), "the path of the profile \"lab\" is the root of the file system");
  EXPECT_EQ(PathProblem("/a/../b"), "the path of the profile \"lab\" climbs with \"..\": /a/../b");
}

TEST(SshFields, LeaveToTheConnectionWhatItSetsItself) {
  EXPECT_EQ(OptionProblem("ProxyJump=gate"), "");
  EXPECT_EQ(OptionProblem("controlpath=/x"),
            "the profile \"lab\": the option controlpath is set by the connection itself");
  EXPECT_EQ(
      OptionProblem("StrictHostKeyChecking=no"),
      "the profile \"lab\": the option StrictHostKeyChecking is set by the connection itself");
  for (const char* option : {"ProxyJump", "=x", "Proxy Jump=x", "ProxyJump=", "A=\n"})
    EXPECT_NE(OptionProblem(option), "") << option;
}

TEST(SshFields, KeepPortsAndTimesInTheirRange) {
  TProfile profile = Lab();
  profile.Port = 65536;
  EXPECT_EQ(Problem(profile), "the profile \"lab\": 65536 cannot be a port; ports are 1 to 65535");
  profile = Lab();
  profile.ConnectTimeout = 0;
  EXPECT_EQ(Problem(profile),
            "the profile \"lab\": the time-out of a connection is 0 seconds, and can be 1 to 3600");
}

TEST(ProfileJson, KeepsEveryFieldOfAMachineElsewhere) {
  TProfile profile = Lab();
  profile.Port = 2222;
  profile.User = "me";
  profile.Identity = "/home/me/key";
  profile.SshOptions = {"ProxyJump=gate", "Compression=yes"};
  profile.ConnectTimeout = 20;
  profile.KeepAlive = 5;
  EXPECT_EQ(ProfileFromJson(ProfileToJson(profile)), profile);
}

TEST(ProfileJson, ReadsWhatAnEarlierVersionWrote) {
  const TProfile profile =
      ProfileFromJson(ParseJson(R"({"name":"a","platform":"Win32","kind":"folder","path":"/x"})"));
  EXPECT_EQ(profile, (TProfile{.Name = "a", .Platform = "Win32", .Path = "/x"}));
}

} // namespace
} // namespace workbench
