#include "workbench/remote/target/remote_path.h"
#include "workbench/remote/target/unfinished_names.h"

#include <gtest/gtest.h>

#include <sys/wait.h>
#include <unistd.h>

namespace workbench {
namespace {

TEST(UnfinishedNames, AreNewEachTimeAndSayWhoWrites) {
  TUnfinishedNames names;
  const std::string name = names.Next("abc");
  EXPECT_NE(names.Next("abc"), name);
  EXPECT_NE(TUnfinishedNames().Next("abc"), name);
  EXPECT_TRUE(IsUnfinishedName(name));
  EXPECT_LT(name.size(), 100U);
  const auto parsed = ParseUnfinishedName(name);
  ASSERT_TRUE(parsed);
  EXPECT_EQ(parsed->Process, ::getpid());
  EXPECT_EQ(parsed->Source, "abc");
  EXPECT_FALSE(IsAbandoned(*parsed));
}

TEST(UnfinishedNames, AreAbandonedWhenTheirProcessIsGone) {
  const pid_t child = ::fork();
  if (child == 0)
    ::_exit(0);
  ::waitpid(child, nullptr, 0);
  auto parsed = ParseUnfinishedName(TUnfinishedNames().Next({}));
  ASSERT_TRUE(parsed);
  parsed->Process = child;
  EXPECT_TRUE(IsAbandoned(*parsed));
  parsed->Machine = "another";
  EXPECT_FALSE(IsAbandoned(*parsed)); // nobody knows
}

TEST(UnfinishedNames, OfOthersAreNotTakenForOurs) {
  for (const char* name :
       {"file.part", ".deploymgr-.part", ".deploymgr-a-b-c-d-e.part", ".deploymgr-a-1-c-d.part",
        ".deploymgr-a-1-c-d-e", ".deploymgr-a--1-c-d-e.part"})
    EXPECT_FALSE(ParseUnfinishedName(name)) << name;
}

TEST(SourceMark, ChangesWithTheStateOfTheFile) {
  struct stat status = {};
  status.st_size = 10;
  status.st_mtim = {100, 5};
  const std::string mark = SourceMark("/a", status);
  EXPECT_EQ(SourceMark("/a", status), mark);
  EXPECT_NE(SourceMark("/b", status), mark);
  status.st_mtim.tv_nsec = 6;
  EXPECT_NE(SourceMark("/a", status), mark);
  status.st_mtim.tv_nsec = 5;
  status.st_size = 11;
  EXPECT_NE(SourceMark("/a", status), mark);
}

} // namespace
} // namespace workbench
