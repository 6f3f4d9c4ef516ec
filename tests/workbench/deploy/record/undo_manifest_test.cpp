#include "package/common/errors.h"
#include "workbench/deploy/record/undo_manifest.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TUndoManifest ManifestOfOneRun() {
  TUndoManifest manifest;
  manifest.Run = {.Id = "2026-11-22T003121Z-abc123", .At = "2026-11-22T00:31:21Z", .By = "eva"};
  manifest.Files.push_back({.Kind = TUndoKind::Remove, .Path = "demo/new", .Put = {{3, 17}}});
  manifest.Files.push_back(
      {.Kind = TUndoKind::Restore,
       .Path = "demo/old",
       .Kept = "2",
       .Put = {{4, 18}},
       .Before = {{5, 19}},
       .Mode = 0640,
       .Recorded =
           TRecordedFile{.LocalName = "old", .Size = 5, .Hash = std::string(64, 'a'), .Mode = 0640},
       .Owed = {"run"}});
  manifest.Files.push_back(
      {.Kind = TUndoKind::Link, .Path = "demo/link", .Link = "a/b", .Put = {{1, 1}}});
  manifest.Directories = {"demo/sub"};
  return manifest;
}

std::string WithReplaced(std::string text, const std::string& from, const std::string& to) {
  const std::size_t place = text.find(from);
  EXPECT_NE(place, std::string::npos) << from;
  return text.replace(place, from.size(), to);
}

TEST(UndoManifest, ComesBackAsItWasWritten) {
  const std::string text = UndoManifestText(ManifestOfOneRun());
  const TUndoManifest read = ParseUndoManifest(text);
  EXPECT_EQ(UndoManifestText(read), text);
  ASSERT_EQ(read.Files.size(), 3U);
  EXPECT_EQ(read.Files[1].Kept, "2");
  EXPECT_EQ(read.Files[1].Recorded, ManifestOfOneRun().Files[1].Recorded);
  EXPECT_EQ(read.Files[2].Link, "a/b");
}

TEST(UndoManifest, IsRefusedWhenItNamesWhatADeployDoesNot) {
  const std::string text = UndoManifestText(ManifestOfOneRun());
  for (const auto& [from, to] : std::vector<std::pair<std::string, std::string>>{
           {"demo/new", "../new"},
           {"demo/new", "/etc/new"},
           {"demo/new", ".deployment-manager/demo/record.json"},
           {"demo/sub", "../sub"},
           {"\"kept\": \"2\"", "\"kept\": \"../2\""},
           {"\"restore\"", "\"steal\""},
           {"\"0640\"", "\"9\""},
           {"\"format\": 1", "\"format\": 2"}}) {
    EXPECT_THROW(ParseUndoManifest(WithReplaced(text, from, to)), deployment::TInputError) << to;
  }
  EXPECT_THROW(ParseUndoManifest(text.substr(0, text.size() / 2)), deployment::TInputError);
}

TEST(UndoIndex, NamesRunsAndNothingElse) {
  const TUndoIndex index{{{"run-1", 17}, {"run-2", 0}}, {"run-3"}};
  const TUndoIndex read = ParseUndoIndex(UndoIndexText(index));
  EXPECT_EQ(read.Unfinished, std::vector<std::string>{"run-3"});
  EXPECT_THROW(ParseUndoIndex(WithReplaced(UndoIndexText(index), "run-3", "..")),
               deployment::TInputError);
  ASSERT_EQ(read.Runs.size(), 2U);
  EXPECT_EQ(read.Runs[0].Id, "run-1");
  EXPECT_EQ(read.Runs[0].Bytes, 17U);
  EXPECT_THROW(ParseUndoIndex(WithReplaced(UndoIndexText(index), "run-2", "../..")),
               deployment::TInputError);
  EXPECT_FALSE(IsRunId(""));
  EXPECT_FALSE(IsRunId("a/b"));
  EXPECT_FALSE(IsRunId(std::string(65, 'a')));
}

} // namespace
} // namespace workbench
