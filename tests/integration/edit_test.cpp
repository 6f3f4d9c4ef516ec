#include "tests/integration/temporary_project.h"

#include <gtest/gtest.h>

namespace integration {
namespace {

std::string Entry(std::string_view name, std::string_view configuration,
                  std::string_view platform) {
  return "<DeployFile LocalName=\"" + std::string(name) + "\" Configuration=\"" +
         std::string(configuration) + "\" Class=\"File\"><Platform Name=\"" +
         std::string(platform) + "\"><Overwrite>true</Overwrite></Platform></DeployFile>\n";
}

std::string ListOf(const std::string& entries) {
  return "<Deployment Version=\"2\">\n" + entries + "</Deployment>";
}

nlohmann::ordered_json FilesOf(const TWorkplace& place) {
  return place.Run({"show", "p.vproj", "--json"}).Json()["files"];
}

TEST(Add, PutsAFileOnTheListOfTheActiveTarget) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  place.Write("data/levels.dat", "x");
  const TRun run = place.Run({"add", "p.vproj", "data/levels.dat"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(run.Output, "added data\\levels.dat for Debug, Win32\n");
  const auto files = FilesOf(place);
  ASSERT_EQ(files.size(), 1U);
  EXPECT_EQ(files[0]["localName"], "data\\levels.dat");
  EXPECT_EQ(files[0]["configuration"], "Debug");
  EXPECT_EQ(files[0]["class"], "File");
  EXPECT_EQ(files[0]["platform"], "Win32");
  EXPECT_EQ(files[0]["platforms"]["Win32"]["remoteDir"], ".\\");
  EXPECT_EQ(files[0]["platforms"]["Win32"]["enabled"], true);
  EXPECT_NE(place.Read("p.deployproj").find("Include=\"data\\levels.dat\""), std::string::npos);
}

TEST(Add, TakesTheDefaultDirectoryOfThePlatform) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  place.Write("a.dat", "x");
  ASSERT_EQ(place
                .Run({"add", "p.vproj", "a.dat", "-p", "Android", "-c", "Release", "--disabled",
                      "--class", "ProjectFile", "--remote-name", "b.dat"})
                .Status,
            0);
  const auto files = FilesOf(place);
  EXPECT_EQ(files[0]["class"], "ProjectFile");
  const auto& record = files[0]["platforms"]["Android"];
  EXPECT_EQ(record["remoteDir"], "assets\\internal\\");
  EXPECT_EQ(record["remoteName"], "b.dat");
  EXPECT_EQ(record["enabled"], false);
}

TEST(Set, FindsAnEntryIgnoringCaseAndKindOfDelimiter) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("Data\\\xC3\x84pfel.dat", "Debug", "Win32"))));
  const TRun run = place.Run({"set", "p.vproj", "data/\xC3\xA4PFEL.DAT", "--overwrite", "FALSE"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(FilesOf(place)[0]["platforms"]["Win32"]["overwrite"], false);
}

TEST(Set, AsksForMoreWhenSeveralEntriesMatch) {
  TWorkplace place;
  place.Write("p.vproj",
              ProjectWith(ListOf(Entry("a", "Debug", "Win32") + Entry("a", "Release", "Android"))));
  const TRun run = place.Run({"set", "p.vproj", "a", "--enabled", "false"});
  EXPECT_EQ(run.Status, 2);
  EXPECT_EQ(run.Errors, "deploymgr: \"a\" names 2 entries: a (Debug; Win32), a (Release; Android); "
                        "narrow it with --config and --platform\n");
  EXPECT_EQ(place.Run({"set", "p.vproj", "a", "--enabled", "false", "-p", "Android"}).Status, 0);
  EXPECT_EQ(FilesOf(place)[1]["platforms"]["Android"]["enabled"], false);
  EXPECT_EQ(place.Run({"set", "p.vproj", "a", "--enabled", "false", "-c", "Debug"}).Status, 0);
  EXPECT_EQ(FilesOf(place)[0]["platforms"]["Win32"]["enabled"], false);
}

TEST(Set, EditsEveryValue) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("a", "Debug", "Win32"))));
  ASSERT_EQ(
      place
          .Run({"set", "p.vproj", "a", "--enabled", "false", "--overwrite", "false", "--remote-dir",
                "d\\", "--remote-name", "n", "--operation", "unpack", "--required", "true",
                "--condition", "'$(X)'=='<1>'", "--add-platform", "Android"})
          .Status,
      0);
  const auto file = FilesOf(place)[0];
  EXPECT_EQ(file["required"], true);
  EXPECT_EQ(file["condition"], "'$(X)'=='<1>'");
  EXPECT_EQ(file["platforms"].dump(),
            R"({"Win32":{"enabled":false,"overwrite":false,"remoteDir":"d\\","remoteName":"n",)"
            R"("operation":2,"localCommands":[],"remoteCommands":[]},"Android":{"enabled":true,)"
            R"("overwrite":true,"remoteDir":"","remoteName":"","operation":6,"localCommands":[],)"
            R"("remoteCommands":[]}})");
}

