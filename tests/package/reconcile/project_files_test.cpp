#include "package/host/api/appconst.h"
#include "tests/package/featured/catalog_fixture.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

class ProjectFiles : public testing::Test {
protected:
  ProjectFiles() { World.Host.Files.clear(); }
  void SetFiles(const TTexts& names) {
    World.Project.ProjectFiles.clear();
    for (const std::string& name : names)
      World.Project.ProjectFiles.push_back(name.empty() ? name : R"(C:\work\App\)" + name);
  }
  TTexts Entries(std::string_view platform = "Win32") {
    World.Reconcile("Debug", platform);
    return World.LinesOf("ProjectFile", "Debug", platform);
  }

  TCatalogWorld World;
  TAnsweringForms Forms;
};

TEST_F(ProjectFiles, AreDeployedToTheDefaultDirectoryOfThePlatform) {
  SetFiles({"data\\a.dat", "", "b.txt"});
  EXPECT_EQ(Entries(),
            (TTexts{R"(ProjectFile | data\a.dat | .\ | )", R"(ProjectFile | b.txt | .\ | )"}));
  EXPECT_EQ(Entries("Android"), (TTexts{R"(ProjectFile | data\a.dat | assets\internal\ | )",
                                        R"(ProjectFile | b.txt | assets\internal\ | )"}));
  World.Host.PlatformManager.Add({"Atari"});
  World.Host.PlatformManager.Platforms.pop_back();
  EXPECT_EQ(Entries("Atari").front(), R"(ProjectFile | data\a.dat | .\ | )");
}

TEST_F(ProjectFiles, ThatAreBuiltStayOut) {
  SetFiles({"a.hpp", "a.pas", "a.cpp", "a.qds", "a.cpl", "a.h", "a.rc", "a.jar", "a.PAS", "a"});
  EXPECT_EQ(Entries(), (TTexts{R"(ProjectFile | a.PAS | .\ | )", R"(ProjectFile | a | .\ | )"}));
}

TEST_F(ProjectFiles, AreForApplicationsOnly) {
  SetFiles({"a.dat"});
  for (const char* type : {"Library", "Package", "Console"}) {
    World.Project.ApplicationType = type;
    EXPECT_EQ(Entries(), TTexts{}) << type;
  }
}

TEST_F(ProjectFiles, ThatLeftTheProjectLoseTheirEntries) {
  SetFiles({"a.dat", "b.dat"});
  Entries();
  SetFiles({"B.dat"});
  EXPECT_EQ(Entries(), TTexts{R"(ProjectFile | B.dat | .\ | )"});
}

TEST_F(ProjectFiles, KeepEntriesWhoseNameWasWrittenInAnotherWay) {
  SetFiles({"data\\a.dat"});
  for (const char* name :
       {"data/A.dat", ".\\data\\a.dat", R"(C:\work\App\data\a.dat)", "data/b.dat"}) {
    const auto entry = World.Deployment().AddFile("Debug", "Win32", name);
    entry->SetDeploymentClass("ProjectFile");
    entry->SetEnabled("Win32", true);
  }
  EXPECT_EQ(Entries().size(), 4U); // the three and the name that is missing
  EXPECT_TRUE(World.Deployment().FindFiles("data/b.dat", "", "", "").empty());
}

TEST_F(ProjectFiles, StayListedWhenTheProjectHasNoFilesLeft) {
  SetFiles({"a.dat"});
  Entries();
  SetFiles({""});
  EXPECT_EQ(Entries().size(), 1U);
  SetFiles({});
  EXPECT_EQ(Entries().size(), 1U);
}

TEST_F(ProjectFiles, OfOtherTargetsStay) {
  SetFiles({"a.dat", "b.dat"});
  Entries("Win64");
  SetFiles({"a.dat"});
  Entries("Win32");
  EXPECT_EQ(World.LinesOf("ProjectFile", "Debug", "Win64").size(), 2U);
}

TEST_F(ProjectFiles, LeaveFilesAloneThatTheUserAddedUnderANameThatLeft) {
  SetFiles({"a.dat"});
  const auto mine = World.Deployment().AddFile("Debug", "Win32", "gone.dat");
  mine->SetDeploymentClass("File");
  mine->SetEnabled("Win32", true);
  Entries();
  EXPECT_EQ(World.LinesOf("File", "Debug", "Win32"), TTexts{"File | gone.dat |  | "});
}

TEST_F(ProjectFiles, KeepWhatTheUserSet) {
  SetFiles({"a.dat"});
  Entries();
  const auto entry = World.Entry("ProjectFile", "Debug", "Win32");
  entry->SetRemoteDir("Win32", "mine\\");
  entry->SetEnabled("Win32", false);
  EXPECT_EQ(World.ChangesOf("Debug", "Win32"), TTexts{});
  EXPECT_EQ(Entries(), TTexts{R"(ProjectFile | a.dat | mine\ |  | off)"});
}

TEST_F(ProjectFiles, HaveTheFileThatAnOptionNamesToo) {
  SetFiles({"icon.png"});
  World.SetOption("Android", "Android_LauncherIcon36", "icon.png");
  EXPECT_EQ(Entries("Android").size(), 1U);
  EXPECT_EQ(World.LinesOf("Android_", "Debug", "Android"), TTexts{});
  EXPECT_EQ(World.Host.Messages.Warnings.size(), 1U);
  EXPECT_EQ(World.ChangesOf("Debug", "Android"), TTexts{});
}

TEST_F(ProjectFiles, AreNotTouchedInTheRootConfiguration) {
  SetFiles({"a.dat"});
  EXPECT_EQ(World.Reconcile("Base", "Win32"), TReconcileResult::Reconciled);
  EXPECT_TRUE(World.Deployment().FindFiles("", "", "", "ProjectFile").empty());
}

