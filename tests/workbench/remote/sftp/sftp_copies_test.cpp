// Second names and moves on a real SFTP server.
#include "tests/workbench/remote/sftp/sftp_fixture.h"

#include <sys/stat.h>

namespace workbench {
namespace {

using testing::Program;
using testing::SftpServer;
using testing::TRemotePlace;

using SftpCopies = testing::SftpTest;

ino_t InodeOf(const std::filesystem::path& file) {
  struct stat status = {};
  EXPECT_EQ(::stat(file.c_str(), &status), 0) << file;
  return status.st_ino;
}

TEST_F(SftpCopies, AreHardLinksWhereTheServerHasThem) {
  TRemotePlace::Write(Place.Target("a"), "content");
  const auto connection = Connect();
  const std::string root = connection->Root();
  const TRemoteCopy copy{{root, "a"}, {root, "kept"}};
  EXPECT_EQ(connection->Keep({&copy, 1}), std::vector<std::string>{""});
  EXPECT_EQ(InodeOf(Place.Target("a")), InodeOf(Place.Target("kept")));
  const TRemoteCopy missing{{root, "nothing"}, {root, "other"}};
  EXPECT_NE(connection->Keep({&missing, 1}).front(), "");
}

TEST_F(SftpCopies, AreCopiesWhereItRefusesLinks) {
  TRemotePlace::Write(Place.Target("a"), "content");
  TRemotePlace::Write(Place.Target("it's b"), "other");
  ::chmod(Place.Target("a").c_str(), 0751);
  TSftpMachine machine = Machine();
  machine.Sftp = Program({SftpServer, "-P", "hardlink"});
  TSftpConnection connection(machine, Facts);
  const std::string root = connection.Root();
  const std::vector<TRemoteCopy> copies{{{root, "a"}, {root, "kept 1"}},
                                        {{root, "it's b"}, {root, "kept 2"}}};
  EXPECT_EQ(connection.Keep(copies), (std::vector<std::string>{"", ""}));
  EXPECT_EQ(TRemotePlace::Read(Place.Target("kept 1")), "content");
  EXPECT_EQ(TRemotePlace::Read(Place.Target("kept 2")), "other");
  EXPECT_NE(InodeOf(Place.Target("a")), InodeOf(Place.Target("kept 1")));
  struct stat status = {};
  ::stat(Place.Target("kept 1").c_str(), &status);
  EXPECT_EQ(status.st_mode & 07777, 0751U);
  // Without commands there is no way.
  machine.Exec = nullptr;
  TSftpConnection silent(machine, std::make_shared<TMachineFacts>());
  const TRemoteCopy copy{{root, "a"}, {root, "kept 3"}};
  EXPECT_NE(silent.Keep({&copy, 1}).front(), "");
}

TEST_F(SftpCopies, AreMovedBackAndDirectoriesThatAreEmptyGo) {
  std::filesystem::create_directories(Place.Target("full/empty"));
  TRemotePlace::Write(Place.Target("full/a"), "new");
  TRemotePlace::Write(Place.Target("kept"), "old");
  const auto connection = Connect();
  const std::string root = connection->Root();
  const TRemoteCopy move{{root, "kept"}, {root + "/full", "a"}};
  EXPECT_EQ(connection->Move({&move, 1}), std::vector<std::string>{""});
  EXPECT_EQ(TRemotePlace::Read(Place.Target("full/a")), "old");
  const std::vector<std::string> directories{root + "/full", root + "/full/empty"};
  connection->RemoveEmptyDirectories(directories);
  EXPECT_FALSE(std::filesystem::exists(Place.Target("full/empty")));
  const std::vector<TRemoteName> names{{root + "/full", "a"}, {root + "/full", "nothing"}};
  EXPECT_EQ(connection->RemoveAll(names), (std::vector<std::string>{"", ""}));
  EXPECT_FALSE(std::filesystem::exists(Place.Target("full/a")));
}

} // namespace
} // namespace workbench