TEST(Set, KeepsOneCommandOfEachKindAndTakesItAway) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("a", "Debug", "Win32"))));
  ASSERT_EQ(place
                .Run({"set", "p.vproj", "a", "--local-command", "make a", "--remote-command",
                      "systemctl restart 'a b'"})
                .Status,
            0);
  const auto record = FilesOf(place)[0]["platforms"]["Win32"];
  EXPECT_EQ(record["localCommands"], nlohmann::ordered_json::parse(R"(["make a"])"));
  EXPECT_EQ(record["remoteCommands"],
            nlohmann::ordered_json::parse(R"(["systemctl restart 'a b'"])"));
  EXPECT_EQ(place.Run({"set", "p.vproj", "a", "--local-command", ""}).Status, 0);
  EXPECT_EQ(FilesOf(place)[0]["platforms"]["Win32"]["localCommands"].size(), 0U);
  EXPECT_EQ(FilesOf(place)[0]["platforms"]["Win32"]["remoteCommands"].size(), 1U);
}

TEST(Set, OfAllPlatformsReachesEveryPlatformOfTheEntryAndNoOther) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("a", "Debug", "Win32"))));
  ASSERT_EQ(place.Run({"set", "p.vproj", "a", "--add-platform", "Android"}).Status, 0);
  ASSERT_EQ(place.Run({"set", "p.vproj", "a", "-p", "all", "--enabled", "false"}).Status, 0);
  const auto platforms = FilesOf(place)[0]["platforms"];
  EXPECT_EQ(platforms.size(), 2U);
  EXPECT_EQ(platforms["Win32"]["enabled"], false);
  EXPECT_EQ(platforms["Android"]["enabled"], false);
}

TEST(Set, KeepsAtLeastOnePlatform) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("a", "Debug", "Win32"))));
  const TRun run = place.Run({"set", "p.vproj", "a", "--remove-platform", "Win32"});
  EXPECT_EQ(run.Status, 1);
  EXPECT_EQ(run.Errors,
            "deploymgr: \"a\" would lose its last platform; \"remove\" takes it off the "
            "list\n");
}

TEST(Set, RefusesWhatIsNoValue) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(ListOf(Entry("a", "Debug", "Win32"))));
  EXPECT_EQ(place.Run({"set", "p.vproj", "a", "--enabled", "maybe"}).Status, 2);
  EXPECT_EQ(place.Run({"set", "p.vproj", "a", "--operation", "7"}).Status, 2);
  EXPECT_EQ(place.Run({"set", "p.vproj", "a"}).Status, 2);
  EXPECT_EQ(place.Run({"set", "p.vproj", "b", "--enabled", "true"}).Status, 1);
}

TEST(Remove, NeedsAPersonOrAYes) {
  TWorkplace place;
  place.Write("p.vproj",
              ProjectWith(ListOf(Entry("a", "Debug", "Win32") + Entry("b", "Debug", "Win32"))));
  const std::string before = place.Read("p.vproj");
  const TRun refused = place.Run({"remove", "p.vproj", "a"});
  EXPECT_EQ(refused.Status, 1);
  EXPECT_EQ(refused.Errors, "deploymgr: nothing was removed, since nobody could be asked; --yes "
                            "removes without a question\n");
  EXPECT_EQ(place.Read("p.vproj"), before);
  EXPECT_EQ(place.Run({"remove", "p.vproj", "a", "--dry-run"}).Output,
            "would remove a for Debug, Win32\n");
  EXPECT_EQ(place.Read("p.vproj"), before);
  EXPECT_EQ(place.Run({"remove", "p.vproj", "a", "--yes"}).Status, 0);
  EXPECT_EQ(FilesOf(place).size(), 1U);
}

