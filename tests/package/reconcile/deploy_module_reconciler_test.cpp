#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

TEST(DeployModuleReconciler, TakesEmptyNamesFromTheProject) {
  TReconcileWorld world;
  world.Project.CurrentPlatform = "Android";
  world.Project.CurrentConfiguration = "Release";
  const TDeployModuleReconciler current(world.Project, "", "", false, world.Host);
  EXPECT_EQ(current.Target().Platform(), "Android");
  EXPECT_EQ(current.Target().Configuration(), "Release");
  const TDeployModuleReconciler given(world.Project, "Win32", "Debug", true, world.Host);
  EXPECT_EQ(given.Target().Platform(), "Win32");
  EXPECT_EQ(given.Target().Configuration(), "Debug");
  EXPECT_EQ(given.ProjectDeployment(), &world.Deployment());
}

TEST(DeployModuleReconciler, ReconcilesTheCurrentTargetForEmptyNames) {
  TReconcileWorld world;
  world.Project.CurrentPlatform = "Win64";
  EXPECT_EQ(world.Reconcile("", ""), TReconcileResult::Reconciled);
  EXPECT_EQ(world.Lines("Debug", "Win64"),
            TTexts{R"(ProjectOutput | Win64\Debug\App.exe |  | App.exe)"});
}

TEST(DeployModuleReconciler, ChangesNothingForTheRootConfiguration) {
  TReconcileWorld world;
  world.Personalities.Packages.Names = {"core.vpk"};
  for (const char* platform : {"Win32", "OSX32", "iOSDevice64", "Android"}) {
    EXPECT_EQ(world.ChangesOf("Base", platform), TTexts{});
    EXPECT_EQ(world.Reconcile("Base", platform), TReconcileResult::Reconciled);
  }
  EXPECT_EQ(world.Personalities.Packages.Asked, 0);
}

TEST(DeployModuleReconciler, ChangesNothingForAllPlatforms) {
  TReconcileWorld world;
  world.Personalities.Packages.Names = {"core.vpk"};
  EXPECT_EQ(world.ChangesOf("Debug", sAllPlatforms), TTexts{});
  EXPECT_EQ(world.Reconcile("Debug", sAllPlatforms), TReconcileResult::Reconciled);
}

TEST(DeployModuleReconciler, CannotReconcileAPackageForAMobilePlatform) {
  TReconcileWorld world;
  world.Project.ApplicationType = "Package";
  world.Personalities.Packages.Names = {"core.vpk"};
  for (const char* platform : {"Android", "iOSSimulator", "iOSDevice32", "iOSDevice64"}) {
    EXPECT_EQ(world.ChangesOf("Debug", platform), TTexts{});
    EXPECT_EQ(world.Reconcile("Debug", platform), TReconcileResult::CannotReconcile) << platform;
  }
  EXPECT_EQ(world.Reconcile("Debug", "Win32"), TReconcileResult::Reconciled);
}

TEST(DeployModuleReconciler, KnowsAPackageByTheKindBehindItsApplicationType) {
  TReconcileWorld world;
  world.Project.ApplicationType = "CppPackage";
  EXPECT_EQ(world.Reconcile("Debug", "Android"), TReconcileResult::CannotReconcile);
}

TEST(DeployModuleReconciler, LeavesTheOutputAloneWithoutAPackageService) {
  TReconcileWorld world;
  world.Personalities.Without = {"packages"};
  EXPECT_EQ(world.Reconcile("Debug", "Win32"), TReconcileResult::CannotReconcile);
  EXPECT_EQ(world.Lines("Debug", "Win32"), TTexts{});
  world.Host.PersonalityServices = nullptr;
  EXPECT_EQ(world.Reconcile("Debug", "Win32"), TReconcileResult::CannotReconcile);
}

TEST(DeployModuleReconciler, CannotReconcileWithoutADeployment) {
  TMemoryHost host;
  TMemoryProject project;
  EXPECT_EQ(TDeployModuleReconciler(project, "Win32", "Debug", false, host).Reconcile(),
            TReconcileResult::CannotReconcile);
}

