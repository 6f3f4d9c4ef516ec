#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

class Revert : public testing::Test {
protected:
  Revert() {
    World.Storage.Classes["ProjectOutput"]["Win32"] = "bin\\";
    World.Reconcile("Debug", "Win32");
    World.Reconcile("Debug", "Win64");
  }
  void Run(std::vector<std::string> platforms, bool keepAddedFiles = true) {
    World.Deployment().Revert(platforms, keepAddedFiles);
  }
  std::shared_ptr<IProjectDeploymentFile> Add(const char* className, const char* platform,
                                              const char* name) {
    const auto file = World.Deployment().AddFile("Debug", platform, name);
    file->SetDeploymentClass(className);
    file->SetEnabled(platform, true);
    return file;
  }

  TReconcileWorld World;
};

TEST_F(Revert, MakesTheDefaultEntriesOfThePlatformAnew) {
  World.Entry("ProjectOutput", "Debug", "Win32")->SetEnabled("Win32", false);
  World.Entry("ProjectOutput", "Debug", "Win64")->SetEnabled("Win64", false);
  Run({"Win32"});
  EXPECT_EQ(World.Lines("Debug", "Win32"),
            TTexts{R"(ProjectOutput | Win32\Debug\App.exe |  | App.exe)"});
  EXPECT_EQ(World.Lines("Debug", "Win64"),
            TTexts{R"(ProjectOutput | Win64\Debug\App.exe |  | App.exe | off)"});
}

TEST_F(Revert, ReadsTheDefaultClassesAgain) {
  World.Deployment().FindClass("ProjectOutput")->SetRemoteDir("Win32", "elsewhere\\");
  const auto extra = World.Deployment().CreateClass();
  extra->SetClassId("Extra");
  World.Deployment().AddClass(extra);
  Run({"Win32"});
  EXPECT_EQ(World.Deployment().GetClasses().size(), 1U);
  EXPECT_EQ(World.Deployment().FindClass("ProjectOutput")->GetRemoteDir("Win32"), "bin\\");
}

TEST_F(Revert, DropsEntriesThatAreLeftWithoutAPlatform) {
  Add("DependencyModule", "Win32", "old.dll");
  const auto both = Add("DependencyModule", "Win32", "both.dll");
  both->SetEnabled("Win64", true);
  Run({"Win32"});
  EXPECT_EQ(World.Deployment().FindFiles("old.dll", "", "", "").size(), 0U);
  EXPECT_EQ(both->GetPlatforms(), TTexts{"Win64"});
}

TEST_F(Revert, KeepsAddedFilesUnlessToldOtherwise) {
  Add("File", "Win32", "mine.dat");
  Add("File", "Win64", "other.dat");
  Run({"Win32"});
  EXPECT_EQ(World.LinesOf("File", "Debug", "Win32"), TTexts{"File | mine.dat |  | "});
  Run({"Win32"}, /*keepAddedFiles=*/false);
  EXPECT_EQ(World.LinesOf("File", "Debug", "Win32"), TTexts{});
  EXPECT_EQ(World.LinesOf("File", "Debug", "Win64"), TTexts{"File | other.dat |  | "});
}

TEST_F(Revert, ReconcilesTheConfigurationsThatHaveThePlatform) {
  World.Project.Options.Debug.Platforms = {"Win64"};
  Run({"Win32", "Win64"});
  EXPECT_EQ(World.Lines("Debug", "Win32"), TTexts{});
  EXPECT_EQ(World.Lines("Debug", "Win64").size(), 1U);
}

TEST_F(Revert, LeavesEverythingWhenTheDefaultsCannotBeRead) {
  struct TBroken : IDeploymentStorage {
    void ReadDefaultDeployment(ICustomProject&, IProjectDeployment& deployment) override {
      deployment.AddFile("Debug", "Win32", "half");
      throw TInputError("no template");
    }
    void WriteMSB(ICustomProject&, IProjectDeployment&) override {}
  } broken;
  TMemoryProject project;
  project.AddSection("Deployment").AddChild("DeployClass");
  auto deployment = TDeploymentModuleHandler::Attach(project, World.Host, broken);
  deployment->AddFile("Debug", "Win32", "mine")->SetEnabled("Win32", true);
  const std::vector<std::string> platforms{"Win32"};
  EXPECT_THROW(deployment->Revert(platforms, true), TInputError);
  ASSERT_EQ(deployment->GetFiles().size(), 1U);
  EXPECT_EQ(deployment->GetFiles().front()->GetPlatforms(), TTexts{"Win32"});
}

} // namespace
} // namespace deployment
