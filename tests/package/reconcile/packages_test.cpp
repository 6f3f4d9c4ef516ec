#include "tests/package/reconcile/reconcile_world.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

class Packages : public testing::Test {
protected:
  Packages() {
    World.Personalities.Packages.Names = {R"(C:\lib\core.vpk)", R"(C:\lib\net.vpk)"};
    for (const char* file : {"core.vpk", "core.qds", "core.de", "core.ja", "net.vpk", "net.vcp"})
      World.AddFile(std::string(R"(C:\lib\)") + file);
  }
  void Reconcile() { World.Reconcile("Debug", "Win32"); }
  TTexts Entries(std::string_view className = "DependencyPackage") {
    return World.LinesOf(className, "Debug", "Win32");
  }
  void WantSymbols() { World.Project.BuildOptions.RemoteDebugSymbols = {"Debug|Win32"}; }

  TReconcileWorld World;
};

TEST_F(Packages, AreListedWithTheirTranslatedResources) {
  Reconcile();
  EXPECT_EQ(Entries(), (TTexts{R"(DependencyPackage | C:\lib\core.vpk |  | )",
                               R"(DependencyPackage | C:\lib\net.vpk |  | )",
                               R"(DependencyPackageResource | C:\lib\core.de |  | core.de)",
                               R"(DependencyPackageResource | C:\lib\core.ja |  | core.ja)"}));
  EXPECT_TRUE(World.Personalities.Packages.BothFlags);
}

TEST_F(Packages, HaveNoSymbolsUnlessTheTargetWantsThem) {
  Reconcile();
  EXPECT_EQ(Entries("DependencyPackageDebugSymbols"), TTexts{});
}

TEST_F(Packages, TakeTheSymbolFileOfTheServiceElseTheOtherKind) {
  WantSymbols();
  Reconcile();
  EXPECT_EQ(Entries("DependencyPackageDebugSymbols"),
            (TTexts{R"(DependencyPackageDebugSymbols | C:\lib\core.qds |  | )",
                    R"(DependencyPackageDebugSymbols | C:\lib\net.vcp |  | )"}));
  World.Personalities.Symbols.Extensions["Win32"] = ".vcp";
  Reconcile();
  EXPECT_EQ(Entries("DependencyPackageDebugSymbols"),
            (TTexts{R"(DependencyPackageDebugSymbols | C:\lib\core.qds |  | )",
                    R"(DependencyPackageDebugSymbols | C:\lib\net.vcp |  | )"}));
}

TEST_F(Packages, FallBackToCorvaneSymbolsWithoutASymbolService) {
  WantSymbols();
  World.Personalities.Without = {"symbols"};
  Reconcile();
  EXPECT_EQ(Entries("DependencyPackageDebugSymbols"),
            TTexts{R"(DependencyPackageDebugSymbols | C:\lib\net.vcp |  | )"});
}

TEST_F(Packages, AppendTheFirstSymbolExtensionToADottedNameAndReplaceItForTheSecond) {
  WantSymbols();
  World.Personalities.Packages.Names = {R"(C:\lib\ui.v2)"};
  World.Project.BuildOptions.RemoteDebugSymbols = {"Debug|OSX32"};
  World.AddFile(R"(C:\lib\ui.v2)");
  World.AddFile(R"(C:\lib\ui.vcp)");
  World.Reconcile("Debug", "OSX32");
  EXPECT_EQ(World.LinesOf("DependencyPackageDebugSymbols", "Debug", "OSX32"),
            TTexts{R"(DependencyPackageDebugSymbols | C:\lib\ui.vcp |  | )"});
  World.AddFile(R"(C:\lib\ui.v2.qds)");
  World.Reconcile("Debug", "OSX32");
  EXPECT_EQ(World.LinesOf("DependencyPackageDebugSymbols", "Debug", "OSX32"),
            TTexts{R"(DependencyPackageDebugSymbols | C:\lib\ui.v2.qds |  | )"});
}

TEST_F(Packages, AreNotTheirOwnSymbolsOnAPlatformWithoutAnExtensionForThem) {
  World.Project.BuildOptions.RemoteDebugSymbols = {"Debug|iOSDevice32"};
  World.Reconcile("Debug", "iOSDevice32");
  EXPECT_EQ(World.LinesOf("DependencyPackageDebugSymbols", "Debug", "iOSDevice32"),
            TTexts{R"(DependencyPackageDebugSymbols | C:\lib\net.vcp |  | )"});
  EXPECT_EQ(World.LinesOf("DependencyPackage", "Debug", "iOSDevice32").size(), 5U);
}

