#include "tests/package/reconcile/random_world.h"

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

TEST_F(Revert, ChangesNothingWhenTheHostFailsInItsMiddle) {
  const std::vector<std::string> platforms{"Win32", "Win64", "OSX32", "iOSDevice64", "Android"};
  int failures = 0;
  for (std::size_t call = 1; call < 300; call += 3) {
    TRandomWorld world(7);
    world.Project.Options.Values.clear(); // some are no values of their kind
    world.Project.ApplicationType = "Application";
    world.Project.Options.Debug.Platforms = platforms;
    for (const std::string& platform : platforms)
      world.Deployment().Reconcile("Debug", platform);
    world.Storage.Classes["Extra"]["Win32"] = "new\\";
    const std::string before = world.Text();
    const TDeploymentFiles files = world.Deployment().GetFiles();
    const TDeploymentClasses classes = world.Deployment().GetClasses();
    const auto log = std::make_shared<TChangeLog>();
    world.Deployment().AddNotifier(log);
    world.Calls.FailAt(call);
    try {
      world.Deployment().Revert(platforms, /*keepAddedFiles=*/false);
      EXPECT_NE(world.Deployment().FindClass("Extra"), nullptr);
    } catch (const std::exception&) {
      ++failures;
      ASSERT_EQ(world.Text(), before) << "call " << call;
      EXPECT_EQ(world.Deployment().GetFiles(), files);
      EXPECT_EQ(world.Deployment().GetClasses(), classes);
      EXPECT_EQ(log->Lines, TTexts{});
    }
  }
  EXPECT_GE(failures, 30);
}

TEST_F(Revert, StillFindsEntriesUnderTheirKeysAfterAFailure) {
  Add("File", "Win32", "mine.dat")->SetLocalName("renamed.dat");
  World.SetOption("Win32", "PXC_GenerateUniversalBinaryFile", "true");
  World.SetOption("iOSDevice64", "PXC_GenerateUniversalBinaryFile", "maybe");
  EXPECT_THROW(Run({"Win32", "iOSDevice64"}, /*keepAddedFiles=*/false), TInputError);
  const auto mine = World.Deployment().FindFile("Debug", "Win32", "mine.dat");
  ASSERT_NE(mine, nullptr);
  EXPECT_EQ(mine->GetLocalName(), "renamed.dat");
  EXPECT_EQ(World.Deployment().FindFiles("renamed.dat", "", "", "").size(), 1U);
}

TEST_F(Revert, TellsOfEachEntryOnceWhenAllIsDone) {
  const auto log = std::make_shared<TChangeLog>();
  World.Entry("ProjectOutput", "Debug", "Win32")->SetEnabled("Win32", false);
  World.Deployment().AddNotifier(log);
  Run({"Win32"});
  EXPECT_EQ(log->Lines, (TTexts{R"(removed Win32\Debug\App.exe)", R"(added Win32\Debug\App.exe)"}));
  log->Lines.clear();
  World.Deployment().SetBlockNotification(true);
  Run({"Win32"});
  EXPECT_EQ(log->Lines, TTexts{});
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
