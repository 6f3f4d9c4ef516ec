// Mistakes that people make, and what each of them is told: the sentence, the hint, the exit
// status.
#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

using TTexts = std::vector<std::string>;

struct TMistake {
  TTexts Command;
  int Status;
  const char* Message; ///< part of what is said
};

// In a directory with the projects p.vproj and in/q.vproj, and files beside them.
const TMistake Mistakes[] = {
    {{"list", "p.vproj", "-c", "Relase"}, 2, "did you mean \"Release\"?"},
    {{"list", "p.vproj", "-c", "debug"}, 2, "did you mean \"Debug\"?"},
    {{"reconcile", "p.vproj", "-c", "Relase", "--dry-run"}, 2, "it has: Base, Debug, Release"},
    {{"deploy", "p.vproj", "-c", "Relase"}, 2, "the project has no configuration \"Relase\""},
    {{"add", "p.vproj", "data/levels.dat", "-c", "Relase"}, 2, "did you mean \"Release\"?"},
    {{"list", "p.vproj", "-p", "x64"}, 2, "did you mean \"Win64\"?"},
    {{"list", "p.vproj", "-p", "win32"}, 2, "did you mean \"Win32\"?"},
    {{"add", "p.vproj", "data/lewels.dat"}, 1, "did you mean \"data/levels.dat\"?"},
    {{"add", "p.vproj", "coming.dat"}, 1, "--missing-ok adds a file that comes later"},
    {{"add", "p.vproj", "data"}, 1, "\"--tree data\" adds all its files"},
    {{"add", "p.vproj", "data/*.dta"}, 1, "no file matches the pattern \"data/*.dta\""},
    {{"add", "p.vproj", "/etc/passwd"}, 1, "--outside adds them all the same"},
    {{"add", "p.vproj", "held.dat"}, 0, "is on the list for Debug, Win32 already"},
    {{"add", "in", "in/a.dat", "--class", "Fiel"}, 0, "did you mean \"File\"?"},
    {{"add", "p.vproj"}, 2, "name a FILE, or a directory with --tree"},
    {{"add", "data/levels.dat", "p.vproj"}, 2, "the project comes first: deploymgr add p.vproj"},
    {{"set", "held.dat", "p.vproj", "--enabled", "false"}, 2, "the project comes first"},
    {{"explain", "held.dat", "p.vproj"}, 2, "the project comes first"},
    {{"set", "p.vproj", "held.dat", "--enable", "true"}, 2, "did you mean \"--enabled\"?"},
    {{"set", "p.vproj", "deep.dat", "--enabled", "true"}, 1, "did you mean \"data\\deep.dat\"?"},
    {{"set", "p.vproj", "datadeep.dat", "--enabled", "true"},
     1,
     "did you mean \"data\\deep.dat\"?"},
    {{"set", "p.vproj", "held.dat", "--enabled", "maybe"}, 2, "takes true or false, not \"maybe\""},
    {{"set", "p.vproj", "held.dat", "--operation", "99"}, 2, "run-and-remove"},
    {{"set", "p.vproj", "held.dat"}, 2, "see \"deploymgr set --help\""},
    {{"set", "p.vproj", "held.dat", "--enabled"}, 2, "--enabled needs a value"},
    {{"remove", "p.vproj", "held.dat"}, 1, "--yes removes without a question"},
    {{"remove", "p.vproj", "hel.dat", "--yes"}, 1, "did you mean \"held.dat\"?"},
    {{"profile", "delete", "box"}, 2, "did you mean \"remove\"?"},
    {{"profile", "test", "box"}, 2, "there is no profile \"box\""},
    {{"settings", "set", "libary-path.Win32", "x"}, 2, "did you mean \"library-path.Win32\"?"},
    {{"settings", "get", "colour"}, 2, "known are: library-path.PLATFORM"},
    {{"new", "n.vproj", "--type", "Foo"}, 2, "there is no kind of program \"Foo\"; known are: "},
    {{"new", "n.vproj", "--type", "Libary"}, 2, "did you mean \"Library\"?"},
    {{"new", "n.vproj", "--platforms", "win64"}, 2, "did you mean \"Win64\"?"},
    {{"show", "readme.txt"}, 3, "readme.txt: this is no project"},
    {{"show", "all.sln"}, 3, "all.sln: this is a solution; name one of the projects in it"},
    {{"show", "empty"}, 3, "empty: the directory holds no project"},
    {{"show", "several"}, 2, "name one of them: a.vproj, b.vproj"},
    {{"show", "gone.vproj"}, 3, "gone.vproj: "},
    {{"featured", "p.vproj", "--choose", "Nothing"}, 2, "there is no feature \"Nothing\""},
    {{"stauts", "p.vproj"}, 2, "did you mean \"status\"?"},
    {{"delete", "p.vproj", "x"}, 2, "did you mean \"remove\"?"},
    {{"help", "lst"}, 2, "did you mean \"list\"?"},
    {{"show", "p.vproj", "--dry-run"}, 2, "there is no option \"--dry-run\""},
    {{"export", "p.vproj", "extra"}, 2, "\"extra\" is one argument too many"},
    {{}, 2, "no command is given"},
};

