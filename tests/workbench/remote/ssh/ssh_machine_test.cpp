#include "workbench/remote/ssh/ssh_machine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <sys/stat.h>

namespace workbench {
namespace {

using TTexts = std::vector<std::string>;

bool Has(const TTexts& texts, const std::string& text) {
  return std::ranges::find(texts, text) != texts.end();
}

TProfile Lab() {
  return {.Name = "lab",
          .Platform = "Win32",
          .Kind = TProfileKind::Ssh,
          .Path = "/srv/app",
          .Host = "lab",
          .Port = 2222,
          .User = "me",
          .Identity = "/k",
          .SshOptions = {"ProxyJump=gate"},
          .KeepAlive = 7};
}

TEST(SshCommands, TellTheClientWhatTheProfileSays) {
  const TSshCommands commands(Lab(), "/run/s");
  const TTexts command = commands.FirstConnection({}).Command;
  EXPECT_EQ(command.front(), "ssh");
  for (const char* text : {"-oPort=2222", "-oUser=me", "-oIdentityFile=/k", "-oProxyJump=gate",
                           "-oServerAliveInterval=7", "-oServerAliveCountMax=2",
                           "-oConnectTimeout=10", "-oStrictHostKeyChecking=yes"})
    EXPECT_TRUE(Has(command, text)) << text;
  EXPECT_EQ(TTexts(command.end() - 4, command.end()), (TTexts{"-s", "--", "lab", "sftp"}));
}

TEST(SshCommands, ShareOneConnection) {
  const TSshCommands commands(Lab(), "/run/s");
  for (const TTexts& command :
       {commands.FirstConnection({}).Command, commands.FurtherConnection().Command,
        commands.Command("x").Command})
    EXPECT_TRUE(Has(command, "-oControlPath=/run/s"));
  EXPECT_TRUE(Has(commands.FirstConnection({}).Command, "-oControlMaster=yes"));
  EXPECT_TRUE(Has(commands.FurtherConnection().Command, "-oControlMaster=no"));
}

TEST(SshCommands, LeaveOpenWhatTheProfileLeavesOpen) {
  TProfile profile = Lab();
  profile.Port = 0;
  profile.User.clear();
  profile.Identity.clear();
  const TTexts command = TSshCommands(profile, "/run/s").FurtherConnection().Command;
  EXPECT_TRUE(std::ranges::none_of(command, [](const std::string& text) {
    return text.starts_with("-oPort") || text.starts_with("-oUser=") ||
           text.starts_with("-oIdentity");
  }));
}

TEST(SshCommands, AskOnlyWhereSomebodyCanAnswerAndOnlyForTheConnection) {
  const TSshCommands commands(Lab(), "/run/s");
  const TProcessStart silent = commands.FirstConnection({});
  EXPECT_TRUE(Has(silent.Command, "-oBatchMode=yes"));
  EXPECT_TRUE(Has(silent.Environment, "SSH_ASKPASS=/bin/false"));
  const TProcessStart asking = commands.FirstConnection({"SSH_ASKPASS=/ask"});
  EXPECT_TRUE(Has(asking.Command, "-oBatchMode=no"));
  EXPECT_TRUE(Has(asking.Environment, "SSH_ASKPASS=/ask"));
  EXPECT_TRUE(Has(commands.FurtherConnection().Command, "-oBatchMode=yes"));
}

TEST(SshCommands, RunACommandAsOneArgument) {
  const TTexts command = TSshCommands(Lab(), "/run/s").Command("cd 'a b' && x").Command;
  EXPECT_EQ(TTexts(command.end() - 3, command.end()), (TTexts{"--", "lab", "cd 'a b' && x"}));
}

TEST(ControlPath, StandsInADirectoryOfTheUserAlone) {
  const std::filesystem::path path = NewControlPath();
  EXPECT_NE(NewControlPath(), path);
  EXPECT_LT(path.native().size(), 90U); // what a socket's address holds, and the client's suffix
  struct stat status = {};
  ASSERT_EQ(::stat(path.parent_path().c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0700U);
  EXPECT_EQ(status.st_uid, ::geteuid());
}

TEST(SshMachine, PassesOnWhyTheFirstConnectionFails) {
  TProfile profile = Lab();
  profile.Host = "127.0.0.1";
  profile.Port = 1; // nobody listens there
  profile.SshOptions = {};
  const auto machine = std::make_shared<TSshMachine>(profile, TPrompts());
  machine->Prepare();
  for (int attempt = 0; attempt < 2; ++attempt) {
    try {
      machine->Take(nullptr);
      FAIL();
    } catch (const TConnectionError& error) {
      EXPECT_NE(std::string(error.what()).find("Connection refused"), std::string::npos)
          << error.what();
    }
  }
}

} // namespace
} // namespace workbench
