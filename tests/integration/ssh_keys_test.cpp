#include "tests/integration/ssh_place.h"

#include <csignal>
#include <sys/wait.h>
#include <thread>

namespace integration {
namespace {

constexpr const char* Passphrase = "open sesame 7301";

std::string Yes(const TQuestion&) {
  return "y";
}

// Answers with the passphrase, and the host key with a yes.
class TOwner {
public:
  explicit TOwner(std::string secret) : FSecret(std::move(secret)) {}

  std::string operator()(const TQuestion& question) {
    if (question.Text.ends_with("] "))
      return "y";
    ++Asked;
    AllHidden = AllHidden && question.IsHidden;
    return FSecret;
  }

  int Asked = 0;
  bool AllHidden = true;

private:
  std::string FSecret;
};

// A project and a profile whose key has a passphrase.
class TLockedPlace : public TSshPlace {
public:
  TLockedPlace() : TSshPlace(RemoteEntry("a.dat")) {
    Write("a.dat", "a");
    workbench::testing::MakeKey(Path("locked"), Passphrase);
    Server().Admit(Path("locked"));
    Server().Introduce();
    ChangeProfile({"--identity", Path("locked").string()});
  }
  bool SaysSecret(const TRun& run) const {
    for (const std::string& file : Files()) {
      if (Read(file).find(Passphrase) != std::string::npos)
        return true;
    }
    return (run.Output + run.Errors).find(Passphrase) != std::string::npos;
  }
};

TEST(SshHostKey, IsRefusedWhereNobodyCanBeAsked) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a.dat"));
  place.Write("a.dat", "a");
  const std::string reason = "the host key of " + place.Server().HostName() +
                             " is not known: ED25519 " + place.Server().Fingerprint() +
                             "; nobody can be asked here whether it is the right one: accept it "
                             "once at a terminal";
  for (const std::vector<std::string>& options :
       std::vector<std::vector<std::string>>{{}, {"--yes"}, {"--quiet"}}) {
    const TRun run = place.Deploy(options);
    EXPECT_EQ(run.Status, 5);
    EXPECT_EQ(run.Errors, "deploymgr: " + reason + "\n");
  }
  const TRun test = place.Run({"profile", "test", "box", "--json"});
  EXPECT_EQ(test.Status, 5);
  EXPECT_EQ(test.Json()["error"]["message"], "the profile \"box\" has no connection: " + reason);
  EXPECT_EQ(place.Status().Status, 5);
  EXPECT_FALSE(std::filesystem::exists(place.Server().KnownHosts()));
  EXPECT_FALSE(std::filesystem::exists(place.Path("target")));
}

TEST(SshHostKey, IsKeptWhenThePersonAtTheTerminalAcceptsIt) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a.dat"));
  place.Write("a.dat", "a");
  int questions = 0;
  const TRun run = place.RunAtTerminal({"deploy", "demo.vproj", "--yes"}, [&](const TQuestion& q) {
    ++questions;
    EXPECT_NE(q.Text.find(place.Server().Fingerprint()), std::string::npos) << q.Text;
    EXPECT_NE(q.Text.find(place.Server().HostName()), std::string::npos) << q.Text;
    return std::string("yes");
  });
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(questions, 1);
  EXPECT_EQ(place.Read("target/demo/a.dat"), "a");
  EXPECT_EQ(place.Read("server/known_hosts"),
            place.Server().HostName() + " " + place.Server().HostKey() + "\n");
  EXPECT_EQ(place.Deploy().Status, 0);
}

TEST(SshHostKey, IsNotKeptWhenThePersonSaysNo) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a.dat"));
  const TRun run =
      place.RunAtTerminal({"profile", "test", "box"}, [](const TQuestion&) { return "n"; });
  EXPECT_EQ(run.Status, 5);
  EXPECT_NE(run.Errors.find("it was not accepted"), std::string::npos) << run.Errors;
  EXPECT_FALSE(std::filesystem::exists(place.Server().KnownHosts()));
}