TEST(Mistakes, EachGetItsSentenceItsHintAndItsStatus) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("held.dat", "Debug", "Win32") +
                                            Entry("data\\deep.dat", "Debug", "Win32"))));
  place.Write("in/q.vproj", ProjectWith(""));
  place.Write("in/a.dat", "x");
  place.Write("held.dat", "x");
  place.Write("data/levels.dat", "x");
  place.Write("readme.txt", "A text.\n");
  place.Write("all.sln", "\xEF\xBB\xBF\r\nMicrosoft Visual Studio Solution File\r\n");
  place.Write("several/a.vproj", ProjectWith(""));
  place.Write("several/b.vproj", ProjectWith(""));
  std::filesystem::create_directory(place.Path("empty"));
  for (const TMistake& mistake : Mistakes) {
    const std::string before = place.Read("p.vproj");
    const TRun run = place.Run(mistake.Command);
    const std::string command = testing::PrintToString(mistake.Command);
    EXPECT_EQ(run.Status, mistake.Status) << command << run.Errors;
    EXPECT_NE(run.Errors.find(mistake.Message), std::string::npos) << command << run.Errors;
    if (mistake.Status != 0) {
      EXPECT_EQ(run.Output, "") << command;
      EXPECT_EQ(place.Read("p.vproj"), before) << command;
    }
  }
}

TEST(Mistakes, OfAProjectThatIsADirectoryAreNone) {
  TWorkplace place;
  place.Write("in/q.vproj", ProjectWith(""));
  place.Write("in/a.dat", "x");
  EXPECT_EQ(place.Run({"add", "in", "in/a.dat"}).Output, "added a.dat for Debug, Win32\n");
  EXPECT_EQ(place.Run({"export", "in", "--json"}).Json()["sideFile"], "in/q.deployproj");
}

TEST(Mistakes, OfBlanksAroundAnExtensionAreForgiven) {
  TWorkplace place;
  place.CopyOf(Tree / "examples/sky-chart");
  const TRun plain = place.Run({"featured", "sky-chart", "--extension", ".dat"});
  EXPECT_EQ(place.Run({"featured", "sky-chart", "--extension", " .DAT "}).Output, plain.Output);
}

TEST(Export, SaysTheSameAsADryRunAsACheckAndAsADocument) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("a", "Debug", "Win32"))));
  const TRun dry = place.Run({"export", "p.vproj", "--dry-run", "--json"});
  EXPECT_EQ(dry.Status, 0);
  EXPECT_EQ(dry.Json()["changed"], true);
  EXPECT_EQ(place.Run({"export", "p.vproj", "--dry-run"}).Output, "would write p.deployproj\n");
  EXPECT_EQ(place.Run({"export", "p.vproj", "--check"}).Status, 7);
  EXPECT_FALSE(std::filesystem::exists(place.Path("p.deployproj")));
  ASSERT_EQ(place.Run({"export", "p.vproj"}).Output, "wrote p.deployproj\n");
  EXPECT_EQ(place.Run({"export", "p.vproj", "--dry-run", "--json"}).Json()["changed"], false);
  EXPECT_EQ(place.Run({"export", "p.vproj", "--dry-run"}).Output, "up to date: p.deployproj\n");
  EXPECT_EQ(place.Run({"export", "p.vproj", "--check"}).Status, 0);
  EXPECT_EQ(place.Run({"export", "p.vproj"}).Output, "up to date: p.deployproj\n");
}

TEST(Upgrade, AsACheckEndsWithSevenAndChangesNothing) {
  TWorkplace place;
  place.CopyOf(Tree / "examples/sky-chart");
  const std::string before = place.Read("sky-chart/SkyChart.vproj");
  EXPECT_EQ(place.Run({"upgrade", "sky-chart", "--check"}).Status, 7);
  EXPECT_EQ(place.Read("sky-chart/SkyChart.vproj"), before);
  ASSERT_EQ(place.Run({"upgrade", "sky-chart"}).Status, 0);
  EXPECT_EQ(place.Run({"upgrade", "sky-chart", "--check"}).Status, 0);
}

} // namespace
} // namespace integration
