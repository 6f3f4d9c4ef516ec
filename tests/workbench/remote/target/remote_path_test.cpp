#include "workbench/remote/target/remote_path.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

using TStart = TRemotePath::TStart;

TEST(RemotePath, TakesBothDelimitersAndDropsWhatNamesNothing) {
  const TRemotePath path = ParseRemotePath("demo\\.\\/a\\..\\b/c.dat");
  EXPECT_EQ(path.Start, TStart::ProfilePath);
  EXPECT_EQ(path.Joined(), "demo/b/c.dat");
  EXPECT_FALSE(path.Climbs);
}

TEST(RemotePath, TellsWhereAPathBegins) {
  EXPECT_EQ(ParseRemotePath("\\\\server\\share\\x").Start, TStart::FileSystemRoot);
  EXPECT_EQ(ParseRemotePath("/x").Start, TStart::FileSystemRoot);
  EXPECT_EQ(ParseRemotePath("c:x").Start, TStart::Drive);
  EXPECT_EQ(ParseRemotePath("~\\x").Start, TStart::HomeDirectory);
}

TEST(RemotePath, NoticesAClimbEvenWhenItComesBack) {
  EXPECT_TRUE(ParseRemotePath("..").Climbs);
  EXPECT_TRUE(ParseRemotePath("a\\..\\..\\a\\x").Climbs);
  EXPECT_FALSE(ParseRemotePath("a\\b\\..\\..\\x").Climbs);
}

TEST(RemotePath, KnowsWhatWindowsCannotHold) {
  const TNameRules windows = NameRulesOf("Win64", true);
  for (const std::string name :
       {"CON", "nul.txt", "COM1.log", "lpt9", "conin$", "COM\xC2\xB2", "aux .txt"})
    EXPECT_EQ(NameProblem(name, windows), "is the name of a device of Windows") << name;
  for (const std::string name : {"a:b", "a?b", "a\nb", "<", "x|y"})
    EXPECT_EQ(NameProblem(name, windows), "has a character that names of Windows cannot have");
  EXPECT_EQ(NameProblem("a. ", windows), "ends in a dot or a blank, which Windows drops");
  for (const std::string name : {"COM", "COM10", "console", "-x", "\xC3\xA4.dat", "a b"})
    EXPECT_EQ(NameProblem(name, windows), "") << name;
}

TEST(RemotePath, LetsOtherTargetsHoldThoseNames) {
  const TNameRules other = NameRulesOf("OSX32", true);
  EXPECT_FALSE(other.WindowsNames);
  EXPECT_EQ(NameProblem("CON", other), "");
  EXPECT_EQ(NameProblem("a:b.", other), "");
  EXPECT_EQ(NameProblem(std::string(255, 'x'), other), "");
  EXPECT_EQ(NameProblem(std::string(256, 'x'), other), "is longer than 255 bytes");
  EXPECT_EQ(NameProblem(".deploymgr-0-1.part", other), "is kept for files that are not whole yet");
}

} // namespace
} // namespace workbench
