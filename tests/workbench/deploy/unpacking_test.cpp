#include "tests/support/archive/archive_maker.h"
#include "tests/workbench/remote/sftp/sftp_fixture.h"
#include "workbench/deploy/unpacking.h"

#include <sys/stat.h>

namespace workbench {
namespace {

using deployment::TDeployOperation;
using testing::TArchiveMaker;
using testing::TRemotePlace;
using testing::TTestRun;

// Deploys archives over SFTP to a machine that runs no commands.
class Unpacking : public testing::SftpTest {
protected:
  static TDeployFile Archive(const std::filesystem::path& file, const std::string& remoteName) {
    return {.LocalName = file.filename().string(),
            .LocalFile = file,
            .RemoteName = remoteName,
            .Operation = TDeployOperation::Unpack};
  }
  std::filesystem::path Local(const std::string& name) const { return Place.Local(name); }

  std::vector<std::string> Deploy(const std::vector<TDeployFile>& files) const {
    TSftpMachine machine = Machine();
    machine.Exec = nullptr;
    TSftpConnection connection(machine, std::make_shared<TMachineFacts>());
    TTestRun run;
    run.Execute(
        Plan(files), connection, [this] { return Connect(); }, Place.Local());
    std::vector<std::string> errors;
    for (const TDeployRow& row : run.Report.Rows)
      errors.push_back(row.Error);
    return errors;
  }
  std::string DeployOne(const std::string& remoteName = "in/a.tar") const {
    return Deploy({Archive(Local("a.tar"), remoteName)}).front();
  }
};

TEST_F(Unpacking, NeedsNoCommandOnTheTarget) {
  TArchiveMaker(Local("a.tar")).File("d/x", "new", 0755).Directory("empty").Link("d/l", "x");
  Place.Write(Place.Target("in/d/x"), "old");
  Place.Write(Place.Target("in/kept"), "kept");
  EXPECT_EQ(DeployOne(), "");
  EXPECT_EQ(Place.Read(Place.Target("in/d/x")), "new");
  EXPECT_EQ(Place.Read(Place.Target("in/kept")), "kept");
  EXPECT_TRUE(std::filesystem::is_directory(Place.Target("in/empty")));
  EXPECT_EQ(std::filesystem::read_symlink(Place.Target("in/d/l")), "x");
  EXPECT_TRUE(std::filesystem::exists(Place.Target("in/a.tar")));
  struct stat status = {};
  ASSERT_EQ(::stat(Place.Target("in/d/x").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777U, 0755U);
  EXPECT_EQ(status.st_mtim.tv_sec, TArchiveMaker::Time);
  EXPECT_EQ(Unfinished(), std::vector<std::string>());
}

TEST_F(Unpacking, UnpacksIntoAFolderAlike) {
  TArchiveMaker(Local("a.zip"), TArchiveMaker::TFormat::Zip).File("d/x", "new");
  TTestRun run;
  Place.Execute(Place.Plan({Archive(Local("a.zip"), "in/a.zip")}), run);
  EXPECT_EQ(run.Report.Rows[0].Error, "");
  EXPECT_EQ(Place.Read(Place.Target("in/d/x")), "new");
}

TEST_F(Unpacking, DoesNotFollowALinkThatAnArchiveBeforeItBrought) {
  Place.Write(Place.Local("victim"), "mine");
  TArchiveMaker(Local("a.tar")).Link("out", Place.Local());
  TArchiveMaker(Local("b.tar")).File("out/victim", "theirs");
  const auto errors = Deploy({Archive(Local("a.tar"), "a.tar"), Archive(Local("b.tar"), "b.tar")});
  EXPECT_EQ(errors[0], "was copied, but a.tar cannot be unpacked: \"out\" in it is a link that "
                       "leads out: " +
                           Place.Local().string());
  EXPECT_EQ(errors[1], "");
  EXPECT_EQ(Place.Read(Place.Local("victim")), "mine");
  EXPECT_EQ(Place.Read(Place.Target("out/victim")), "theirs");
}

TEST_F(Unpacking, DoesNotFollowALinkOfTheTargetThatLeadsOut) {
  Place.Write(Place.Local("victim"), "mine");
  std::filesystem::create_directory_symlink(Place.Local(), Place.Target("out"));
  TArchiveMaker(Local("a.tar")).File("first", "x").File("out/victim", "theirs");
  EXPECT_EQ(DeployOne("a.tar"),
            "was copied, but a.tar cannot be unpacked: \"out/victim\" in it cannot go there: it "
            "leads to " +
                Place.Local().string() + ", which is outside the path of the profile");
  EXPECT_EQ(Place.Read(Place.Local("victim")), "mine");
  EXPECT_FALSE(std::filesystem::exists(Place.Target("first"))); // all are looked at first
}

TEST_F(Unpacking, LeavesWhatDeploysRemember) {
  TArchiveMaker(Local("a.tar")).File(".Deployment-Manager/demo/record.json", "{}");
  EXPECT_EQ(DeployOne("a.tar"),
            "was copied, but a.tar cannot be unpacked: \".Deployment-Manager/demo/record.json\" in "
            "it leads to where deploys keep what they remember");
  TArchiveMaker(Local("a.tar")).File("a.tar", "x");
  EXPECT_EQ(DeployOne("d/a.tar"),
            "was copied, but a.tar cannot be unpacked: \"a.tar\" in it has the place of the "
            "archive itself");
}

TEST_F(Unpacking, NamesWhatStandsInTheWay) {
  std::filesystem::create_directories(Place.Target("in/d/deep"));
  TArchiveMaker(Local("a.tar")).File("first", "x").File("d/deep", "x");
  EXPECT_EQ(DeployOne(), "was copied, but a.tar cannot be unpacked: \"d/deep\" in it cannot go "
                         "there: a directory has its name");
  EXPECT_FALSE(std::filesystem::exists(Place.Target("in/first")));
}

TEST_F(Unpacking, HoldsNamesAgainstTheTarget) {
  const auto problem = [this](const TPlaceRules& rules) {
    TSftpConnection connection(Machine(), Facts);
    TPlannedFile file{.File = Archive(Local("a.tar"), "a.tar"),
                      .Target = {Place.Target().string(), "a.tar"}};
    file.Local.Size = std::filesystem::file_size(Local("a.tar"));
    file.Local.Time = Place.Plan({file.File}).Files[0].Local.Time;
    return UnpackOnTarget(file, rules, connection, [] { return false; });
  };
  TArchiveMaker(Local("a.tar")).File("d/x", "1").File("D/X", "2");
  EXPECT_EQ(problem({.Names = {.IgnoresCase = true}}),
            "cannot be unpacked: \"D/X\" in it has the name of \"d/x\" for the target");
  TArchiveMaker(Local("a.tar")).File("d/con.txt", "1");
  EXPECT_EQ(problem({.Names = {.IgnoresCase = true, .WindowsNames = true}}).substr(0, 76),
            "cannot be unpacked: \"d/con.txt\" in it has a name that the target cannot hold");
}

TEST_F(Unpacking, RefusesAnArchiveThatChangedSinceItWasSent) {
  TArchiveMaker(Local("a.tar")).File("x", "1");
  const TDeployPlan plan = Plan({Archive(Local("a.tar"), "a.tar")});
  TArchiveMaker(Local("a.tar")).File("x", std::string(20000, 'x'));
  TTestRun run;
  Execute(plan, run);
  EXPECT_EQ(run.Report.Rows[0].Error,
            "was copied, but a.tar cannot be unpacked: it changed since it was copied");
}

} // namespace
} // namespace workbench