TEST(SshHostKey, IsNoMoreAskedForAfterAnInterrupt) {
  NEEDS_SSH_SERVER();
  for (const char* command : {"deploy", "status"}) {
    TSshPlace place(RemoteEntry("a.dat"));
    place.Write("a.dat", "a");
    const TRun run = place.RunAtTerminal({command, "demo.vproj"}, [](const TQuestion& question) {
      ::kill(question.Process, SIGINT);
      siginfo_t end = {};
      for (int i = 0; i < 1000 && end.si_pid == 0; ++i) {
        ::waitid(P_PID, static_cast<id_t>(question.Process), &end, WEXITED | WNOWAIT | WNOHANG);
        std::this_thread::sleep_for(std::chrono::milliseconds(5));
      }
      return "y";
    });
    EXPECT_EQ(run.Status, 128 + SIGINT) << command << run.Errors;
    EXPECT_FALSE(std::filesystem::exists(place.Server().KnownHosts()));
  }
}

TEST(SshHostKey, IsAlwaysRefusedWhenItHasChanged) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("a.dat"));
  place.Write("a.dat", "a");
  place.Server().Introduce();
  const std::string before = place.Server().Fingerprint();
  const std::string known = place.Read("server/known_hosts");
  place.Server().ChangeHostKey();
  const TRun run = place.RunAtTerminal({"deploy", "demo.vproj", "--yes"}, Yes);
  EXPECT_EQ(run.Status, 5);
  EXPECT_EQ(run.Errors.find("[y/N]"), std::string::npos) << "it was asked for";
  const std::string file = place.Server().KnownHosts().string();
  for (const std::string& part :
       {"ED25519 " + before, "ED25519 " + place.Server().Fingerprint(), "line 1 of " + file,
        "ssh-keygen -f '" + file + "' -R '" + place.Server().HostName() + "'"})
    EXPECT_NE(run.Errors.find(part), std::string::npos) << part << "\n" << run.Errors;
  EXPECT_EQ(place.Read("server/known_hosts"), known);
  EXPECT_FALSE(std::filesystem::exists(place.Path("target")));
}

TEST(SshPassphrase, IsAskedForAtTheTerminal) {
  NEEDS_SSH_SERVER();
  const TLockedPlace place;
  TOwner owner(Passphrase);
  const TRun run = place.RunAtTerminal({"deploy", "demo.vproj"}, std::ref(owner));
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(owner.Asked, 1);
  EXPECT_TRUE(owner.AllHidden);
  EXPECT_NE(run.Errors.find("passphrase for key '" + place.Path("locked").string() + "': "),
            std::string::npos)
      << run.Errors;
  EXPECT_EQ(place.Read("target/demo/a.dat"), "a");
  EXPECT_FALSE(place.SaysSecret(run));
}

TEST(SshPassphrase, IsRefusedWhenItIsWrong) {
  NEEDS_SSH_SERVER();
  const TLockedPlace place;
  TOwner stranger("guess");
  const TRun run = place.RunAtTerminal({"deploy", "demo.vproj"}, std::ref(stranger));
  EXPECT_EQ(run.Status, 5);
  EXPECT_GT(stranger.Asked, 0);
  EXPECT_NE(run.Errors.find("Permission denied (publickey)"), std::string::npos) << run.Errors;
  EXPECT_EQ((run.Output + run.Errors).find("guess"), std::string::npos);
  EXPECT_FALSE(std::filesystem::exists(place.Path("target")));
}

TEST(SshPassphrase, IsGivenUpWithCtrlC) {
  NEEDS_SSH_SERVER();
  for (const char* command : {"deploy", "status"}) {
    const TLockedPlace place;
    TOwner owner("ope\x03");
    const TRun run = place.RunAtTerminal({command, "demo.vproj"}, std::ref(owner));
    EXPECT_EQ(run.Status, 128 + SIGINT) << command << run.Errors;
    EXPECT_EQ(owner.Asked, 1);
    EXPECT_FALSE(std::filesystem::exists(place.Path("target")));
  }
}

TEST(SshPassphrase, IsNotWaitedForWhereNobodyCanBeAsked) {
  NEEDS_SSH_SERVER();
  const TLockedPlace place;
  const TRun run = place.Deploy();
  EXPECT_EQ(run.Status, 5);
  EXPECT_NE(run.Errors.find("Permission denied (publickey)"), std::string::npos) << run.Errors;
}

TEST(SshPassphrase, IsNotTakenFromTheCommandLine) {
  NEEDS_SSH_SERVER();
  const TSshPlace place(RemoteEntry("a.dat"));
  const TRun run = place.AddProfile("other", {"--password", Passphrase});
  EXPECT_EQ(run.Status, 2);
  EXPECT_NE(run.Errors.find("can be read by others"), std::string::npos) << run.Errors;
}

} // namespace
} // namespace integration