TEST(DeployModuleReconciler, RunsOnWhenThePackageListIsNotAnswered) {
  TReconcileWorld world;
  world.Personalities.Packages.Names = {"core.vpk"};
  world.Reconcile("Debug", "Win32");
  world.Personalities.Packages.Names = {};
  world.Personalities.Packages.Answers = false;
  EXPECT_EQ(world.ChangesOf("Debug", "Win32"), TTexts{});
  EXPECT_EQ(world.LinesOf("DependencyPackage", "Debug", "Win32"),
            TTexts{"DependencyPackage | core.vpk |  | "});
}

// Sets the modified flag whenever it hears of a change, as a window does.
struct TFlagSetter : TChangeLog {
  explicit TFlagSetter(TMemoryProject& project) : Project(project) {}
  void ItemChanged(IProjectDeploymentItem& item, TDeploymentItemAction action) override {
    TChangeLog::ItemChanged(item, action);
    Project.Modified = true;
  }
  TMemoryProject& Project;
};

TEST(DeployModuleReconciler, LeavesTheModifiedFlagAsItWas) {
  TReconcileWorld world;
  world.Personalities.Packages.Names = {"core.vpk"};
  world.Deployment().AddNotifier(std::make_shared<TFlagSetter>(world.Project));
  world.Reconcile("Debug", "Win32");
  EXPECT_FALSE(world.Project.Modified);
  world.Project.Modified = true;
  world.Reconcile("Debug", "Win64");
  EXPECT_TRUE(world.Project.Modified);
}

// Sets the flag and fails when it is asked for the packages.
struct TFailingPackages : TMemoryPersonalities {
  explicit TFailingPackages(TMemoryProject& project) : Project(project) {}
  ISymbolService* GetSymbolService(std::string_view) override {
    Project.Modified = true;
    throw TInputError("no more");
  }
  TMemoryProject& Project;
};

TEST(DeployModuleReconciler, RestoresTheModifiedFlagWhenAStepFails) {
  TReconcileWorld world;
  TFailingPackages packages(world.Project);
  world.Host.PersonalityServices = &packages;
  EXPECT_THROW(world.Reconcile("Debug", "Win32"), TInputError);
  EXPECT_FALSE(world.Project.Modified);
}

TEST(DeployModuleReconciler, SignalsNothingTheSecondTime) {
  TReconcileWorld world;
  world.Personalities.Packages.Names = {R"(C:\lib\core.vpk)", "net.vpk"};
  for (const char* file : {"core.vpk", "core.qds", "core.de", "core.ja"})
    world.AddFile(std::string(R"(C:\lib\)") + file);
  for (const char* platform :
       {"Win32", "Win64", "OSX32", "iOSSimulator", "iOSDevice32", "iOSDevice64", "Android"}) {
    world.Project.BuildOptions.RemoteDebugSymbols.insert(std::string("Debug|") + platform);
    world.SetOption(platform, "iPhone_AppIcon57", R"(art\57.png)");
    world.SetOption(platform, "Android_LauncherIcon36", R"(art\36.png)");
    world.SetOption(platform, "Icns_MainIcns", R"(art\App.icns)");
    world.SetOption(platform, "BT_BuildType", "Debug");
    world.SetOption(platform, "PXC_GenerateUniversalBinaryFile", "true");
    world.SetOption(platform, "IncludeAndroid_Splash", "true");
    EXPECT_NE(world.ChangesOf("Debug", platform), TTexts{}) << platform;
    EXPECT_EQ(world.ChangesOf("Debug", platform), TTexts{}) << platform;
  }
}