TEST_F(Packages, GoTogetherWithTheirResourcesAndSymbols) {
  WantSymbols();
  Reconcile();
  const auto core = World.Entry("DependencyPackage", "Debug", "Win32");
  core->SetEnabled("Win32", false);
  core->SetRemoteDir("Win32", "lib\\");
  core->SetRemoteName("Win32", "kernel.vpk");
  Reconcile();
  EXPECT_EQ(Entries("DependencyPackageResource"),
            (TTexts{R"(DependencyPackageResource | C:\lib\core.de | lib\ | kernel.de | off)",
                    R"(DependencyPackageResource | C:\lib\core.ja | lib\ | kernel.ja | off)"}));
  EXPECT_EQ(Entries("DependencyPackageDebugSymbols").back(),
            R"(DependencyPackageDebugSymbols | C:\lib\core.qds | lib\ | )");
}

TEST_F(Packages, StayWhereTheUserLeftThemThoughTheyAreFoundElsewhereNow) {
  Reconcile();
  World.Entry("DependencyPackage", "Debug", "Win32")->SetRemoteName("Win32", "kernel.vpk");
  World.Personalities.Packages.Names = {R"(D:\new\core.vpk)", R"(C:\lib\net.vpk)"};
  World.AddFile(R"(D:\new\core.vpk)");
  Reconcile();
  EXPECT_EQ(Entries().front(), R"(DependencyPackage | C:\lib\core.vpk |  | kernel.vpk)");
}

TEST_F(Packages, ThatAreNoLongerUsedGo) {
  WantSymbols();
  Reconcile();
  World.Personalities.Packages.Names = {R"(C:\lib\net.vpk)"};
  Reconcile();
  EXPECT_EQ(Entries(), (TTexts{R"(DependencyPackage | C:\lib\net.vpk |  | )",
                               R"(DependencyPackageDebugSymbols | C:\lib\net.vcp |  | )"}));
}

TEST_F(Packages, AllGoWithAnEmptyListAndTheResourcesOfEveryTargetToo) {
  World.AddFile(R"(C:\lib\core.fr)");
  World.Reconcile("Release", "Win64");
  WantSymbols();
  Reconcile();
  World.Personalities.Packages.Names = {};
  Reconcile();
  EXPECT_EQ(Entries(), TTexts{});
  EXPECT_EQ(World.LinesOf("DependencyPackage", "Release", "Win64"),
            (TTexts{R"(DependencyPackage | C:\lib\core.vpk |  | )",
                    R"(DependencyPackage | C:\lib\net.vpk |  | )"}));
}

TEST_F(Packages, AreNotAskedForInAnInternalReconcile) {
  WantSymbols();
  Reconcile();
  const int asked = World.Personalities.Packages.Asked;
  World.Deployment().Reconcile("Debug", "Win32", /*reconcileInternally=*/true);
  EXPECT_EQ(Entries(), TTexts{});
  EXPECT_EQ(World.Personalities.Packages.Asked, asked);
}

TEST_F(Packages, NeverListTheProjectItself) {
  World.Project.ApplicationType = "Package";
  World.Project.OutputFiles["Debug|Win32"] = R"(C:\work\App\out\Core.vpk)";
  Reconcile();
  EXPECT_EQ(Entries(), TTexts{R"(DependencyPackage | C:\lib\net.vpk |  | )"});
}

TEST_F(Packages, SkipEmptyNamesAndTakeEachPackageOnce) {
  World.Personalities.Packages.Names = {"", R"(C:\lib\net.vpk)", "", R"(C:\lib\net.vpk)"};
  Reconcile();
  EXPECT_EQ(Entries(), TTexts{R"(DependencyPackage | C:\lib\net.vpk |  | )"});
  EXPECT_EQ(World.ChangesOf("Debug", "Win32"), TTexts{});
}

TEST_F(Packages, ReplaceTheResourcesOfOtherTargetsByTheirOwn) {
  Reconcile();
  World.Reconcile("Debug", "Win64");
  EXPECT_EQ(Entries("DependencyPackageResource"), TTexts{});
  EXPECT_EQ(World.LinesOf("DependencyPackageResource", "Debug", "Win64").size(), 2U);
  EXPECT_EQ(World.ChangesOf("Debug", "Win64"), TTexts{});
}

TEST_F(Packages, RebuildAnEntryThatTheUserChanged) {
  WantSymbols();
  Reconcile();
  const auto symbols = World.Entry("DependencyPackageDebugSymbols", "Debug", "Win32");
  symbols->SetEnabled("Win32", false);
  symbols->SetOverwrite("Win32", false);
  const TTexts changes = World.ChangesOf("Debug", "Win32");
  ASSERT_FALSE(changes.empty());
  EXPECT_EQ(changes.front(), R"(removed C:\lib\core.qds)");
  const auto rebuilt = World.Deployment().FindFile("Debug", "Win32", R"(C:\lib\core.qds)");
  EXPECT_TRUE(rebuilt->GetEnabled("Win32"));
  EXPECT_TRUE(rebuilt->GetOverwrite("Win32"));
}

