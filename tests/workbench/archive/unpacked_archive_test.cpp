#include "tests/support/archive/archive_maker.h"
#include "tests/support/temporary_directory.h"
#include "workbench/archive/unpacked_archive.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace workbench {
namespace {

using testing::TArchiveMaker;
using TMemberKind = TArchiveMember::TKind;

class UnpackedArchive : public ::testing::Test {
protected:
  std::vector<TArchiveMember> Unpack(const TArchiveLimits& limits = {}) {
    std::filesystem::remove_all(Directory());
    std::filesystem::create_directory(Directory());
    return UnpackArchive(
        File(), Directory(), [this] { return IsCancelled; }, limits);
  }
  std::string ProblemOf(const TArchiveLimits& limits = {}) {
    try {
      Unpack(limits);
    } catch (const TArchiveError& error) {
      return error.what();
    }
    return "none";
  }
  std::filesystem::path File() const { return FTemporary.Path() / "archive"; }
  std::filesystem::path Directory() const { return FTemporary.Path() / "unpacked"; }

  bool IsCancelled = false;

private:
  testing::TTemporaryDirectory FTemporary;
};

TEST_F(UnpackedArchive, GivesWhatATarHasWithRightsAndTime) {
  TArchiveMaker(File())
      .Directory("a")
      .File("./a//b", "four", 0750)
      .Link("a/l", "b")
      .HardLink("c", "./a//b");
  const auto members = Unpack();
  ASSERT_EQ(members.size(), 4U);
  EXPECT_EQ(members[0].Name, "a");
  EXPECT_EQ(members[0].Kind, TMemberKind::Directory);
  EXPECT_EQ(members[1].Name, "a/b");
  EXPECT_EQ(testing::ReadText(members[1].LocalFile), "four");
  struct stat status = {};
  ASSERT_EQ(::stat(members[1].LocalFile.c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0750U);
  EXPECT_EQ(status.st_mtim.tv_sec, TArchiveMaker::Time);
  EXPECT_EQ(members[2].Kind, TMemberKind::Link);
  EXPECT_EQ(members[2].LinkText, "b");
  EXPECT_EQ(members[3].LocalFile, members[1].LocalFile);
}

TEST_F(UnpackedArchive, ReadsCompressedTarsAndZips) {
  for (const auto format : {TArchiveMaker::TFormat::Tar, TArchiveMaker::TFormat::TarGzip,
                            TArchiveMaker::TFormat::TarXz, TArchiveMaker::TFormat::Zip}) {
    TArchiveMaker(File(), format).File("d/\xC3\xA4 \xD0\x96", std::string(300000, 'x'));
    const auto members = Unpack();
    ASSERT_EQ(members.size(), 1U);
    EXPECT_EQ(members[0].Name, "d/\xC3\xA4 \xD0\x96");
    EXPECT_EQ(testing::ReadText(members[0].LocalFile), std::string(300000, 'x'));
  }
}

TEST_F(UnpackedArchive, TakesTheLastOfAName) {
  TArchiveMaker(File()).File("a", "first").File("./a", "second");
  const auto members = Unpack();
  ASSERT_EQ(members.size(), 1U);
  EXPECT_EQ(testing::ReadText(members[0].LocalFile), "second");
}

TEST_F(UnpackedArchive, RefusesNamesThatLeadOut) {
  const auto problem = [this](const std::string& name) {
    TArchiveMaker(File()).File("fine", "x").File(name, "x");
    return ProblemOf();
  };
  EXPECT_EQ(problem("../a"), "\"../a\" in it leads out of the directory that it is unpacked into");
  EXPECT_EQ(problem("a/../../b"),
            "\"a/../../b\" in it leads out of the directory that it is unpacked into");
  EXPECT_EQ(problem("a\\..\\b"),
            "\"a\\..\\b\" in it leads out of the directory that it is unpacked into");
  EXPECT_EQ(problem("/etc/a"), "\"/etc/a\" in it has an absolute name");
  EXPECT_EQ(problem("\\a"), "\"\\a\" in it has an absolute name");
  EXPECT_EQ(problem("C:/a"), "\"C:/a\" in it has a name with a drive");
}

TEST_F(UnpackedArchive, RefusesLinksThatLeadOut) {
  const auto problem = [this](const std::string& name, const std::string& text) {
    TArchiveMaker(File()).Link(name, text);
    return ProblemOf();
  };
  EXPECT_EQ(problem("l", "/etc"), "\"l\" in it is a link that leads out: /etc");
  EXPECT_EQ(problem("l", ".."), "\"l\" in it is a link that leads out: ..");
  EXPECT_EQ(problem("d/l", "../../x"), "\"d/l\" in it is a link that leads out: ../../x");
  EXPECT_EQ(problem("d/l", "../x"), "none");
  // What a name leads to may be a link, so that it is not known what is above it.
  EXPECT_EQ(problem("d/l", "x/../y"), "\"d/l\" in it is a link that leads out: x/../y");
}

TEST_F(UnpackedArchive, RefusesToGoThroughALinkOrAFileOfItsOwn) {
  TArchiveMaker(File()).File("l/a", "x").Link("l", "d");
  EXPECT_EQ(ProblemOf(), "\"l/a\" in it is below l, which is no directory");
  TArchiveMaker(File()).File("f", "x").File("f/a", "x");
  EXPECT_EQ(ProblemOf(), "\"f/a\" in it is below f, which is no directory");
}

TEST_F(UnpackedArchive, RefusesDevicesAndPipes) {
  TArchiveMaker(File()).Special("null", S_IFCHR);
  EXPECT_EQ(ProblemOf(), "\"null\" in it is no file, directory or link");
  TArchiveMaker(File()).Special("pipe", S_IFIFO);
  EXPECT_EQ(ProblemOf(), "\"pipe\" in it is no file, directory or link");
}

TEST_F(UnpackedArchive, RefusesASecondNameOfWhatItDoesNotHave) {
  TArchiveMaker(File()).HardLink("a", "b");
  EXPECT_EQ(ProblemOf(), "\"a\" in it is a second name of what is no file in it");
  TArchiveMaker(File()).HardLink("a", "/etc/passwd");
  EXPECT_EQ(ProblemOf(), "\"/etc/passwd\" in it has an absolute name");
}

TEST_F(UnpackedArchive, StopsAtItsLimits) {
  TArchiveMaker(File(), TArchiveMaker::TFormat::TarGzip)
      .File("a", std::string(100000, 'x'))
      .File("b", std::string(100000, 'x'));
  EXPECT_EQ(ProblemOf({.Bytes = 200000}), "none");
  EXPECT_EQ(ProblemOf({.Bytes = 199999}), "it has more than 199999 bytes when it is unpacked");
  EXPECT_EQ(ProblemOf({.Members = 1}), "it has more than 1 members");
}

TEST_F(UnpackedArchive, SaysWhatIsNoArchive) {
  testing::WriteText(File(), "no archive at all, but some text");
  EXPECT_EQ(ProblemOf(), "it cannot be read: Unrecognized archive format");
  TArchiveMaker(File(), TArchiveMaker::TFormat::TarGzip).File("a", std::string(100000, 'x'));
  std::filesystem::resize_file(File(), 60);
  EXPECT_EQ(ProblemOf().substr(0, 18), "it cannot be read:");
}

TEST_F(UnpackedArchive, EndsWhenItIsCancelled) {
  TArchiveMaker(File()).File("a", "x");
  IsCancelled = true;
  EXPECT_EQ(ProblemOf(), "the run was interrupted");
}

} // namespace
} // namespace workbench
