#include "tests/workbench/files/save_fixture.h"
#include "workbench/files/file_saver.h"

#include <climits>

#include <array>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace workbench {
namespace {

using testing::ErrorOf;

class FileSaver : public testing::TSaveTest {
protected:
  TSaveOutcome Save(std::optional<std::string_view> expected, std::string_view content,
                    bool force = false) {
    return SaveFile({.Target = FFile,
                     .Content = std::array{content.substr(0, content.size() / 3),
                                           content.substr(content.size() / 3)},
                     .Expected = expected,
                     .Force = force});
  }
  std::string SaveFailure(std::optional<std::string_view> expected, std::string_view content) {
    return ErrorOf<TSaveError>([&] { Save(expected, content); });
  }
  static mode_t Mode(const std::filesystem::path& file) {
    struct stat status = {};
    stat(file.c_str(), &status);
    return status.st_mode & 07777;
  }
};

TEST_F(FileSaver, KeepsBackupsInOrderWhenTheClockIsSetBack) {
  Write(FFile, "0");
  for (const char* text : {"1", "2"})
    SaveFile({.Target = FFile, .Content = std::array{std::string_view(text)}, .Force = true});
  const auto newest = NewestBackup(FFile).value();
  // As if that one had been made by a clock that was far ahead.
  std::filesystem::rename(newest, BackupDirectory(FFile) / "20991231T235959.999999999Z");
  for (const char* text : {"3", "4", "5", "6", "7", "8"})
    SaveFile({.Target = FFile, .Content = std::array{std::string_view(text)}, .Force = true});
  EXPECT_EQ(NamesIn(BackupDirectory(FFile)).size(), BackupsKept);
  EXPECT_EQ(Read(NewestBackup(FFile).value()), "7");
  EXPECT_EQ(NewestBackup(FFile)->filename(), "21000101T000000.000005999Z");
}

TEST_F(FileSaver, TakesABackupThatIsTheFileItselfForNone) {
  Write(FFile, "old");
  std::filesystem::create_directories(BackupDirectory(FFile));
  const auto left = BackupDirectory(FFile) / "20260101T000000.000000000Z";
  std::filesystem::create_hard_link(FFile, left); // killed before the rename
  const auto outcome =
      SaveFile({.Target = FFile, .Content = std::array{std::string_view("new")}, .Force = true});
  EXPECT_TRUE(outcome.Warnings.empty());
  EXPECT_FALSE(std::filesystem::exists(left));
  EXPECT_EQ(Read(NewestBackup(FFile).value()), "old");
}

TEST_F(FileSaver, ReplacesTheContentAndKeepsTheOldOneAsABackup) {
  Write(FFile, "old");
  const TSaveOutcome outcome = Save("old", "the new content");
  EXPECT_TRUE(outcome.Written);
  EXPECT_TRUE(outcome.Warnings.empty());
  EXPECT_EQ(Read(FFile), "the new content");
  EXPECT_EQ(Read(outcome.Backup), "old");
  EXPECT_EQ(NewestBackup(FFile), outcome.Backup);
  EXPECT_EQ(Names(), std::vector<std::string>{"demo.vproj"});
  EXPECT_EQ(Mode(FRoot / "state"), 0700U);
}

TEST_F(FileSaver, WritesManyPieces) {
  std::vector<std::string> texts;
  std::string whole;
  for (int i = 0; i < 5000; ++i)
    whole +=
        texts.emplace_back(i % 7 == 0 ? "" : std::string(static_cast<std::size_t>(i % 300), 'x'));
  const std::vector<std::string_view> pieces(texts.begin(), texts.end());
  EXPECT_TRUE(SaveFile({.Target = FFile, .Content = pieces, .Expected = {}}).Written);
  EXPECT_EQ(Read(FFile), whole);
}

TEST_F(FileSaver, WritesNothingWhenTheContentIsThereAlready) {
  Write(FFile, "same");
  struct stat before = {};
  struct stat after = {};
  stat(FFile.c_str(), &before);
  EXPECT_FALSE(Save("same", "same").Written);
  EXPECT_FALSE(Save("something else", "same").Written);
  stat(FFile.c_str(), &after);
  EXPECT_EQ(before.st_ino, after.st_ino);
  EXPECT_EQ(NewestBackup(FFile), std::nullopt);
}

TEST_F(FileSaver, RefusesAFileThatChangedSinceItWasRead) {
  Write(FFile, "theirs");
  EXPECT_EQ(SaveFailure("mine", "new"),
            FFile.string() + " changed on disk since it was read; nothing was written "
                             "(--force-save overwrites it)");
  EXPECT_EQ(Read(FFile), "theirs");
  EXPECT_TRUE(Save("mine", "new", true).Written);
  EXPECT_EQ(Read(FFile), "new");
}

TEST_F(FileSaver, RefusesAFileThatWasRemovedSinceItWasRead) {
  EXPECT_EQ(SaveFailure("mine", "new"), FFile.string() +
                                            " was removed since it was read; nothing was written "
                                            "(--force-save writes it anew)");
  EXPECT_TRUE(Names().empty());
  EXPECT_TRUE(Save("mine", "new", true).Written);
  EXPECT_EQ(Read(FFile), "new");
}

TEST_F(FileSaver, RefusesToMakeAFileThatExists) {
  Write(FFile, "theirs");
  EXPECT_EQ(SaveFailure(std::nullopt, "theirs"),
            FFile.string() + " exists already; nothing was written");
  EXPECT_EQ(Read(FFile), "theirs");
}

TEST_F(FileSaver, MakesANewFileUnderTheUsersMask) {
  const mode_t before = umask(027);
  EXPECT_TRUE(Save(std::nullopt, "new").Written);
  umask(before);
  EXPECT_EQ(Mode(FFile), 0640U);
  EXPECT_EQ(Read(FFile), "new");
  EXPECT_EQ(NewestBackup(FFile), std::nullopt);
}

TEST_F(FileSaver, KeepsRightsAndUserAttributes) {
  Write(FFile, "old");
  ASSERT_EQ(chmod(FFile.c_str(), 0604), 0);
  const bool hasAttributes = setxattr(FFile.c_str(), "user.origin", "here", 4, 0) == 0;
  EXPECT_TRUE(Save("old", "new").Warnings.empty());
  EXPECT_EQ(Mode(FFile), 0604U);
  std::array<char, 4> value = {};
  if (hasAttributes) {
    ASSERT_EQ(getxattr(FFile.c_str(), "user.origin", value.data(), value.size()), 4);
    EXPECT_EQ(std::string_view(value.data(), value.size()), "here");
  }
}

TEST_F(FileSaver, KeepsOwnerAndGroupWhenItMay) {
  if (geteuid() != 0)
    GTEST_SKIP() << "only the superuser can give files away";
  Write(FFile, "old");
  ASSERT_EQ(chown(FFile.c_str(), 12345, 54321), 0);
  Save("old", "new");
  struct stat status = {};
  stat(FFile.c_str(), &status);
  EXPECT_EQ(status.st_uid, 12345U);
  EXPECT_EQ(status.st_gid, 54321U);
}

TEST_F(FileSaver, FollowsASymbolicLinkAndLeavesItALink) {
  const std::filesystem::path elsewhere = FRoot / "elsewhere";
  std::filesystem::create_directory(elsewhere);
  Write(elsewhere / "real.vproj", "old");
  std::filesystem::create_symlink("../elsewhere/real.vproj", FFile);
  EXPECT_TRUE(Save("old", "new").Written);
  EXPECT_TRUE(std::filesystem::is_symlink(FFile));
  EXPECT_EQ(Read(elsewhere / "real.vproj"), "new");
  EXPECT_EQ(NamesIn(elsewhere), std::vector<std::string>{"real.vproj"});
  EXPECT_EQ(Read(NewestBackup(FFile).value()), "old");
}

TEST_F(FileSaver, StopsAtLinksInACircle) {
  std::filesystem::create_symlink("b.vproj", FDirectory / "demo.vproj");
  std::filesystem::create_symlink("demo.vproj", FDirectory / "b.vproj");
  EXPECT_EQ(SaveFailure(std::nullopt, "new"),
            FFile.string() + " was not written: following the symbolic link: "
                             "Too many levels of symbolic links; no file was made");
}

TEST_F(FileSaver, WarnsOfFurtherNamesOfTheFile) {
  Write(FFile, "old");
  std::filesystem::create_hard_link(FFile, FDirectory / "other.vproj");
  const TSaveOutcome outcome = Save("old", "new");
  ASSERT_EQ(outcome.Warnings.size(), 1U);
  EXPECT_EQ(outcome.Warnings[0], FFile.string() + " has further names; they keep the old content");
  EXPECT_EQ(Read(FDirectory / "other.vproj"), "old");
  // A copy, since the other name may be written in place.
  Write(FDirectory / "other.vproj", "changed");
  EXPECT_EQ(Read(outcome.Backup), "old");
}

TEST_F(FileSaver, RefusesADirectory) {
  std::filesystem::create_directory(FFile);
  EXPECT_EQ(SaveFailure(std::nullopt, "new"),
            FFile.string() + " is a directory; nothing was written");
}

TEST_F(FileSaver, SaysThatTheDirectoryIsMissing) {
  std::filesystem::remove(FDirectory);
  EXPECT_EQ(SaveFailure(std::nullopt, "new"),
            FFile.string() + " was not written: opening its directory: No such file or directory; "
                             "no file was made");
}

TEST_F(FileSaver, KeepsTheLastFiveContents) {
  Write(FFile, "0");
  for (int i = 0; i < 8; ++i)
    Save(std::to_string(i), std::to_string(i + 1));
  const std::vector<std::string> backups = NamesIn(BackupDirectory(FFile));
  ASSERT_EQ(backups.size(), 5U);
  EXPECT_EQ(Read(BackupDirectory(FFile) / backups.front()), "3");
  EXPECT_EQ(Read(NewestBackup(FFile).value()), "7");
}

TEST_F(FileSaver, KeepsBackupsOfFilesOfOneNameApart) {
  EXPECT_NE(BackupDirectory("/a/demo.vproj"), BackupDirectory("/b/demo.vproj"));
  EXPECT_EQ(BackupDirectory("/a/b/../demo.vproj"), BackupDirectory("/a/demo.vproj"));
}

TEST_F(FileSaver, SavesWithAWarningWhenThereIsNoRoomForABackup) {
  Write(FRoot / "state", "a file where the directory should be");
  Write(FFile, "old");
  const TSaveOutcome outcome = Save("old", "new");
  ASSERT_EQ(outcome.Warnings.size(), 1U);
  EXPECT_EQ(outcome.Warnings[0], "the old content of " + FFile.string() +
                                     " was not kept as a backup: making the directory: "
                                     "Not a directory");
  EXPECT_EQ(Read(FFile), "new");
}

TEST_F(FileSaver, RemovesOnlyOldTemporaryFilesOfTheSameTarget) {
  Write(FFile, "old");
  const auto twoDaysAgo = std::filesystem::file_time_type::clock::now() - std::chrono::hours(48);
  for (const char* name :
       {".demo.vproj.abc123.tmp", ".demo.vproj.ABC123.tmp", ".other.abc123.tmp"}) {
    Write(FDirectory / name, "left");
    std::filesystem::last_write_time(FDirectory / name, twoDaysAgo);
  }
  Write(FDirectory / ".demo.vproj.fresh1.tmp", "of a run beside this one");
  Save("old", "new");
  EXPECT_EQ(Names(), (std::vector<std::string>{".demo.vproj.ABC123.tmp", ".demo.vproj.fresh1.tmp",
                                               ".other.abc123.tmp", "demo.vproj"}));
}

TEST_F(FileSaver, SavesAFileOfTheLongestName) {
  FFile = FDirectory / std::string(NAME_MAX, 'n');
  Write(FFile, "old");
  EXPECT_TRUE(Save("old", "new").Warnings.empty());
  EXPECT_EQ(Read(FFile), "new");
  EXPECT_EQ(Read(NewestBackup(FFile).value()), "old");
}

TEST_F(FileSaver, KeepsTheOldContentWhenTheFileWouldGrowTooLarge) {
  Write(FFile, "old");
  rlimit before = {};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
  const rlimit small = {4096, before.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
  const std::string failure = SaveFailure("old", std::string(10000, 'n'));
  setrlimit(RLIMIT_FSIZE, &before);
  EXPECT_EQ(failure, FFile.string() + " was not written: writing the new content: File too large; "
                                      "the old content is in place");
  EXPECT_EQ(Read(FFile), "old");
  EXPECT_EQ(Names(), std::vector<std::string>{"demo.vproj"});
}

// What a child that has no special rights answers when it saves.
template <class TAction>
std::string AsOrdinaryUser(TAction action) {
  std::array<int, 2> ends = {};
  if (pipe(ends.data()) != 0)
    return "no pipe";
  const pid_t child = fork();
  if (child == 0) {
    constexpr uid_t nobody = 65534;
    std::string answer = "rights were not dropped";
    if (geteuid() != 0 || (setgid(nobody) == 0 && setuid(nobody) == 0))
      answer = action();
    const ssize_t written = write(ends[1], answer.data(), answer.size());
    _exit(written == static_cast<ssize_t>(answer.size()) ? 0 : 1);
  }
  close(ends[1]);
  std::string answer;
  std::array<char, 4096> block = {};
  for (ssize_t count = read(ends[0], block.data(), block.size()); count > 0;
       count = read(ends[0], block.data(), block.size()))
    answer.append(block.data(), static_cast<std::size_t>(count));
  close(ends[0]);
  waitpid(child, nullptr, 0);
  return answer;
}

TEST_F(FileSaver, KeepsTheOldContentInADirectoryWithoutWriteAccess) {
  Write(FFile, "old");
  chmod(FRoot.c_str(), 0755);
  chmod(FFile.c_str(), 0666);
  chmod(FDirectory.c_str(), 0555);
  EXPECT_EQ(AsOrdinaryUser([&] { return SaveFailure("old", "new"); }),
            FFile.string() + " was not written: making a temporary file beside it: "
                             "Permission denied; the old content is in place");
  chmod(FDirectory.c_str(), 0755);
  EXPECT_EQ(Read(FFile), "old");
}

TEST_F(FileSaver, DoesNotReplaceAWriteProtectedFile) {
  Write(FFile, "old");
  chmod(FRoot.c_str(), 0755);
  chmod(FDirectory.c_str(), 0777);
  chmod(FFile.c_str(), 0444);
  EXPECT_EQ(AsOrdinaryUser([&] { return SaveFailure("old", "new"); }),
            FFile.string() +
                " was not written: writing it: Permission denied; the old content is in place");
  EXPECT_EQ(Read(FFile), "old");
}

} // namespace
} // namespace workbench