TEST(DeployModuleReconciler, KeepsWhatTheUserSetOnADefaultEntry) {
  TReconcileWorld world;
  world.Reconcile("Debug", "Win32");
  const auto output = world.Entry("ProjectOutput", "Debug", "Win32");
  output->SetEnabled("Win32", false);
  output->SetOverwrite("Win32", false);
  output->SetRemoteDir("Win32", "bin\\");
  output->SetRemoteName("Win64", "other.exe");
  EXPECT_EQ(world.ChangesOf("Debug", "Win32"), TTexts{});
  world.Project.OutputFiles["Debug|Win32"] = R"(C:\work\App\out\App.exe)";
  EXPECT_EQ(world.ChangesOf("Debug", "Win32"), TTexts{R"(modified out\App.exe)"});
  EXPECT_EQ(world.Lines("Debug", "Win32"),
            TTexts{R"(ProjectOutput | out\App.exe | bin\ | App.exe | off)"});
  EXPECT_FALSE(output->GetOverwrite("Win32"));
  EXPECT_EQ(output->GetRemoteName("Win64"), "other.exe");
}

TEST(DeployModuleReconciler, ReadsTheDefaultClassesBeforeItTakesDirectoriesFromThem) {
  TReconcileWorld world;
  world.Storage.Classes["ProjectOutput"]["Win32"] = "bin\\";
  world.Project.BuildOptions.RemoteDebugSymbols = {"Debug|Win32"};
  world.Reconcile("Debug", "Win32");
  EXPECT_EQ(world.LinesOf("DebugSymbols", "Debug", "Win32"),
            TTexts{R"(DebugSymbols | Win32\Debug\App.qds | bin\ | App.qds)"});
}

// Takes the modified flag away when it hears of a change.
struct TFlagTaker : TChangeLog {
  explicit TFlagTaker(TMemoryProject& project) : Project(project) {}
  void ItemChanged(IProjectDeploymentItem&, TDeploymentItemAction) override {
    Project.Modified = false;
  }
  TMemoryProject& Project;
};

TEST(DeployModuleReconciler, PutsTheModifiedFlagBackInBothDirections) {
  TReconcileWorld world;
  world.Deployment().AddNotifier(std::make_shared<TFlagTaker>(world.Project));
  world.Project.Modified = true;
  world.Reconcile("Debug", "Win32");
  EXPECT_TRUE(world.Project.Modified);
}

TEST(DeployModuleReconciler, PassesTheFirstErrorOnWhenTheFlagCannotBePutBack) {
  struct TStubbornProject : TMemoryProject {
    void SetModified(bool) override { throw std::runtime_error("the flag is stuck"); }
    std::vector<std::string> GetCompleteFileList(std::string_view,
                                                 std::string_view) const override {
      throw TInputError("no list of files");
    }
  } project;
  TReconcileWorld world;
  TDeploymentModuleHandler::Attach(project, world.Host, world.Storage);
  EXPECT_THROW(project.GetProjectDeployment()->Reconcile("Debug", "Win32"), TInputError);
  EXPECT_TRUE(project.GetProjectDeployment()->GetFiles().empty());
}

TEST(DeployModuleReconciler, ChangesNothingWhenALaterStepFails) {
  TReconcileWorld world;
  world.SetOption("iOSDevice64", "PXC_GenerateUniversalBinaryFile", "maybe");
  EXPECT_THROW(world.Reconcile("Debug", "iOSDevice64"), TInputError);
  EXPECT_EQ(world.Lines("Debug", "iOSDevice64"), TTexts{});
}

TEST(DeployModuleReconciler, TellsTheJournalOfTheStepsInTheirOrder) {
  TReconcileWorld world;
  world.Project.ProjectFiles = {R"(C:\work\App\a.dat)"};
  TReconcileJournal journal;
  world.Deployment().Reconcile("Debug", "iOSDevice64", false, journal);
  std::vector<TReconcileStep> steps;
  for (const TReconcileReason& reason : journal.Reasons)
    steps.push_back(reason.Step);
  EXPECT_TRUE(std::is_sorted(steps.begin(), steps.end()));
  for (const TReconcileStep step :
       {TReconcileStep::ProjectOutput, TReconcileStep::DebugSymbols, TReconcileStep::OSXDefaults,
        TReconcileStep::iOSDefaults, TReconcileStep::AndroidDefaults, TReconcileStep::Artwork,
        TReconcileStep::ProjectFiles})
    EXPECT_NE(std::find(steps.begin(), steps.end(), step), steps.end());
}

} // namespace
} // namespace deployment
