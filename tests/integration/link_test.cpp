// Links that are deployed as links.
#include "tests/integration/link_place.h"
#include "tests/integration/ssh_place.h"

#include <algorithm>

namespace integration {
namespace {

namespace fs = std::filesystem;
using TTexts = std::vector<std::string>;

// "name: action, state" of each file of a deploy.
TTexts RowsOfDeploy(const TRun& run) {
  TTexts rows;
  const auto document = run.Json();
  for (const auto& file : document["files"])
    rows.push_back(fs::path(file["remoteFile"].get<std::string>()).filename().string() + ": " +
                   file["action"].get<std::string>() + ", " + file["state"].get<std::string>());
  std::ranges::sort(rows);
  return rows;
}

TEST(Links, OfALibraryComeWithOneWord) {
  TWorkplace place;
  WriteLibrary(place);
  ASSERT_EQ(place.Run({"new", "p.vproj", "--platforms", "Linux64"}).Status, 0);
  EXPECT_EQ(place.Run({"add", "p.vproj", "lib/libx.so.1"}).Output,
            "added lib\\libx.so.1.2.3 for Debug, Linux64\n"
            "added lib\\libx.so.1 for Debug, Linux64\n"
            "added lib\\libx.so for Debug, Linux64\n");
  EXPECT_EQ(place.Run({"add", "p.vproj", "lib/libx.so*", "-c", "Release"}).Output,
            "added lib\\libx.so.1.2.3 for Release, Linux64\n"
            "added lib\\libx.so.1 for Release, Linux64\n"
            "added lib\\libx.so for Release, Linux64\n");
}

TEST(Links, OfALibraryStayAwayFromANameOfItsOwn) {
  TWorkplace place;
  WriteLibrary(place);
  ASSERT_EQ(place.Run({"new", "p.vproj", "--platforms", "Linux64"}).Status, 0);
  EXPECT_EQ(place.Run({"add", "p.vproj", "lib/libx.so", "--remote-name", "plugin.so"}).Output,
            "added lib\\libx.so for Debug, Linux64\n");
}

TEST(Links, AreDeployedAsLinksAndFoundTheSame) {
  TWorkplace place;
  MakeLibraryProject(place);
  const TRun first = place.Run({"deploy", "p.vproj", "--json"});
  ASSERT_EQ(first.Status, 0) << first.Errors;
  EXPECT_EQ(first.Json()["copied"], 4);
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "libx.so.1");
  EXPECT_EQ(LinkAt(place, "there/p/libx.so.1"), "libx.so.1.2.3");
  EXPECT_EQ(place.Read("there/p/libx.so"), "library");
  EXPECT_EQ(RowsOfDeploy(place.Run({"deploy", "p.vproj", "--json"})),
            (TTexts{"libx.so.1.2.3: unchanged, same", "libx.so.1: unchanged, same",
                    "libx.so: unchanged, same", "p: unchanged, same"}));
  EXPECT_EQ(place.Run({"verify", "p.vproj"}).Status, 0);
  const auto status = place.Run({"status", "p.vproj", "--json"}).Json();
  for (const auto& row : status["rows"]) {
    EXPECT_EQ(row["state"], "same") << row;
    EXPECT_EQ(row["remoteStatus"], "Same") << row;
  }
}

TEST(Links, ThatWereChangedHereOrThereAreToldApart) {
  TWorkplace place;
  MakeLibraryProject(place);
  ASSERT_EQ(place.Run({"deploy", "p.vproj"}).Status, 0);
  // Here it leads elsewhere now, and on the target somebody put a copy in its place.
  fs::remove(place.Path("lib/libx.so"));
  fs::create_symlink("libx.so.1.2.3", place.Path("lib/libx.so"));
  fs::remove(place.Path("there/p/libx.so.1"));
  place.Write("there/p/libx.so.1", "a copy");
  const TRun run = place.Run({"deploy", "p.vproj", "--json"});
  EXPECT_EQ(run.Status, 8);
  EXPECT_EQ(RowsOfDeploy(run),
            (TTexts{"libx.so.1.2.3: unchanged, same", "libx.so.1: refused, changed-there",
                    "libx.so: copied, changed", "p: unchanged, same"}));
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "libx.so.1.2.3");
  EXPECT_EQ(place.Read("there/p/libx.so.1"), "a copy");
  EXPECT_EQ(place.Run({"deploy", "p.vproj", "--overwrite-changed"}).Status, 0);
  EXPECT_EQ(LinkAt(place, "there/p/libx.so.1"), "libx.so.1.2.3");
}

