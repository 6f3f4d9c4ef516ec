#include "tests/workbench/remote/sftp/sftp_fixture.h"
#include "workbench/files/sha256.h"

#include <fcntl.h>
#include <fstream>
#include <sys/stat.h>

namespace workbench {
namespace {

using testing::Program;
using testing::SftpServer;

using SftpConnection = testing::SftpTest;

std::vector<std::string> List(std::initializer_list<const char*> texts) {
  return {texts.begin(), texts.end()};
}

TEST_F(SftpConnection, ResolvesDirectoriesThatAreThereAndThoseThatAreNot) {
  std::filesystem::create_directories(Place.Target("there/deep"));
  const auto found = Connect()->Resolve(List({"", "there/deep", "there/new/deeper", "there"}));
  EXPECT_EQ(found[0].Path, Place.Target());
  EXPECT_TRUE(found[0].Exists);
  EXPECT_EQ(found[1].Path, Place.Target("there/deep"));
  EXPECT_TRUE(found[1].Exists && found[1].IsInside);
  EXPECT_EQ(found[2].Path, Place.Target("there/new/deeper"));
  EXPECT_FALSE(found[2].Exists);
  EXPECT_TRUE(found[2].IsInside);
  EXPECT_EQ(found[2].Problem, "");
}

TEST_F(SftpConnection, SeesThatALinkLeadsOutOfTheRoot) {
  std::filesystem::create_directory_symlink(Place.Local(), Place.Target("out"));
  std::filesystem::create_directory_symlink(Place.Target(), Place.Target("in"));
  const auto found = Connect()->Resolve(List({"out/x", "in/x"}));
  EXPECT_EQ(found[0].Path, Place.Local("x"));
  EXPECT_FALSE(found[0].IsInside);
  EXPECT_EQ(found[1].Path, Place.Target("x"));
  EXPECT_TRUE(found[1].IsInside);
}

TEST_F(SftpConnection, NamesWhatStandsInTheWayOfADirectory) {
  Place.Write(Place.Target("file"), "x");
  std::filesystem::create_symlink("nowhere", Place.Target("dangling"));
  const auto found = Connect()->Resolve(List({"file/x", "dangling/x"}));
  EXPECT_EQ(found[0].Problem, Place.Target("file").string() + " is a file, not a directory");
  EXPECT_EQ(found[1].Problem,
            Place.Target("dangling").string() + " is a link that cannot be followed");
}

TEST_F(SftpConnection, BeginsAtHomeWithATilde) {
  TSftpMachine machine = Machine();
  machine.Root = "~/program";
  machine.Sftp.Directory = Place.Target(); // where the server begins
  TSftpConnection connection(machine, Facts);
  const std::string nothing;
  EXPECT_EQ(connection.Resolve({&nothing, 1}).front().Path, Place.Target("program"));
  EXPECT_EQ(connection.Resolve(List({"~/x"})).front().Path, Place.Target("x"));
  EXPECT_FALSE(connection.Resolve(List({"~/x"})).front().IsInside);
}

TEST_F(SftpConnection, RefusesARootThatIsAFile) {
  Place.Write(Place.Target("file"), "x");
  TSftpMachine machine = Machine();
  machine.Root = Place.Target("file").string();
  try {
    const TSftpConnection connection(machine, Facts);
    FAIL();
  } catch (const TConnectionError& error) {
    EXPECT_EQ(std::string(error.what()), machine.Root + " is a file, not a directory");
  }
}

TEST_F(SftpConnection, PutsLinksInPlaceAndReadsThemBack) {
  Place.Write(Place.Target("libx.so.1.2"), "library");
  Place.Write(Place.Target("libx.so"), "an old copy");
  const std::string root = Place.Target().string();
  const auto connection = Connect();
  ASSERT_TRUE(connection->KnowsLinks());
  EXPECT_EQ(connection->MakeLink({root, "libx.so.1"}, "libx.so.1.2"), "");
  EXPECT_EQ(connection->MakeLink({root, "libx.so"}, "libx.so.1"), "");
  EXPECT_EQ(connection->MakeLink({root, "libx.so"}, "libx.so.1"), "");
  EXPECT_EQ(std::filesystem::read_symlink(Place.Target("libx.so.1")), "libx.so.1.2");
  EXPECT_EQ(std::filesystem::read_symlink(Place.Target("libx.so")), "libx.so.1");
  EXPECT_EQ(Place.Read(Place.Target("libx.so")), "library");
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
  const std::vector<TRemoteName> names{
      {root, "libx.so"}, {root, "libx.so.1"}, {root, "libx.so.1.2"}, {root, "none"}};
  const auto links = connection->ReadLinks(names);
  EXPECT_EQ(links[0].Text, "libx.so.1");
  EXPECT_EQ(links[1].Text, "libx.so.1.2");
  EXPECT_EQ(links[2].Text, "");
  EXPECT_NE(links[2].Problem, "");
  EXPECT_EQ(links[3].Problem, "reading the link: no such file or directory");
}

TEST_F(SftpConnection, SaysWhyALinkIsNotMadeAndLeavesNothingBehind) {
  std::filesystem::create_directories(Place.Target("directory/with"));
  const std::string root = Place.Target().string();
  EXPECT_EQ(Connect()->MakeLink({root + "/none", "x"}, "y"),
            "making a link beside it: no such file or directory");
  EXPECT_EQ(Connect()->MakeLink({root, "directory"}, "y"),
            "putting it in place: the server reports a failure");
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
  EXPECT_TRUE(std::filesystem::is_directory(Place.Target("directory/with")));
}

TEST_F(SftpConnection, ExaminesFilesWithoutFollowingLinks) {
  Place.Write(Place.Target("a"), "four");
  ::chmod(Place.Target("a").c_str(), 0755);
  const timespec times[2] = {{5, 0}, {1700000000, 500000000}};
  ::utimensat(AT_FDCWD, Place.Target("a").c_str(), times, 0);
  std::filesystem::create_symlink("a", Place.Target("link"));
  std::filesystem::create_directory(Place.Target("directory"));
  const std::string root = Place.Target().string();
  const std::vector<TRemoteName> names{
      {root, "a"}, {root, "link"}, {root, "directory"}, {root, "none"}, {root + "/none", "none"}};
  const auto answers = Connect()->Examine(names);
  EXPECT_EQ(answers[0].Kind, TRemoteKind::File);
  EXPECT_EQ(answers[0].Size, 4U);
  EXPECT_EQ(answers[0].Mode, 0755U);
  EXPECT_EQ(answers[0].Modified.time_since_epoch(), std::chrono::seconds(1700000000));
  EXPECT_EQ(answers[1].Kind, TRemoteKind::Link);
  EXPECT_EQ(answers[2].Kind, TRemoteKind::Directory);
  EXPECT_EQ(answers[3].Kind, TRemoteKind::None);
  EXPECT_EQ(answers[4].Kind, TRemoteKind::None);
  EXPECT_EQ(answers[4].Problem, "");
}

TEST_F(SftpConnection, AnswersTenThousandQuestionsInTheirOrder) {
  for (int i = 0; i < 10000; i += 100)
    Place.Write(Place.Target(std::to_string(i)), std::string(static_cast<std::size_t>(i), 'x'));
  std::vector<TRemoteName> names;
  for (int i = 0; i < 10000; ++i)
    names.push_back({Place.Target().string(), std::to_string(i)});
  const auto answers = Connect()->Examine(names);
  for (std::size_t i = 0; i < answers.size(); ++i) {
    EXPECT_EQ(answers[i].Kind, i % 100 == 0 ? TRemoteKind::File : TRemoteKind::None) << i;
    EXPECT_EQ(answers[i].Size, i % 100 == 0 ? i : 0U);
  }
}

TEST_F(SftpConnection, MakesDirectoriesWithThoseAboveThem) {
  std::filesystem::create_directory(Place.Target("there"));
  Place.Write(Place.Target("file"), "x");
  const std::string root = Place.Target().string();
  const std::vector<std::string> wanted{root + "/a/b/c", root + "/there/x", root + "/a/b",
                                        root + "/file/y"};
  const auto connection = Connect();
  const auto problems = connection->MakeDirectories(wanted);
  EXPECT_EQ(problems[0], "");
  EXPECT_EQ(problems[1], "");
  EXPECT_EQ(problems[2], "");
  EXPECT_EQ(problems[3], root + "/file is there and is no directory");
  EXPECT_TRUE(std::filesystem::is_directory(root + "/a/b/c"));
  EXPECT_TRUE(std::filesystem::is_directory(root + "/there/x"));
}

TEST_F(SftpConnection, SetsTimesAndRemovesFiles) {
  Place.Write(Place.Target("a"), "x");
  const auto connection = Connect();
  const TRemoteName name{Place.Target().string(), "a"};
  const deployment::TFileTime time(std::chrono::seconds(1600000000));
  EXPECT_EQ(connection->SetTime(name, time), "");
  EXPECT_EQ(connection->Examine({&name, 1}).front().Modified, time);
  EXPECT_EQ(connection->Remove(name), "");
  EXPECT_FALSE(std::filesystem::exists(Place.Target("a")));
  EXPECT_EQ(connection->Remove(name), "");
  EXPECT_EQ(connection->SetTime(name, time), "setting the time stamp: no such file or directory");
}

TEST_F(SftpConnection, StampsManyFilesAndSaysWhichWereRefused) {
  Place.Write(Place.Target("a"), "x");
  Place.Write(Place.Target("b"), "x");
  const auto connection = Connect();
  const std::string root = Place.Target().string();
  const deployment::TFileTime time(std::chrono::seconds(1600000000));
  const std::vector<TRemoteStamp> stamps{{.Name = {root, "a"}, .Mode = 0711, .Time = time},
                                         {.Name = {root, "gone"}, .Mode = 0600, .Time = time},
                                         {.Name = {root, "gone"}, .Time = time},
                                         {.Name = {root, "b"}, .Mode = 0600}};
  EXPECT_EQ(connection->Stamp(stamps),
            (std::vector<std::string>{"", "setting its rights: no such file or directory",
                                      "setting the time stamp: no such file or directory", ""}));
  const auto found = connection->Examine(std::vector<TRemoteName>{{root, "a"}, {root, "b"}});
  EXPECT_EQ(found[0].Mode, 0711U);
  EXPECT_EQ(found[0].Modified, time);
  EXPECT_EQ(found[1].Mode, 0600U);
  EXPECT_NE(found[1].Modified, time);
}

TEST_F(SftpConnection, HashesFilesThereAndWithoutAShellByReading) {
  std::vector<TRemoteName> names;
  std::vector<std::string> expected;
  const auto add = [&](const std::string& name, const std::string& content) {
    Place.Write(Place.Target(name), content);
    names.push_back({Place.Target().string(), name});
    expected.push_back(FileSHA256(Place.Target(name)).value());
  };
  add("large", std::string(3000000, 'x'));
  add("empty", "");
  add("odd\nname \\ 'it'", "z");
  for (int i = 0; i < 200; ++i)
    add("many" + std::to_string(i), std::to_string(i));
  names.push_back({Place.Target().string(), "missing"});
  expected.emplace_back();
  EXPECT_EQ(Connect()->Hashes(names), expected);
  TSftpMachine machine = Machine();
  machine.Exec = nullptr;
  EXPECT_EQ(TSftpConnection(machine, Facts).Hashes(names), expected);
}

TEST_F(SftpConnection, ReadsAFileUpToALimit) {
  Place.Write(Place.Target("a"), std::string(600000, 'x'));
  std::filesystem::create_symlink("a", Place.Target("link"));
  const auto connection = Connect();
  const std::string root = Place.Target().string();
  EXPECT_EQ(connection->ReadFile({root, "a"}, 600000).Text, std::string(600000, 'x'));
  EXPECT_EQ(connection->ReadFile({root, "a"}, 599999).Problem, "it is larger than 599999 bytes");
  EXPECT_FALSE(connection->ReadFile({root, "none"}, 10).IsThere);
  EXPECT_EQ(connection->ReadFile({root, "none"}, 10).Problem, "");
  EXPECT_EQ(connection->ReadFile({root, "link"}, 10).Problem, "reading it: it is no plain file");
}

TEST_F(SftpConnection, MakesAFileOnce) {
  using TResult = TRemoteCreation::TResult;
  const deployment::TFileTime At{std::chrono::seconds(1'000'000)};
  const auto connection = Connect();
  const TRemoteName name{Place.Target().string(), "lock"};
  EXPECT_EQ(connection->CreateFile(name, "mine", At).Result, TResult::Made);
  EXPECT_EQ(Connect()->CreateFile(name, "theirs", At).Result, TResult::Exists);
  EXPECT_EQ(Place.Read(Place.Target("lock")), "mine");
  EXPECT_EQ(connection->Examine({&name, 1})[0].Modified, At);
  EXPECT_EQ(connection->Rename(name, "other"), "");
  EXPECT_EQ(Place.Read(Place.Target("other")), "mine");
  EXPECT_EQ(connection->SetMode({name.Directory, "other"}, 0640), "");
  EXPECT_EQ(connection->Examine(std::vector<TRemoteName>{{name.Directory, "other"}})[0].Mode,
            0640U);
}

TEST_F(SftpConnection, MakesAFileOnceWhereTheServerRefusesSecondNames) {
  using TResult = TRemoteCreation::TResult;
  TSftpMachine machine = Machine();
  machine.Sftp = Program({SftpServer, "-P", "hardlink"});
  TSftpConnection connection(machine, Facts);
  const TRemoteName name{Place.Target().string(), "lock"};
  EXPECT_EQ(connection.CreateFile(name, "mine", {}).Result, TResult::Made);
  EXPECT_EQ(connection.CreateFile(name, "theirs", {}).Result, TResult::Exists);
  EXPECT_EQ(Place.Read(Place.Target("lock")), "mine");
}

TEST_F(SftpConnection, MakesNoFileWithoutItsTextWhenTheServerDies) {
  TSftpMachine machine = Machine();
  // The first byte that is written ends the server.
  machine.Sftp =
      Program({"/bin/sh", "-c", std::string("ulimit -c 0; ulimit -f 0; exec ") + SftpServer});
  TSftpConnection connection(machine, Facts);
  const TRemoteName name{Place.Target().string(), "lock"};
  EXPECT_THROW(connection.CreateFile(name, "mine", {}), TConnectionError);
  EXPECT_FALSE(std::filesystem::exists(Place.Target("lock")));
  EXPECT_EQ(Unfinished().size(), 1U);
}

TEST_F(SftpConnection, FindsOutWhatRunsCommands) {
  EXPECT_EQ(Connect()->Shell(), TShell::Posix);
  TSftpMachine machine = Machine();
  machine.Exec = nullptr;
  EXPECT_EQ(TSftpConnection(machine, std::make_shared<TMachineFacts>()).Shell(), TShell::None);
  machine.Exec = [](const std::string&) {
    return testing::Program({"/bin/sh", "-c", "echo 'deploymgr C:\\x $PSVersionTable.PSEdition'"});
  };
  EXPECT_EQ(TSftpConnection(machine, std::make_shared<TMachineFacts>()).Shell(), TShell::Cmd);
}

TEST_F(SftpConnection, RunsCommandsInTheirDirectory) {
  std::vector<std::string> lines;
  const std::atomic<int> cancelled = 0;
  const std::string directory = Place.Target("it's here").string();
  std::filesystem::create_directory(directory);
  const auto connection = Connect();
  EXPECT_EQ(connection->RunCommand(
                "pwd; echo two >&2; exit 3", directory,
                [&](std::string_view line) { lines.emplace_back(line); }, cancelled),
            "ended with status 3");
  EXPECT_EQ(lines, (std::vector<std::string>{directory, "two"}));
}

std::string MessageOf(const TProcessStart& start) {
  try {
    const std::chrono::milliseconds patience(300);
    const TSftpChannel channel(start, {patience, patience});
  } catch (const TConnectionError& error) {
    return error.what();
  }
  return "no error";
}

TEST(SftpChannel, SaysWhatTheProgramSaidWhenItEnds) {
  EXPECT_EQ(MessageOf(Program({"/bin/sh", "-c", "echo Permission denied >&2; exit 255"})),
            "Permission denied");
  EXPECT_EQ(MessageOf(Program({"/bin/sh", "-c", "exit 1"})),
            "the machine ended the conversation before it began");
}

TEST(SftpChannel, MakesWhatAMachineSaysVisible) {
  EXPECT_EQ(MessageOf(Program({"/bin/sh", "-c", R"(printf 'a\033[31mb\377\n' >&2)"})),
            "a\\x1B[31mb\\xFF");
}

TEST(SftpChannel, RefusesWhatIsNoPacketOfTheProtocol) {
  const std::string text = "the machine does not speak the file transfer protocol; perhaps its "
                           "start-up files print text";
  EXPECT_EQ(MessageOf(Program({"/bin/sh", "-c", "echo Welcome to the machine; sleep 1"})), text);
  EXPECT_EQ(MessageOf(Program({"/bin/sh", "-c", R"(printf '\0\0\0\0'; sleep 1)"})), text);
  EXPECT_EQ(MessageOf(Program({"/bin/sh", "-c", R"(printf '\377\377\377\377'; sleep 1)"})), text);
}

TEST(SftpChannel, RefusesAnOlderProtocolAndAGreetingThatEndsEarly) {
  EXPECT_EQ(MessageOf(Program({"/bin/sh", "-c", R"(printf '\0\0\0\005\002\0\0\0\002'; sleep 1)"})),
            "the machine does not speak version 3 of the file transfer protocol");
  EXPECT_EQ(MessageOf(Program(
                {"/bin/sh", "-c", R"(printf '\0\0\0\011\002\0\0\0\003\0\0\0\377'; sleep 1)"})),
            "the machine's greeting makes no sense: a packet ends early");
}

TEST(SftpChannel, GivesUpOnAMachineThatSaysNothing) {
  EXPECT_EQ(MessageOf(Program({"/bin/sh", "-c", "sleep 60"})),
            "the machine has not answered for 0 seconds");
}

TEST(SftpChannel, RefusesAnAnswerToNoQuestion) {
  EXPECT_EQ(
      MessageOf(Program({"/bin/sh", "-c",
                         R"(printf '\0\0\0\005\002\0\0\0\003'; sleep 0.2;)"
                         R"(printf '\0\0\0\021\145\0\0\0\011\0\0\0\0\0\0\0\0\0\0\0\0'; sleep 1)"})),
      "the machine answers what it was not asked");
}

TEST(SftpChannel, EndsAnAttemptThatIsCancelled) {
  const std::atomic<int> cancelled = 2;
  try {
    const TSftpChannel channel(Program({"/bin/sh", "-c", "sleep 60"}),
                               {std::chrono::seconds(60), std::chrono::seconds(60)}, &cancelled);
    FAIL();
  } catch (const TConnectionError& error) {
    EXPECT_STREQ(error.what(), "the run was interrupted");
  }
}

} // namespace
} // namespace workbench