class ProjectFilesWithFeatures : public ProjectFiles {
protected:
  ProjectFilesWithFeatures() {
    World.SetCatalog(SampleCatalog);
    World.Host.ModalForms = &Forms;
  }
};

TEST_F(ProjectFilesWithFeatures, OfferEachTypeOfFileOnce) {
  SetFiles({"a.DAT", "b.dat", "c.txt", "d.url"});
  Entries();
  EXPECT_EQ(Forms.Shown, 2);
  EXPECT_EQ(World.Project.Options.GetBaseProperty(cFeatureFilesAdded), "Data;Net");
  Entries();
  EXPECT_EQ(Forms.Shown, 2);
}

TEST_F(ProjectFilesWithFeatures, ReadTheCatalogOnceForEachTypeAndNotAtAllWhenNothingIsOffered) {
  const auto loads = [&] {
    return std::count(World.Host.XMLDocuments.Loaded.begin(), World.Host.XMLDocuments.Loaded.end(),
                      CatalogFile);
  };
  SetFiles({"a.zip", "b.ZIP", "c.zip", "d.txt", "e.cpp"});
  Entries();
  EXPECT_EQ(loads(), 2);
  World.Host.Settings.WriteBool("DeploymentManager", "ShowFeaturedFormAuto", false);
  Entries();
  EXPECT_EQ(loads(), 2);
}

TEST_F(ProjectFilesWithFeatures, OfferNothingForFilesWithoutAnExtension) {
  SetFiles({"LICENSE", "README"});
  EXPECT_EQ(Entries().size(), 2U);
  EXPECT_EQ(Forms.Shown, 0);
}

TEST_F(ProjectFilesWithFeatures, StopOfferingWhenTheUserWantsNoMore) {
  SetFiles({"a.dat", "b.url"});
  Forms.ShowAuto = false;
  Entries();
  EXPECT_EQ(Forms.Shown, 1);
  EXPECT_FALSE(World.Host.Settings.ReadBool("DeploymentManager", "ShowFeaturedFormAuto", true));
  Entries();
  EXPECT_EQ(Forms.Shown, 1);
}

TEST_F(ProjectFilesWithFeatures, WarnOfABrokenCatalogOnceAndGoOn) {
  World.SetCatalog("<C><FeatureClass ProductName=\"Test\" Name=\"A\"/>\n"
                   "<FeatureClass ProductName=\"Test\" Name=\"A\"/></C>");
  SetFiles({"a.dat", "b.url"});
  EXPECT_EQ(Entries().size(), 2U);
  EXPECT_EQ(Forms.Shown, 0);
  ASSERT_EQ(World.Host.Messages.Warnings.size(), 1U);
  EXPECT_EQ(World.Host.Messages.Warnings[0].first,
            "no optional files are offered: the feature class \"A\" stands twice");
  EXPECT_EQ(World.Host.Messages.Warnings[0].second.Line, 2U);
}

TEST_F(ProjectFilesWithFeatures, AddWhatIsChosenAndKeepTheModifiedFlag) {
  SetFiles({"b.url"});
  Forms.Choose = "Proxy";
  Forms.ShowAuto = false;
  Entries();
  EXPECT_EQ(World.LinesOf("File", "Debug", "Win32"), TTexts{"File | proxy.dll |  | "});
  EXPECT_FALSE(World.Project.Modified);
}

TEST_F(ProjectFiles, OfNamesThatDifferInCaseOnlyHaveOneEntryAndTheUserIsTold) {
  World.Project.ProjectFiles = {R"(C:\work\App\data\A.dat)", R"(C:\work\App\data\a.dat)"};
  World.Reconcile("Debug", "Win32");
  EXPECT_EQ(World.LinesOf("ProjectFile", "Debug", "Win32"),
            TTexts{R"(ProjectFile | data\a.dat | .\ | )"});
  ASSERT_EQ(World.Host.Messages.Warnings.size(), 1U);
  EXPECT_EQ(World.Host.Messages.Warnings[0].first,
            R"("data\A.dat" and "data\a.dat" differ in case only; they have one entry, which is )"
            R"(that of "data\a.dat")");
  EXPECT_EQ(World.ChangesOf("Debug", "Win32"), TTexts{});
}

TEST_F(ProjectFiles, ThatAreListedTwiceOrExcludedInOneSpellingAreNotWarnedOf) {
  World.Project.ProjectFiles = {R"(C:\work\App\a.dat)", R"(C:\work\App\a.dat)",
                                R"(C:\work\App\x.H)", R"(C:\work\App\x.h)"};
  World.Reconcile("Debug", "Win32");
  EXPECT_EQ(World.LinesOf("ProjectFile", "Debug", "Win32"),
            (TTexts{R"(ProjectFile | a.dat | .\ | )", R"(ProjectFile | x.H | .\ | )"}));
  EXPECT_TRUE(World.Host.Messages.Warnings.empty());
}

TEST_F(ProjectFiles, ThatLeftTheProjectLeaveOneTargetOfASharedEntry) {
  World.Project.ProjectFiles = {R"(C:\work\App\a.dat)", R"(C:\work\App\b.dat)"};
  World.Reconcile("Debug", "Win32");
  const auto shared = World.Deployment().FindFile("Debug", "Win32", "a.dat");
  shared->SetEnabled("Win64", true);
  World.Project.ProjectFiles = {R"(C:\work\App\b.dat)"};
  World.Reconcile("Debug", "Win64");
  EXPECT_EQ(shared->GetPlatforms(), TTexts{"Win32"});
  World.Reconcile("Debug", "Win32");
  EXPECT_EQ(World.Deployment().FindFiles("a.dat", "", "", "").size(), 0U);
}

} // namespace
} // namespace deployment