TEST(Remove, TakesAwayWhatTheProjectDoesNotKnowAnyMore) {
  TWorkplace place;
  place.Write("p.vproj",
              ProjectWith(ListOf(Entry("a", "Old", "PalmOS") + Entry("a", "Debug", "Win32"))));
  EXPECT_EQ(place.Run({"remove", "p.vproj", "a", "-c", "Older", "--yes"}).Status, 2);
  EXPECT_EQ(place.Run({"remove", "p.vproj", "a", "-c", "Old", "-p", "PalmOS", "--yes"}).Output,
            "removed a for Old, PalmOS\n");
  EXPECT_EQ(FilesOf(place).size(), 1U);
}

TEST(Change, OfNothingLeavesTheFileUntouched) {
  TWorkplace place;
  const auto file = place.Write("p.vproj", ProjectWith(ListOf(Entry("a", "Debug", "Win32"))));
  ASSERT_EQ(place.Run({"export", "p.vproj"}).Status, 0);
  const auto time = std::filesystem::last_write_time(file);
  const auto sideTime = std::filesystem::last_write_time(place.Path("p.deployproj"));
  EXPECT_EQ(place.Run({"set", "p.vproj", "a", "--enabled", "true"}).Output, "nothing to do\n");
  EXPECT_EQ(place.Run({"upgrade", "p.vproj"}).Output, "nothing to do\n");
  EXPECT_EQ(std::filesystem::last_write_time(file), time);
  EXPECT_EQ(std::filesystem::last_write_time(place.Path("p.deployproj")), sideTime);
  EXPECT_EQ(place.Files(), std::vector<std::string>({"p.deployproj", "p.vproj"}));
}

TEST(Change, IsShownAndNotMadeByADryRun) {
  TWorkplace place;
  place.Write("p.vproj", ProjectWith(""));
  const TRun run = place.Run({"add", "p.vproj", "a", "--missing-ok", "--dry-run", "--json"});
  EXPECT_EQ(run.Json().dump(),
            R"({"project":"p.vproj","changed":true,"dryRun":true,"files":[{"localName":"a",)"
            R"("configuration":"Debug","platform":"Win32","action":"added"}]})");
  EXPECT_EQ(place.Read("p.vproj"), ProjectWith(""));
  EXPECT_EQ(place.Files(), std::vector<std::string>({"p.vproj"}));
}

TEST(New, WritesAProjectThatOpens) {
  TWorkplace place;
  const TRun run =
      place.Run({"new", "app", "--type", "Library", "--personality", "Corvane.Personality",
                 "--platforms", "Android,Win64", "--configs", "Test"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_NE(place.Read("app.vproj").find("<Deployment Version=\"2\"/>"), std::string::npos);
  ASSERT_EQ(place.Run({"add", "app.vproj", "x.dat", "--missing-ok", "--quiet"}).Status, 0);
  const auto files = place.Run({"show", "app.vproj", "--json"}).Json()["files"];
  EXPECT_EQ(files[0]["configuration"], "Test");
  EXPECT_EQ(files[0]["platform"], "Android");
}

TEST(New, RefusesAnExistingFileAndUnknownPlatforms) {
  TWorkplace place;
  place.Write("app.vproj", "mine");
  EXPECT_EQ(place.Run({"new", "app.vproj"}).Status, 1);
  EXPECT_EQ(place.Read("app.vproj"), "mine");
  const TRun run = place.Run({"new", "b", "--platforms", "win32"});
  EXPECT_EQ(run.Status, 2);
  EXPECT_EQ(run.Errors,
            "deploymgr: there is no platform \"win32\"; known are: Win32, Win64, OSX32, "
            "iOSSimulator, iOSDevice32, iOSDevice64, Android, Linux64, LinuxARM64; did you mean "
            "\"Win32\"?\n");
}

} // namespace
} // namespace integration
