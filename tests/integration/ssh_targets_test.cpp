// Several machines in one command.
#include "tests/integration/ssh_place.h"

#include <algorithm>
#include <fstream>
#include <memory>

namespace integration {
namespace {

using workbench::testing::TSshServer;

// Three machines and a folder.
class TMachinesPlace : public TSshPlace {
public:
  TMachinesPlace() : TSshPlace(RemoteEntry("a.dat") + RemoteEntry("b.dat")) {
    Write("a.dat", "a");
    Write("b.dat", "b");
    for (const std::string name : {"one", "two", "three"}) {
      FServers.push_back(std::make_unique<TSshServer>(Path("server-" + name)));
      const TSshServer& server = *FServers.back();
      const std::vector<std::string> options{"--port",     std::to_string(server.Port()),
                                             "--identity", server.Identity().string(),
                                             "--path",     Path("at-" + name).string()};
      EXPECT_EQ(AddProfile(name, options).Status, 0);
    }
    EXPECT_EQ(Run({"profile", "add", "shelf", "-p", "OSX32", "--path", "shelf"}).Status, 0);
  }
  /// Makes the keys of all machines known.
  void Introduce() {
    std::ofstream known(Server().KnownHosts());
    for (const auto& server : FServers)
      known << server->HostName() << " " << server->HostKey() << "\n";
  }
  TSshServer& Machine(std::size_t index) { return *FServers[index]; }
  void PowerOff(std::size_t index) { FServers[index] = nullptr; }

private:
  std::vector<std::unique_ptr<TSshServer>> FServers;
};

TEST(SshTargets, AreReachedInOneCommandWithOneOfThemDown) {
  NEEDS_SSH_SERVER();
  TMachinesPlace place;
  place.Introduce();
  place.PowerOff(1);
  const TRun run = place.Deploy({"--to-profile", "one,two,three,shelf", "--json"});
  EXPECT_EQ(run.Status, 5) << run.Errors;
  const auto document = run.Document();
  std::string exits;
  for (const auto& target : document["targets"])
    exits += target["profile"].get<std::string>() + " " + target["exit"].dump() + ";";
  EXPECT_EQ(exits, "one 0;two 5;three 0;shelf 0;");
  for (const std::string name : {"at-one", "at-three", "shelf"})
    EXPECT_EQ(place.Read(name + "/demo/a.dat"), "a") << name;
  const TRun verified = place.Run({"verify", "demo.vproj", "--to-profile", "one,three,shelf"});
  EXPECT_EQ(verified.Status, 0) << verified.Errors << verified.Output;
}

TEST(SshTargets, AreAskedForTheirKeysOneAfterTheOtherBeforeAnythingIsCopied) {
  NEEDS_SSH_SERVER();
  TMachinesPlace place;
  std::vector<std::string> asked;
  const TRun run = place.RunAtTerminal(
      {"deploy", "demo.vproj", "--to-profile", "shelf,one,two,three"},
      [&](const TQuestion& question) {
        EXPECT_FALSE(std::filesystem::exists(place.Path("shelf/demo")));
        for (std::size_t i = 0; i < 3; ++i) {
          const bool isNew = std::ranges::count(asked, std::to_string(i)) == 0;
          if (isNew && question.Text.find(place.Machine(i).Fingerprint()) != std::string::npos)
            asked.push_back(std::to_string(i));
        }
        return std::string(asked.back() == "1" ? "n" : "y");
      });
  EXPECT_EQ(run.Status, 5) << run.Errors;
  EXPECT_EQ(asked, (std::vector<std::string>{"0", "1", "2"}));
  EXPECT_TRUE(std::filesystem::exists(place.Path("at-one/demo")));
  EXPECT_FALSE(std::filesystem::exists(place.Path("at-two/demo")));
  EXPECT_TRUE(std::filesystem::exists(place.Path("at-three/demo")));
  EXPECT_TRUE(std::filesystem::exists(place.Path("shelf/demo")));
}

TEST(SshTargets, WithKeysThatNobodyKnowsAreNotReachedWithoutAPerson) {
  NEEDS_SSH_SERVER();
  const TMachinesPlace place;
  const TRun run = place.Deploy({"--to-profile", "one,shelf"});
  EXPECT_EQ(run.Status, 5);
  EXPECT_NE(run.Errors.find("one: "), std::string::npos) << run.Errors;
  EXPECT_TRUE(std::filesystem::exists(place.Path("shelf/demo")));
}

} // namespace
} // namespace integration