TEST_F(Packages, TellTheJournalWhyAModuleWasPassedOver) {
  World.Personalities.Packages.Names = {"core.vpk"};
  World.AddFile(R"(C:\ide\bin\core.vpk)");
  World.Host.FileUtils.ImageWidths[R"(C:\ide\bin\core.vpk)"] = TImageWidth::Bits64;
  TReconcileJournal journal;
  World.Deployment().Reconcile("Debug", "Win32", false, journal);
  ASSERT_GE(journal.Reasons.size(), 2U);
  EXPECT_EQ(journal.Reasons[0].Cause, TReasonCause::WrongImage);
  EXPECT_EQ(journal.Reasons[0].SourceValue, "64-bit program");
  EXPECT_EQ(journal.Reasons[1].Outcome, TReconcileOutcome::Added);
  EXPECT_EQ(journal.Reasons[1].LocalName, "core.vpk");
  EXPECT_EQ(journal.Reasons[1].Cause, TReasonCause::NotFound);
}

TEST_F(Packages, GiveTheirResourcesInTheOrderOfTheLanguages) {
  World.AddFile(R"(C:\lib\core.fr)");
  Reconcile();
  EXPECT_EQ(Entries("DependencyPackageResource"),
            (TTexts{R"(DependencyPackageResource | C:\lib\core.de |  | core.de)",
                    R"(DependencyPackageResource | C:\lib\core.fr |  | core.fr)",
                    R"(DependencyPackageResource | C:\lib\core.ja |  | core.ja)"}));
}

TEST_F(Packages, PassTheDirectoryOfTheirClassOnToWhatGoesWithThem) {
  World.Storage.Classes["DependencyPackage"]["Win32"] = "lib\\";
  WantSymbols();
  Reconcile();
  EXPECT_EQ(Entries("DependencyPackageResource").front(),
            R"(DependencyPackageResource | C:\lib\core.de | lib\ | core.de)");
  EXPECT_EQ(Entries("DependencyPackageDebugSymbols").front(),
            R"(DependencyPackageDebugSymbols | C:\lib\core.qds | lib\ | )");
}

TEST_F(Packages, AreFollowedPackageByPackage) {
  World.AddFile(R"(C:\lib\net.fr)");
  WantSymbols();
  Reconcile();
  TTexts names;
  for (const auto& file : World.Deployment().FindFiles("", "Debug", "Win32", "")) {
    if (file->GetDeploymentClass().starts_with("DependencyPackage"))
      names.push_back(file->GetLocalName());
  }
  EXPECT_EQ(names, (TTexts{R"(C:\lib\core.vpk)", R"(C:\lib\net.vpk)", R"(C:\lib\core.qds)",
                           R"(C:\lib\core.de)", R"(C:\lib\core.ja)", R"(C:\lib\net.vcp)",
                           R"(C:\lib\net.fr)"}));
}

TEST_F(Packages, ThatTheUserListedByHandAreWholeAfterOneReconcile) {
  WantSymbols();
  const auto mine = World.Deployment().AddFile("Debug", "Win32", R"(C:\lib\core.vpk)");
  mine->SetDeploymentClass("File");
  mine->SetEnabled("Win32", true);
  Reconcile();
  EXPECT_EQ(Entries("DependencyPackageResource").size(), 2U);
  EXPECT_EQ(Entries("DependencyPackageDebugSymbols").size(), 2U);
  EXPECT_EQ(World.ChangesOf("Debug", "Win32"), TTexts{});
}

TEST_F(Packages, HaveNoFollowersWhenAnotherStepHasTheFile) {
  World.Project.ProjectFiles = {R"(C:\work\App\own.vpk)"};
  World.Personalities.Packages.Names = {"own.vpk"};
  World.AddFile(R"(C:\work\App\own.de)");
  Reconcile();
  EXPECT_EQ(Entries("DependencyPackage"), TTexts{});
  EXPECT_EQ(Entries("ProjectFile"), TTexts{R"(ProjectFile | own.vpk | .\ | )"});
  EXPECT_EQ(World.ChangesOf("Debug", "Win32"), TTexts{});
}

TEST_F(Packages, AreNotTheResourcesOfEachOther) {
  World.Personalities.Packages.Names = {R"(C:\lib\core.vpk)", R"(C:\lib\core.de)"};
  Reconcile();
  EXPECT_EQ(Entries(), (TTexts{R"(DependencyPackage | C:\lib\core.vpk |  | )",
                               R"(DependencyPackage | C:\lib\core.de |  | )",
                               R"(DependencyPackageResource | C:\lib\core.ja |  | core.ja)"}));
  EXPECT_EQ(World.ChangesOf("Debug", "Win32"), TTexts{});
}

TEST_F(Packages, LeaveOneTargetOfAnEntryThatServesSeveral) {
  Reconcile();
  const auto core = World.Entry("DependencyPackage", "Debug", "Win32");
  core->SetRemoteDir("Win64", "own\\");
  World.Personalities.Packages.Names = {R"(C:\lib\net.vpk)"};
  Reconcile();
  EXPECT_EQ(core->GetPlatforms(), TTexts{"Win64"});
  EXPECT_EQ(core->GetRemoteDir("Win64"), "own\\");
}

} // namespace
} // namespace deployment
