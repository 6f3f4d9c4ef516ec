#include "tests/workbench/remote/target/remote_fixture.h"

namespace workbench {
namespace {

using deployment::TDeployOperation;
using testing::TRemotePlace;
using TTexts = std::vector<std::string>;

const TPlanOptions IgnoringCase{.Places = {.Names = {.IgnoresCase = true}}};

TEST(DeployPlan, NamesTheWholePathOnTheTarget) {
  const TRemotePlace place;
  const TDeployPlan plan = place.Plan({place.File("a", "demo\\.\\sub\\b.dat", "12345")});
  ASSERT_EQ(plan.Problems, TTexts());
  EXPECT_EQ(plan.Files[0].RemoteFile(), place.Target("demo/sub/b.dat").string());
  EXPECT_EQ(plan.Files[0].Action, TDeployAction::Copied);
  EXPECT_EQ(plan.Files[0].Bytes, 5U);
  EXPECT_TRUE(std::filesystem::is_empty(place.Target()));
}

TEST(DeployPlan, RefusesTwoFilesInOnePlaceWhereTheTargetIgnoresCase) {
  const TRemotePlace place;
  const std::vector<TDeployFile> files{place.File("a", "demo\\x.dat"),
                                       place.File("b", "DEMO\\X.dat")};
  EXPECT_EQ(place.Plan(files).Problems, TTexts());
  EXPECT_EQ(
      place.Plan(files, IgnoringCase).Problems,
      TTexts{"\"b\": it lands on " + place.Target("DEMO/X.dat").string() + ", and so does \"a\""});
}

TEST(DeployPlan, RefusesAFileWhereAnotherNeedsADirectory) {
  const TRemotePlace place;
  const TDeployPlan plan =
      place.Plan({place.File("a", "demo\\x"), place.File("b", "demo\\x\\y\\z.dat")});
  EXPECT_EQ(plan.Problems, TTexts{"\"a\": it lands on " + place.Target("demo/x").string() +
                                  ", which is a directory for \"b\""});
}

TEST(DeployPlan, FindsTwoNamesOfOnePlaceThroughALink) {
  const TRemotePlace place;
  std::filesystem::create_directories(place.Target("real"));
  std::filesystem::create_directory_symlink("real", place.Target("link"));
  const TDeployPlan plan =
      place.Plan({place.File("a", "real\\x.dat"), place.File("b", "link\\x.dat")});
  EXPECT_EQ(plan.Problems, TTexts{"\"b\": it lands on " + place.Target("real/x.dat").string() +
                                  ", and so does \"a\""});
}

TEST(DeployPlan, RefusesADirectoryThatIsAFile) {
  const TRemotePlace place;
  TRemotePlace::Write(place.Target("demo"), "a file");
  EXPECT_EQ(place.Plan({place.File("a", "demo\\x.dat")}).Problems,
            TTexts{"\"a\": it cannot go to \"demo\\x.dat\": " + place.Target("demo").string() +
                   " is a file, not a directory"});
}

TEST(DeployPlan, RefusesAFileThatIsADirectoryOnTheTarget) {
  const TRemotePlace place;
  std::filesystem::create_directories(place.Target("demo/x.dat"));
  EXPECT_EQ(place.Plan({place.File("a", "demo\\x.dat")}).Problems,
            TTexts{"\"a\": it lands on " + place.Target("demo/x.dat").string() +
                   ", which is a directory on the target"});
}

TEST(DeployPlan, RefusesALinkThatLeadsNowhere) {
  const TRemotePlace place;
  std::filesystem::create_symlink("gone", place.Target("link"));
  const TDeployPlan plan = place.Plan({place.File("a", "link\\x.dat")});
  ASSERT_EQ(plan.Problems.size(), 1U);
  EXPECT_NE(plan.Problems[0].find("cannot be followed"), std::string::npos) << plan.Problems[0];
}

TEST(DeployPlan, RefusesAPathWithoutAName) {
  const TRemotePlace place;
  EXPECT_EQ(place.Plan({place.File("a", "demo\\")}).Problems,
            TTexts{"\"a\": its remote path \"demo\\\" names no file"});
}

TEST(DeployPlan, FailsTheRowOfWhatIsNoFile) {
  const TRemotePlace place;
  TDeployFile file = place.File("a", "x");
  file.LocalFile = place.Local();
  const TDeployPlan plan = place.Plan({file}, {.SkipMissing = true});
  EXPECT_EQ(plan.Problems, TTexts());
  EXPECT_EQ(plan.Files[0].Action, TDeployAction::Failed);
  EXPECT_EQ(plan.Files[0].Reason, place.Local().string() + " is a directory, not a file");
}

TEST(DeployPlan, GivesAProgramThatMayNotBeRunItsModeWithoutCopyingIt) {
  const TRemotePlace place;
  TDeployFile file = place.File("a", "a");
  TRemotePlace::Write(place.Target("a"), "content");
  std::filesystem::last_write_time(place.Target("a"),
                                   std::filesystem::last_write_time(place.Local("a")));
  EXPECT_EQ(place.Plan({file}).Files[0].Action, TDeployAction::Unchanged);
  file.Executable = true;
  EXPECT_EQ(place.Plan({file}).Files[0].Action, TDeployAction::Mode);
}

TEST(DeployPlan, RemovesOnlyBelowTheProjectsDirectoryOnTheTarget) {
  const TRemotePlace place;
  TRemotePlace::Write(place.Target("demo/x"), "x");
  TRemotePlace::Write(place.Target("other/keep"), "x");
  std::filesystem::create_directory_symlink("../other", place.Target("demo/link"));
  const auto problems = [&](const std::string& remoteName) {
    TDeployFile file = place.File("a", remoteName);
    file.Operation = TDeployOperation::Remove;
    return place.Plan({file}, {.RootName = "demo"}).Problems;
  };
  EXPECT_EQ(problems("demo\\x"), TTexts());
  EXPECT_EQ(problems("demo\\..\\other\\keep"),
            TTexts{"\"a\": it cannot be removed from \"demo\\..\\other\\keep\", which is not below "
                   "the project's directory on the target"});
  EXPECT_EQ(problems("demo\\link\\keep").size(), 1U);
  EXPECT_EQ(problems("demolition").size(), 1U);
}

TEST(DeployPlan, NamesTheFilesThatStandBeyondTheProjectsTree) {
  const TRemotePlace place;
  const std::vector<TDeployFile> files{place.File("a", "demo\\a"), place.File("sub/b", "demo\\b")};
  EXPECT_EQ(place.Plan(files, {.SourceRoots = {place.Local()}}).Outside, TTexts());
  EXPECT_EQ(place.Plan(files, {.SourceRoots = {place.Local("sub")}}).Outside,
            TTexts{place.Local("a").string()});
}

TEST(DeployPlan, RemovesWhatIsThere) {
  const TRemotePlace place;
  TDeployFile file{.LocalName = "a", .LocalFile = place.Local("none"), .RemoteName = "a"};
  file.Operation = TDeployOperation::Remove;
  EXPECT_EQ(place.Plan({file}).Files[0].Action, TDeployAction::Unchanged);
  TRemotePlace::Write(place.Target("a"), "x");
  EXPECT_EQ(place.Plan({file}).Files[0].Action, TDeployAction::Removed);
}

TEST(DeployPlan, KnowsARecordedFileInAnyCaseWhereTheTargetIgnoresIt) {
  TRemotePlace place;
  const std::vector<TDeployFile> files{place.File("a", "demo\\x.dat", "here")};
  TRemotePlace::Write(place.Target("demo/x.dat"), "a hotfix of somebody");
  place.Record.Files["DEMO/X.DAT"] = {.LocalName = "a", .Size = 4, .Hash = std::string(64, 'a')};
  const TPlannedFile known = place.Plan(files, IgnoringCase).Files.at(0);
  EXPECT_EQ(known.State, TFileState::Conflict);
  EXPECT_EQ(known.Action, TDeployAction::Refused);
  EXPECT_EQ(place.Plan(files).Files.at(0).State, TFileState::Unrecorded);
}

TEST(DeployPlan, RemovesInAnyCaseOfTheProjectsDirectoryWhereTheTargetIgnoresIt) {
  const TRemotePlace place;
  TRemotePlace::Write(place.Target("DEMO/x"), "x");
  TDeployFile file = place.File("a", "DEMO\\x");
  file.Operation = TDeployOperation::Remove;
  TPlanOptions options{.RootName = "demo"};
  EXPECT_EQ(place.Plan({file}, options).Problems.size(), 1U);
  options.Places = IgnoringCase.Places;
  EXPECT_EQ(place.Plan({file}, options).Problems, TTexts());
}

TEST(DeployPlan, ListsWhatWouldRun) {
  const TRemotePlace place;
  TDeployFile file = place.File("a", "a");
  file.Operation = TDeployOperation::Run;
  file.LocalCommands = {"one"};
  file.RemoteCommands = {"two"};
  EXPECT_EQ(place.Plan({file}).Commands,
            (TTexts{"on this machine: one", "on the target: run a", "on the target: two"}));
  file.RemoteName = "demo\\bin\\a";
  EXPECT_EQ(CommandsOf({file}, {}, "restart"),
            (TTexts{"on this machine: one", "on the target: run demo/bin/a", "on the target: two",
                    "on the target: restart"}));
}

TEST(DeployPlan, BelievesWhatWasSeenOnTheTargetAMomentAgo) {
  const TRemotePlace place;
  const TDeployFile file = place.File("a", "a", "12345");
  TFolderConnection connection(place.Target());
  TSeenFiles seen;
  const TTargetRecord record;
  const auto plan = [&] {
    return MakeDeployPlan(
        {file}, {.Seen = &seen}, [&]() -> IRemoteConnection& { return connection; },
        [&]() -> const TTargetRecord& { return record; });
  };
  EXPECT_EQ(plan().Files[0].State, TFileState::New);
  TRemotePlace::Write(place.Target("a"), "12345");
  EXPECT_EQ(plan().Files[0].State, TFileState::New);
  EXPECT_EQ(place.Plan({file}).Files[0].State, TFileState::Same);
}

TEST(DeployPlan, OfManyFilesSaysOfEachWhatStandsInItsPlace) {
  const TRemotePlace place;
  std::vector<TDeployFile> files;
  constexpr std::size_t Count = 1200;
  for (std::size_t i = 0; i < Count; ++i)
    files.push_back(place.File("f" + std::to_string(i), "f" + std::to_string(i)));
  std::filesystem::create_symlink("f0", place.Local("link"));
  files.push_back({.LocalName = "link", .LocalFile = place.Local("link"), .RemoteName = "link"});
  TRemotePlace::Write(place.Target("f7"), "longer than the content here");
  std::filesystem::create_directories(place.Target("f1100"));
  EXPECT_EQ(place.Plan(files).Problems,
            TTexts{"\"f1100\": it lands on " + place.Target("f1100").string() +
                   ", which is a directory on the target"});
  std::filesystem::remove(place.Target("f1100"));
  const TDeployPlan plan = place.Plan(files, {.KeepLinks = true});
  EXPECT_EQ(plan.Files[7].There.Size, 28U);
  EXPECT_EQ(plan.Files[8].There.Kind, TRemoteKind::None);
  EXPECT_EQ(plan.Files[Count].Link, "f0");
  EXPECT_EQ(plan.Outside.size(), Count);
}

} // namespace
} // namespace workbench
