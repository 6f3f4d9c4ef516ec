#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

TEST(Usage, OfNothingIsWrong) {
  TWorkplace place;
  const TRun run = place.Run({});
  EXPECT_EQ(run.Status, 2);
  EXPECT_EQ(run.Output, "");
  EXPECT_EQ(run.Errors, "deploymgr: no command is given; try \"deploymgr --help\"\n");
}

TEST(Usage, NamesTheNearestCommand) {
  TWorkplace place;
  EXPECT_EQ(place.Run({"shwo", "p"}).Errors,
            "deploymgr: there is no command \"shwo\"; did you mean \"show\"?\n");
}

TEST(Usage, ThatIsWrongHasStatusTwo) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  for (const std::vector<std::string>& command : {std::vector<std::string>{"show"},
                                                  {"show", "p.vproj", "--no-such-option"},
                                                  {"show", "p.vproj", "-p"},
                                                  {"show", "p.vproj", "--platform", "win32"},
                                                  {"show", ""},
                                                  {"show", "p.vproj", "--dry-run"},
                                                  {"show", "\xFF"},
                                                  {"add", "p.vproj"},
                                                  {"reconsile", "p.vproj"},
                                                  {"--nope"}}) {
    const TRun run = place.Run(command);
    EXPECT_EQ(run.Status, 2) << testing::PrintToString(command) << run.Errors;
    EXPECT_TRUE(run.Errors.starts_with("deploymgr: ")) << run.Errors;
  }
}

TEST(Usage, ListsTheKnownPlatforms) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  EXPECT_EQ(place.Run({"show", "p.vproj", "-p", "Android64"}).Errors,
            "deploymgr: there is no platform \"Android64\"; known are: Win32, Win64, OSX32, "
            "iOSSimulator, iOSDevice32, iOSDevice64, Android, Linux64, LinuxARM64; did you mean "
            "\"Android\"?\n");
}

TEST(Usage, OfAConfigurationThatTheProjectDoesNotHaveIsWrongEverywhere) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("a", "Debug", "Win32"))));
  for (const std::vector<std::string>& command : {std::vector<std::string>{"list", "p.vproj"},
                                                  {"status", "p.vproj"},
                                                  {"show", "p.vproj"},
                                                  {"deploy", "p.vproj"},
                                                  {"reconcile", "p.vproj"},
                                                  {"add", "p.vproj", "$(X)"},
                                                  {"set", "p.vproj", "a", "--enabled", "true"},
                                                  {"remove", "p.vproj", "a"},
                                                  {"explain", "p.vproj", "a"}}) {
    std::vector<std::string> arguments = command;
    arguments.insert(arguments.end(), {"-c", "Relase"});
    const TRun run = place.Run(arguments);
    EXPECT_EQ(run.Status, 2) << command[0];
    EXPECT_EQ(run.Errors, "deploymgr: the project has no configuration \"Relase\"; it has: Base, "
                          "Debug, Release; did you mean \"Release\"?\n")
        << command[0];
    EXPECT_EQ(run.Output, "");
  }
}

TEST(Usage, SaysWhenTheEnvironmentChoseTheTarget) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  place.SetVariable("CONFIG=Release");
  const TRun run = place.Run({"list", "p.vproj", "--json"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Json()["configuration"], "Release");
  EXPECT_EQ(run.Errors, "deploymgr: p.vproj: warning: the configuration \"Release\" comes from the "
                        "environment variable CONFIG; --config takes another\n");
  EXPECT_EQ(place.Run({"list", "p.vproj", "-c", "Debug"}).Errors, "");
  place.SetVariable("CONFIG=/etc/app.conf");
  const TRun wrong = place.Run({"list", "p.vproj"});
  EXPECT_EQ(wrong.Status, 2);
  EXPECT_EQ(wrong.Errors, "deploymgr: the configuration \"/etc/app.conf\" comes from the "
                          "environment variable CONFIG, and there is none of that name; name one "
                          "with --config\n");
}

TEST(Usage, TakesADirectoryForTheOneProjectInIt) {
  TWorkplace place;
  place.Write("in/p.vproj", ProjectWith(""));
  place.Write("in/p.deployproj", "<Project/>");
  EXPECT_EQ(place.Run({"list", "in", "--json"}).Json()["project"], "in/p.vproj");
  place.Write("in/q.vcxproj", ProjectWith(""));
  const TRun several = place.Run({"list", "in"});
  EXPECT_EQ(several.Status, 2);
  EXPECT_EQ(several.Errors, "deploymgr: the directory \"in\" holds 2 projects; name one of them: "
                            "p.vproj, q.vcxproj\n");
  std::filesystem::create_directory(place.Path("empty"));
  EXPECT_EQ(place.Run({"list", "empty"}).Status, 3);
}

