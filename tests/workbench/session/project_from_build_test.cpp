#include "tests/workbench/session/session_fixture.h"
#include "workbench/project/project_settings.h"
#include "workbench/session/project_from_build.h"
#include "workbench/settings/source_consent.h"

namespace workbench {
namespace {

namespace fs = std::filesystem;

class ProjectFromBuild : public testing::TSessionTest {
protected:
  TBuildSource Source() const { return {.Directory = FDirectory / "build", .Platform = "Linux64"}; }
  TInstallPlan PlanOf(const fs::path& program) const {
    TInstallPlan plan;
    plan.Tool = "CMake";
    plan.Configurations = {"Release"};
    plan.Files.push_back({.Configuration = "Release",
                          .LocalFile = program,
                          .Directory = "bin",
                          .Name = "meter",
                          .Component = "Unspecified",
                          .IsProgram = true,
                          .Rule = {}});
    return plan;
  }
};

TEST_F(ProjectFromBuild, ListsWhatTheBuildInstallsAndStaysOpen) {
  const fs::path program = FDirectory / "build" / "meter";
  const TMadeProject made = CreateFromBuild(Host(), FFile, Source(), PlanOf(program));
  EXPECT_EQ(Host().FindOpen(FFile), &made.Project);
  EXPECT_FALSE(made.Project.HasChanges());
  ASSERT_EQ(made.Done.Updates.size(), 1U);
  EXPECT_EQ(made.Done.Updates.front().LocalName, "build\\meter");
  EXPECT_NE(Read(FFile).find("LocalName=\"build\\meter\" Configuration=\"Release\""),
            std::string::npos);
  EXPECT_EQ(made.Project.Settings().ActivePlatform(), "Linux64");
  EXPECT_EQ(made.Project.Settings().ActiveConfiguration(), "Release");
}

TEST_F(ProjectFromBuild, LeavesAFileThatIsThereAlone) {
  Write(FFile, "of the user");
  EXPECT_THROW(CreateFromBuild(Host(), FFile, Source(), PlanOf(FDirectory / "build" / "meter")),
               TSaveError);
  EXPECT_EQ(Read(FFile), "of the user");
}

TEST_F(ProjectFromBuild, RefusesConfigurationsThatNoProjectCanHold) {
  TInstallPlan plan = PlanOf(FDirectory / "build" / "meter");
  plan.Configurations = {"Debug;Release"};
  EXPECT_THROW(CreateFromBuild(Host(), FFile, Source(), plan), deployment::TInputError);
  EXPECT_FALSE(fs::exists(FFile));
}

TEST_F(ProjectFromBuild, KeepsTheYesToFilesFromBeyondItsTree) {
  const fs::path program = FRoot / "elsewhere" / "meter";
  CreateFromBuild(Host(), FFile, Source(), PlanOf(program));
  EXPECT_TRUE(SourcesWithoutConsent(Host().Settings(), FFile, {program.string()}).empty());
  const std::string other = (FRoot / "elsewhere" / "key").string();
  EXPECT_EQ(SourcesWithoutConsent(Host().Settings(), FFile, {other}),
            std::vector<std::string>{other});
}

} // namespace
} // namespace workbench