TEST(Links, BecomeFilesWhereTheyBecameFilesHere) {
  TWorkplace place;
  MakeLibraryProject(place);
  ASSERT_EQ(place.Run({"deploy", "p.vproj"}).Status, 0);
  fs::remove(place.Path("lib/libx.so"));
  place.Write("lib/libx.so", "a file of its own");
  EXPECT_EQ(place.Run({"deploy", "p.vproj"}).Status, 0);
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "no link");
  EXPECT_EQ(place.Read("there/p/libx.so"), "a file of its own");
  EXPECT_EQ(place.Read("there/p/libx.so.1.2.3"), "library");
}

TEST(Links, ThatLeadToWhatIsNotDeployedBringItsContent) {
  TWorkplace place;
  MakeLibraryProject(place);
  ASSERT_EQ(place.Run({"remove", "p.vproj", "lib\\libx.so.1.2.3", "--yes"}).Status, 0);
  place.Write("secret", "outside");
  fs::create_symlink("../secret", place.Path("lib/other"));
  ASSERT_EQ(place.Run({"add", "p.vproj", "lib/other"}).Status, 0);
  ASSERT_EQ(place.Run({"deploy", "p.vproj"}).Status, 0);
  EXPECT_EQ(LinkAt(place, "there/p/libx.so.1"), "no link");
  EXPECT_EQ(place.Read("there/p/libx.so.1"), "library");
  EXPECT_EQ(LinkAt(place, "there/p/libx.so"), "libx.so.1");
  EXPECT_EQ(LinkAt(place, "there/p/other"), "no link");
  EXPECT_EQ(place.Read("there/p/other"), "outside");
}

TEST(Links, ThatLeftTheListAreLeftOversAndPruned) {
  TWorkplace place;
  MakeLibraryProject(place);
  ASSERT_EQ(place.Run({"deploy", "p.vproj"}).Status, 0);
  ASSERT_EQ(place.Run({"remove", "p.vproj", "lib\\libx.so", "--yes"}).Status, 0);
  const auto leftOvers = place.Run({"status", "p.vproj", "--json"}).Json()["leftOvers"];
  ASSERT_EQ(leftOvers.size(), 1U);
  EXPECT_EQ(leftOvers[0]["state"], "left-over");
  EXPECT_EQ(place.Run({"deploy", "p.vproj", "--prune"}).Status, 0);
  EXPECT_FALSE(fs::is_symlink(place.Path("there/p/libx.so")));
  EXPECT_EQ(place.Read("there/p/libx.so.1.2.3"), "library");
}

TEST(Links, GoOverSshAsLinks) {
  NEEDS_SSH_SERVER();
  TSshPlace place(RemoteEntry("lib\\libx.so.1.2.3") + RemoteEntry("lib\\libx.so.1") +
                  RemoteEntry("lib\\libx.so"));
  place.Server().Introduce();
  WriteLibrary(place);
  const TRun run = place.Deploy({"--json"});
  ASSERT_EQ(run.Status, 0) << run.Errors;
  EXPECT_EQ(LinkAt(place, "target/demo/libx.so"), "libx.so.1");
  EXPECT_EQ(LinkAt(place, "target/demo/libx.so.1"), "libx.so.1.2.3");
  EXPECT_EQ(place.Deploy({"--json"}).Json()["unchanged"], 3);
  EXPECT_EQ(place.States(), (TTexts{"libx.so Same", "libx.so.1 Same", "libx.so.1.2.3 Same"}));
  EXPECT_EQ(place.UnfinishedCount(), 0U);
}

} // namespace
} // namespace integration