TEST(Usage, WarnsOfATargetThatTheProjectHasNotSetUp) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run = place.Run({"add", "p.vproj", "$(X)\\a", "-p", "OSX32"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Errors, "deploymgr: p.vproj: warning: the project has not set up configuration "
                        "\"Debug\" for platform \"OSX32\"\n");
}

TEST(Usage, SaysWhereATargetChangesNothing) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run = place.Run({"export", "p.vproj", "-p", "Win32"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Errors, "deploymgr: warning: the side file holds every target; --config and "
                        "--platform change nothing\n");
  EXPECT_EQ(place.Run({"upgrade", "p.vproj", "-c", "Debug"}).Status, 0);
  EXPECT_EQ(place.Run({"export", "p.vproj", "-p", "win32"}).Status, 2);
}

TEST(Usage, TakesNamesThatLookLikeOptionsBehindTwoDashes) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  place.Write("-odd.dat", "x");
  const TRun run = place.Run({"add", "p.vproj", "--", "-odd.dat"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Output, "added -odd.dat for Debug, Win32\n");
}

TEST(Usage, HelpAndVersionEndWell) {
  TWorkplace place;
  const TRun help = place.Run({"--help"});
  EXPECT_EQ(help.Status, 0);
  EXPECT_NE(help.Output.find("upgrade"), std::string::npos);
  EXPECT_EQ(help.Output.find("reconsile"), std::string::npos);
  const TRun version = place.Run({"--version", "--json"});
  EXPECT_EQ(version.Status, 0);
  const auto document = version.Json();
  EXPECT_EQ(document["program"], "deploymgr");
  EXPECT_EQ(document["version"], "0.1.0");
  const std::string commit = document["commit"];
  EXPECT_EQ(place.Run({"--version"}).Output,
            "deploymgr 0.1.0" + (commit.empty() ? "" : " (" + commit + ")") + "\n");
  EXPECT_EQ(place.Run({"set", "--help"}).Status, 0);
}

TEST(Usage, OfAFullDeviceFails) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run =
      place.RunProgram({"sh", "-c", std::string(DEPLOYMGR_PROGRAM) + " show p.vproj > /dev/full"});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Errors, "deploymgr: the result could not be written to standard output: No space "
                        "left on device; the work itself is done\n");
}

TEST(Usage, EndsWithoutAWordWhenItsReaderIsGone) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run = place.RunProgram({"bash", "-c",
                                     "(sleep 0.2; exec " + std::string(DEPLOYMGR_PROGRAM) +
                                         " show p.vproj --json) | true; exit "
                                         "${PIPESTATUS[0]}"});
  EXPECT_EQ(run.Status, 141);
  EXPECT_EQ(run.Errors, "");
}

TEST(Usage, InADirectoryThatIsGoneSaysSo) {
  TWorkplace place;
  const TRun run = place.RunProgram({"sh", "-c",
                                     "mkdir gone && cd gone && rmdir ../gone && " +
                                         std::string(DEPLOYMGR_PROGRAM) + " show p.vproj"});
  EXPECT_EQ(run.Status, 1) << run.Errors;
  EXPECT_NE(run.Errors.find("the present directory cannot be used: No such file or directory"),
            std::string::npos)
      << run.Errors;
}

TEST(Usage, ShortensANameThatFillsTheScreen) {
  TWorkplace place;
  const TRun run = place.Run({"show", std::string(100'000, 'n') + ".vproj"});
  EXPECT_EQ(run.Status, 3);
  EXPECT_LT(run.Errors.size(), 500U);
  EXPECT_NE(run.Errors.find("nnn... (100006 bytes): "), std::string::npos) << run.Errors;
}

TEST(Usage, IsPlainAndQuietWhenAskedTo) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  EXPECT_EQ(place.Run({"show", "p.vproj"}).Output.find('\x1b'), std::string::npos);
  const TRun run = place.Run({"add", "p.vproj", "missing.dat", "--missing-ok", "--quiet"});
  EXPECT_EQ(run.Status, 0);
  EXPECT_EQ(run.Output + run.Errors, "");
}

TEST(Usage, NeedsNoHomeDirectory) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run =
      place.RunProgram({"env", "-i", std::string("ZELK=") + SOURCE_TREE, DEPLOYMGR_PROGRAM, "add",
                        "p.vproj", "x", "--missing-ok", "--quiet"});
  EXPECT_EQ(run.Status, 0) << run.Errors;
}

} // namespace
} // namespace integration
