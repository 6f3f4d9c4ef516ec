#include "package/common/errors.h"
#include "workbench/deploy/plan_file.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

TPlanFile PlanOfOneFile() {
  TPlanFile file{.Bound = {.Profile = "box", .Place = "/srv/app", .Machine = "bench"},
                 .ProjectFile = "/home/eva/demo.vproj",
                 .RootName = "demo",
                 .Target = {"Debug", "Win32"}};
  TPlannedFile& planned = file.Plan.Files.emplace_back();
  planned.File.LocalName = "a";
  planned.File.LocalFile = "/home/eva/a";
  planned.File.Executable = true;
  planned.File.LocalCommands = {"make a"};
  planned.Target = {"/srv/app/demo", "a"};
  planned.State = TFileState::Changed;
  planned.Local = {.Size = 3, .Hash = std::string(64, 'b')};
  planned.Local.Time = deployment::TFileTime(std::chrono::nanoseconds(1'763'769'600'123'456'789));
  planned.Mode = 0755;
  planned.There = {.Kind = TRemoteKind::File, .Size = 2, .Mode = 0644};
  planned.HashThere = std::string(64, 'c');
  planned.Steps = {{.Kind = TAfterStep::TKind::Unpack},
                   {.Kind = TAfterStep::TKind::Command, .Command = "restart"}};
  file.Plan.AfterDeploy = "reload";
  file.Plan.Commands = {"on the target: restart"};
  file.Jobs = 3;
  return file;
}

TEST(PlanFile, ComesBackAsItWasWritten) {
  const TJson document = PlanJson(PlanOfOneFile());
  const TPlanReading reading = ParsePlan(JsonText(document));
  ASSERT_TRUE(reading.IsWhole);
  EXPECT_EQ(JsonText(PlanJson(reading.File)), JsonText(document));
  const TPlannedFile& file = reading.File.Plan.Files.at(0);
  EXPECT_EQ(file.Local.Time, PlanOfOneFile().Plan.Files[0].Local.Time);
  EXPECT_EQ(file.Steps, PlanOfOneFile().Plan.Files[0].Steps);
  EXPECT_EQ(reading.File.Bound, PlanOfOneFile().Bound);
}

TEST(PlanFile, RunsCommandsHereThenThereAndTheLastOneWhenAllIsInPlace) {
  std::string order;
  for (const TPlannedCommand& command : PlannedCommandsOf(PlanOfOneFile().Plan))
    order += (command.IsLocal ? "here: " : "there: ") + command.Command + ";";
  EXPECT_EQ(order, "here: make a;there: unpack a;there: restart;there: reload;");
}

TEST(PlanFile, IsNotWholeWhenAValueWasChanged) {
  std::string text = JsonText(PlanJson(PlanOfOneFile()));
  const std::size_t place = text.find("\"mode\": \"0755\"");
  ASSERT_NE(place, std::string::npos);
  EXPECT_FALSE(ParsePlan(text.replace(place + 9, 4, "0777")).IsWhole);
  EXPECT_THROW(ParsePlan("[]"), deployment::TInputError);
  EXPECT_THROW(ParsePlan("{\"profile\":\"x\"}"), deployment::TInputError);
}

TEST(PlanFile, IsAnotherDestinationWithAnotherHostKey) {
  const TBinding then{.Profile = "box", .Place = "eva@host:/srv", .HostKey = "ED25519 SHA256:a"};
  TBinding now = then;
  EXPECT_TRUE(DifferencesOf(then, now).empty());
  now.HostKey = "ED25519 SHA256:b";
  now.Place = "eva@other:/srv";
  ASSERT_EQ(DifferencesOf(then, now).size(), 2U);
  EXPECT_EQ(DifferencesOf(then, now)[1],
            "the host key of the target was ED25519 SHA256:a and is ED25519 SHA256:b");
}

} // namespace
} // namespace workbench
