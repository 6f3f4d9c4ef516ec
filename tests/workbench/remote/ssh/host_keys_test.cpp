#include "tests/support/ssh/ssh_server.h"
#include "tests/workbench/remote/target/remote_fixture.h"
#include "workbench/remote/ssh/host_keys.h"
#include "workbench/remote/target/remote_connection.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

using testing::TRemotePlace;
using testing::TSshServer;

bool NotCancelled() {
  return false;
}

class HostKeysTest : public ::testing::Test {
protected:
  void SetUp() override {
    if (const std::string reason = TSshServer::WhyNot(); !reason.empty())
      GTEST_SKIP() << reason;
    FServer.emplace(FPlace.Local("server"));
  }

  TProfile Profile() const {
    return {.Name = "lab",
            .Kind = TProfileKind::Ssh,
            .Host = "127.0.0.1",
            .Port = FServer->Port(),
            .SshOptions = FServer->ClientOptions()};
  }
  bool Settle() {
    return SettleHostKey(
        Profile(),
        [this](const THostKey& key) {
          FAsked.push_back(key);
          return FAnswer;
        },
        NotCancelled);
  }
  std::string RefusalOf(const THostKeyQuestion& ask) const {
    try {
      SettleHostKey(Profile(), ask, NotCancelled);
    } catch (const TConnectionError& error) {
      return error.what();
    }
    ADD_FAILURE() << "it was not refused";
    return {};
  }
  std::string Refusal() {
    return RefusalOf([this](const THostKey& key) {
      FAsked.push_back(key);
      return FAnswer;
    });
  }
  std::string Known() const { return TRemotePlace::Read(FServer->KnownHosts()); }

  TRemotePlace FPlace;
  std::optional<TSshServer> FServer;
  bool FAnswer = true;
  std::vector<THostKey> FAsked;
};

TEST_F(HostKeysTest, AreKeptWhenAPersonAcceptsThem) {
  EXPECT_TRUE(Settle());
  ASSERT_EQ(FAsked.size(), 1U);
  EXPECT_EQ(FAsked[0].Host, FServer->HostName());
  EXPECT_EQ(FAsked[0].Type, "ED25519");
  EXPECT_EQ(FAsked[0].Fingerprint, FServer->Fingerprint());
  EXPECT_EQ(Known(), FServer->HostName() + " " + FServer->HostKey() + "\n");
  EXPECT_FALSE(Settle()) << "it is not the key that is wrong";
  EXPECT_EQ(FAsked.size(), 1U);
}

TEST_F(HostKeysTest, AreRefusedWhenAPersonSaysNo) {
  FAnswer = false;
  EXPECT_EQ(Refusal(), "the host key of " + FServer->HostName() + " is not known: ED25519 " +
                           FServer->Fingerprint() + "; it was not accepted");
  EXPECT_FALSE(std::filesystem::exists(FServer->KnownHosts()));
}

TEST_F(HostKeysTest, AreRefusedWhereNobodyIs) {
  EXPECT_EQ(RefusalOf(nullptr),
            "the host key of " + FServer->HostName() + " is not known: ED25519 " +
                FServer->Fingerprint() +
                "; nobody can be asked here whether it is the right one: accept it once at a "
                "terminal");
  EXPECT_FALSE(std::filesystem::exists(FServer->KnownHosts()));
}

TEST_F(HostKeysTest, AreRefusedWhenTheyHaveChanged) {
  FServer->Introduce();
  const std::string before = FServer->Fingerprint();
  FServer->ChangeHostKey();
  EXPECT_EQ(Refusal(), "the host key of " + FServer->HostName() +
                           " has changed, so this may be another machine: known is ED25519 " +
                           before + ", offered is ED25519 " + FServer->Fingerprint() +
                           ". If the change is right, remove line 1 of " +
                           FServer->KnownHosts().string() + ": ssh-keygen -f '" +
                           FServer->KnownHosts().string() + "' -R '" + FServer->HostName() + "'");
  EXPECT_TRUE(FAsked.empty());
}

TEST_F(HostKeysTest, AreRefusedWhenTheyWereRevoked) {
  FServer->Introduce();
  TRemotePlace::Write(FServer->KnownHosts(),
                      "@revoked " + FServer->HostName() + " " + FServer->HostKey() + "\n");
  EXPECT_EQ(Refusal(), "the host key of " + FServer->HostName() + " (ED25519 " +
                           FServer->Fingerprint() + ") was revoked in " +
                           FServer->KnownHosts().string() + ", line 1");
  EXPECT_TRUE(FAsked.empty());
}

TEST_F(HostKeysTest, AreNotWhatIsWrongWhenNoneIsOffered) {
  TProfile profile = Profile();
  profile.Port = testing::ClosedPort();
  EXPECT_FALSE(SettleHostKey(profile, nullptr, NotCancelled));
}

TEST_F(HostKeysTest, AreNoMoreLookedForWhenTheUserGivesUp) {
  const testing::TTextServer silent("");
  TProfile profile = Profile();
  profile.Port = silent.Port();
  EXPECT_FALSE(SettleHostKey(profile, nullptr, [] { return true; }));
}

TEST(HostKeyReason, IsTheClientsSentence) {
  EXPECT_TRUE(IsAboutHostKey("No key is known.\nHost key verification failed."));
  EXPECT_FALSE(IsAboutHostKey("Connection refused"));
}

} // namespace
} // namespace workbench
