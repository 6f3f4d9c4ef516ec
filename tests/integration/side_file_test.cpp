// The side file that a save left behind when it was cut short, and what the next command does.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

using TTexts = std::vector<std::string>;

constexpr const char* SideFileWarning =
    "deploymgr: p.deployproj: warning: the side file was out of date and was written anew\n";

class SideFile : public testing::Test {
protected:
  void SetUp() override {
    FPlace.Write("p.vproj", ProjectWith(ListOf(Entry("a.dat", "Debug", "Win32"))));
    ASSERT_EQ(FPlace.Run({"add", "p.vproj", "b.dat", "--missing-ok"}).Status, 0);
    FOld = FPlace.Read("p.deployproj");
    ASSERT_EQ(FPlace.Run({"add", "p.vproj", "c.dat", "--missing-ok"}).Status, 0);
    FNew = FPlace.Read("p.deployproj");
    ASSERT_NE(FOld, FNew);
  }
  TRun SetNothing() const { return FPlace.Run({"set", "p.vproj", "a.dat", "--enabled", "true"}); }

  TWorkplace FPlace;
  std::string FOld;
  std::string FNew;
};

TEST_F(SideFile, SaysAtItsEndWhichListItWasMadeFrom) {
  const std::size_t mark = FNew.find("<!-- made from the list with the hash ");
  ASSERT_NE(mark, std::string::npos) << FNew;
  EXPECT_EQ(FNew.substr(mark + 54), " -->\n");
  EXPECT_EQ(FPlace.Run({"export", "p.vproj"}).Output, "up to date: p.deployproj\n");
}

TEST_F(SideFile, OfAnOlderListIsWrittenAnewByTheNextCommand) {
  for (const TTexts& command : std::vector<TTexts>{{"set", "p.vproj", "a.dat", "--enabled", "true"},
                                                   {"add", "p.vproj", "b.dat", "--missing-ok"},
                                                   {"upgrade", "p.vproj"},
                                                   {"export", "p.vproj"}}) {
    FPlace.Write("p.deployproj", FOld);
    const std::string project = FPlace.Read("p.vproj");
    const TRun run = FPlace.Run(command);
    EXPECT_EQ(run.Status, 0) << command[0];
    EXPECT_EQ(FPlace.Read("p.deployproj"), FNew) << command[0];
    EXPECT_EQ(FPlace.Read("p.vproj"), project) << command[0];
  }
}

TEST_F(SideFile, ThatIsGoneOrDamagedIsWrittenAnew) {
  for (const std::string& damaged : {std::string(), FNew.substr(0, FNew.size() / 2),
                                     std::string(FNew.size(), '\0'), std::string("<A/>")}) {
    FPlace.Write("p.deployproj", damaged);
    const TRun run = SetNothing();
    EXPECT_EQ(run.Status, 0) << run.Errors;
    EXPECT_EQ(run.Output, "nothing to do\n");
    EXPECT_TRUE(run.Errors.ends_with(SideFileWarning)) << run.Errors;
    EXPECT_EQ(FPlace.Read("p.deployproj"), FNew);
  }
  std::filesystem::remove(FPlace.Path("p.deployproj"));
  EXPECT_EQ(SetNothing().Errors, SideFileWarning);
  EXPECT_EQ(FPlace.Read("p.deployproj"), FNew);
  EXPECT_EQ(SetNothing().Errors, "");
}

TEST_F(SideFile, IsLeftAloneByDryRunsAndByALook) {
  FPlace.Write("p.deployproj", FOld);
  for (const TTexts& command :
       std::vector<TTexts>{{"set", "p.vproj", "a.dat", "--enabled", "true", "--dry-run"},
                           {"list", "p.vproj"},
                           {"show", "p.vproj"},
                           {"reconcile", "p.vproj", "--check"},
                           {"export", "p.vproj", "--dry-run"}}) {
    EXPECT_EQ(FPlace.Run(command).Status, command[0] == "reconcile" ? 7 : 0) << command[0];
    EXPECT_EQ(FPlace.Read("p.deployproj"), FOld) << command[0];
  }
}

TEST_F(SideFile, ThatCannotBeWrittenIsNamedWithWhatWasDone) {
  std::filesystem::remove(FPlace.Path("p.deployproj"));
  std::filesystem::create_directory(FPlace.Path("p.deployproj"));
  const TRun added = FPlace.Run({"add", "p.vproj", "d.dat", "--missing-ok"});
  EXPECT_EQ(added.Status, 1);
  EXPECT_NE(added.Errors.find("the project is saved, but not its side file: "), std::string::npos)
      << added.Errors;
  EXPECT_NE(FPlace.Read("p.vproj").find("d.dat"), std::string::npos);
  const TRun again = SetNothing();
  EXPECT_EQ(again.Status, 1);
  EXPECT_NE(again.Errors.find("the project is as it should be, but its side file is out of date: "),
            std::string::npos)
      << again.Errors;
  std::filesystem::remove(FPlace.Path("p.deployproj"));
  EXPECT_EQ(SetNothing().Errors, SideFileWarning);
  EXPECT_NE(FPlace.Read("p.deployproj").find("d.dat"), std::string::npos);
}

TEST(SideFileOfAProject, ThatDoesNotImportItComesWithTheFirstChange) {
  const TWorkplace place;
  const std::string project =
      Replaced(ProjectWith(ListOf(Entry("a.dat", "Debug", "Win32"))),
               "  <Import Project=\"$(MSBuildProjectName).deployproj\" "
               "Condition=\"Exists('$(MSBuildProjectName).deployproj')\"/>\n",
               "");
  place.Write("p.vproj", project);
  EXPECT_EQ(place.Run({"set", "p.vproj", "a.dat", "--enabled", "true"}).Output, "nothing to do\n");
  EXPECT_EQ(place.Files(), TTexts({"p.vproj"}));
  EXPECT_EQ(place.Read("p.vproj"), project);
}

} // namespace
} // namespace integration
