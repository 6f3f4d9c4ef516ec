#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/remote/ssh/known_hosts.h"
#include "workbench/remote/target/remote_connection.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace workbench {
namespace {

using testing::TRemotePlace;
using TPaths = std::vector<std::filesystem::path>;

constexpr const char* Type = "ssh-ed25519";
constexpr const char* Key = "AAAAC3NzaC1lZDI1NTE5AAAAIJzW8QNeVwHOJ+3cKq1pbZ+0Yc6nPo1s3H2O7xQx8mZk";

std::string Line(const std::string& host) {
  return host + " " + Type + " " + Key + "\n";
}

class KnownHostsTest : public ::testing::Test {
protected:
  TKnownHostsPlaces Places(bool hashes = false) const {
    return {.UserFiles = {File()}, .GlobalFiles = {Place.Local("global")}, .Hashes = hashes};
  }
  std::filesystem::path File() const { return Place.Local("known_hosts"); }

  TRemotePlace Place;
};

TEST(KnownHostsPlaces, AreReadFromWhatTheClientSays) {
  const TKnownHostsPlaces places =
      ParseKnownHostsPlaces("host lab\n"
                            "hashknownhosts yes\n"
                            "globalknownhostsfile /etc/ssh/known /etc/ssh/known2\n"
                            "userknownhostsfile /home/a b/known /dev/null /home/c\n");
  EXPECT_EQ(places.UserFiles, (TPaths{"/home/a b/known", "/home/c"}));
  EXPECT_EQ(places.GlobalFiles, (TPaths{"/etc/ssh/known", "/etc/ssh/known2"}));
  EXPECT_TRUE(places.Hashes);
}

TEST(KnownHostsPlaces, MayBeNone) {
  const TKnownHostsPlaces places =
      ParseKnownHostsPlaces("hashknownhosts no\nuserknownhostsfile none\nglobalknownhostsfile\n");
  EXPECT_TRUE(places.UserFiles.empty());
  EXPECT_TRUE(places.GlobalFiles.empty());
  EXPECT_FALSE(places.Hashes);
}

TEST(KnownHostsPlaces, FollowTheOptionsOfTheProfile) {
  const TKnownHostsPlaces places =
      FindKnownHosts({.Kind = TProfileKind::Ssh,
                      .Host = "lab",
                      .SshOptions = {"UserKnownHostsFile=/x/y", "GlobalKnownHostsFile=/dev/null",
                                     "HashKnownHosts=yes"}});
  EXPECT_EQ(places.UserFiles, TPaths{"/x/y"});
  EXPECT_TRUE(places.GlobalFiles.empty());
  EXPECT_TRUE(places.Hashes);
}

TEST(KeyText, HasHostTypeAndKey) {
  const auto key = ParseKeyText("  lab,10.0.0.1\tssh-rsa  AAAA me@home");
  ASSERT_TRUE(key);
  EXPECT_EQ(key->Marker, "");
  EXPECT_EQ(key->Host, "lab,10.0.0.1");
  EXPECT_EQ(key->Type, "ssh-rsa");
  EXPECT_EQ(key->Base64, "AAAA");
  EXPECT_EQ(ParseKeyText("@revoked lab ssh-rsa AAAA")->Marker, "@revoked");
}

TEST(KeyText, IsNothingElse) {
  for (const char* line : {"", "  ", "# lab ssh-rsa AAAA", "lab", "lab ssh-rsa", "@revoked lab x"})
    EXPECT_FALSE(ParseKeyText(line)) << line;
}

TEST_F(KnownHostsTest, AreSearchedByNameInAllFiles) {
  TRemotePlace::Write(File(), "# mine\n" + Line("other") + Line("lab,10.0.0.1"));
  TRemotePlace::Write(Place.Local("global"), "@revoked " + Line("lab"));
  const std::vector<TKnownKey> known = LookUpHost(Places(), "lab");
  ASSERT_EQ(known.size(), 2U);
  EXPECT_EQ(known[0].File, File());
  EXPECT_EQ(known[0].Line, 3U);
  EXPECT_EQ(known[0].Key.Base64, Key);
  EXPECT_EQ(known[1].File, Place.Local("global"));
  EXPECT_EQ(known[1].Line, 1U);
  EXPECT_EQ(known[1].Key.Marker, "@revoked");
  EXPECT_TRUE(LookUpHost(Places(), "la").empty());
}

TEST_F(KnownHostsTest, HaveNoKeysWhenTheyAreMissing) {
  EXPECT_TRUE(LookUpHost(Places(), "lab").empty());
}

TEST_F(KnownHostsTest, TellPortsApart) {
  TRemotePlace::Write(File(), Line("[lab]:2222"));
  EXPECT_EQ(LookUpHost(Places(), "[lab]:2222").size(), 1U);
  EXPECT_TRUE(LookUpHost(Places(), "lab").empty());
}

TEST_F(KnownHostsTest, KeepAKey) {
  KeepKey(Places(), {.Host = "lab", .Type = Type, .Base64 = Key});
  EXPECT_EQ(TRemotePlace::Read(File()), Line("lab"));
  struct stat status = {};
  ASSERT_EQ(::stat(File().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0600U);
}

TEST_F(KnownHostsTest, KeepAKeyBehindALineWithoutAnEnd) {
  TRemotePlace::Write(File(), "# mine");
  KeepKey(Places(), {.Host = "lab", .Type = Type, .Base64 = Key});
  KeepKey(Places(), {.Host = "lab2", .Type = Type, .Base64 = Key});
  EXPECT_EQ(TRemotePlace::Read(File()), "# mine\n" + Line("lab") + Line("lab2"));
}

TEST_F(KnownHostsTest, KeepAKeyWithoutTellingTheHost) {
  KeepKey(Places(/*hashes=*/true), {.Host = "[laboratory]:2222", .Type = Type, .Base64 = Key});
  const std::string text = TRemotePlace::Read(File());
  EXPECT_TRUE(text.starts_with("|1|")) << text;
  EXPECT_EQ(text.find("laboratory"), std::string::npos);
  const std::vector<TKnownKey> known = LookUpHost(Places(), "[laboratory]:2222");
  ASSERT_EQ(known.size(), 1U);
  EXPECT_EQ(known[0].Line, 1U);
}

TEST_F(KnownHostsTest, MakeTheDirectoryOfTheUser) {
  const auto file = Place.Local(".ssh") / "known_hosts";
  KeepKey({.UserFiles = {file}}, {.Host = "lab", .Type = Type, .Base64 = Key});
  struct stat status = {};
  ASSERT_EQ(::stat(file.parent_path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
}

TEST_F(KnownHostsTest, SayWhyAKeyCannotBeKept) {
  const TKeyText key{.Host = "lab", .Type = Type, .Base64 = Key};
  EXPECT_THROW(KeepKey({}, key), TConnectionError);
  TRemotePlace::Write(Place.Local("file"), "");
  try {
    KeepKey({.UserFiles = {Place.Local("file") / "known_hosts"}}, key);
    FAIL();
  } catch (const TConnectionError& error) {
    EXPECT_NE(std::string(error.what()).find("Not a directory"), std::string::npos) << error.what();
  }
}

TEST(KeyPrint, IsWhatTheClientShows) {
  const TKeyPrint print = PrintOf({.Host = "lab", .Type = Type, .Base64 = Key});
  EXPECT_EQ(print.Type, "ED25519");
  EXPECT_EQ(print.Fingerprint.size(), 50U);
  EXPECT_TRUE(print.Fingerprint.starts_with("SHA256:"));
  EXPECT_THROW(PrintOf({.Host = "lab", .Type = Type, .Base64 = "AAAA"}), TConnectionError);
}

} // namespace
} // namespace workbench
