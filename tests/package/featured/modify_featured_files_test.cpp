#include "package/featured/modify_featured_files.h"
#include "package/host/api/appconst.h"
#include "tests/package/featured/catalog_fixture.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

class ModifyFeatured : public testing::Test {
protected:
  ModifyFeatured() { World.Host.ModalForms = &Forms; }
  bool Modify(std::string_view extension, bool showAuto = true) {
    ModifyFeaturedFiles(World.Project, showAuto, extension, World.Host);
    return showAuto;
  }
  std::string Recorded() const { return World.Project.Options.GetBaseProperty(cFeatureFilesAdded); }
  void SetRecorded(std::string_view names) {
    World.Project.Options.SetBaseProperty(cFeatureFilesAdded, names);
  }

  TCatalogWorld World;
  TAnsweringForms Forms;
};

TEST_F(ModifyFeatured, ShowsNothingForAnExtensionWithoutFeatures) {
  Modify(".zip");
  EXPECT_EQ(Forms.Shown, 0);
  EXPECT_EQ(Recorded(), "");
}

TEST_F(ModifyFeatured, ShowsNothingOnceAClassIsRecordedWhateverItsCase) {
  SetRecorded("other;DATA");
  Modify(".dat");
  EXPECT_EQ(Forms.Shown, 0);
  Modify(".url");
  EXPECT_EQ(Forms.Shown, 1);
}

TEST_F(ModifyFeatured, ShowsEverythingForTheUsersOwnWish) {
  SetRecorded("Data;Net");
  Modify("");
  EXPECT_EQ(Forms.Titles, (TTexts{"Client", "Proxy", "Loose", "Tables"}));
}

TEST_F(ModifyFeatured, RecordsTheClassesOfWhatWasAdded) {
  Forms.Choose = "Proxy";
  Modify(".url");
  EXPECT_EQ(Recorded(), "Net");
  EXPECT_EQ(World.Lines("Debug", "Win32"), TTexts{"File | proxy.dll |  | "});
}

TEST_F(ModifyFeatured, RecordsTheOfferedClassesWhenNothingWasAdded) {
  Modify(".dat");
  EXPECT_EQ(Recorded(), "Data");
}

TEST_F(ModifyFeatured, RecordsTheWholeTextOfWhatWasAddedLast) {
  Forms.Choose = "Client";
  Modify("");
  EXPECT_EQ(Recorded(), " data ;Net");
}

TEST_F(ModifyFeatured, ReplacesARecordedNameOfAnotherCase) {
  SetRecorded("first;NET");
  Forms.Choose = "Proxy";
  Modify("");
  EXPECT_EQ(Recorded(), "first;Net");
}

TEST_F(ModifyFeatured, RecordsNoClassASecondTime) {
  Forms.Choose = "Client";
  Modify("");
  Modify("");
  EXPECT_EQ(Recorded(), " data ;Net");
  SetRecorded("Net;first");
  Modify("");
  EXPECT_EQ(Recorded(), "Net;first; data ");
}

TEST_F(ModifyFeatured, LeavesTheProjectAloneWhenEveryClassIsRecorded) {
  struct TQuietOptions : TMemoryOptions {
    void SetBaseProperty(std::string_view, std::string_view) override { ++Written; }
    std::string GetBaseProperty(std::string_view) const override { return "Net; data "; }
    int Written = 0;
  } options;
  struct TQuietProject : TMemoryProject {
    explicit TQuietProject(TQuietOptions& options) : Quiet(options) {}
    IOTAProjectOptionsConfigurations* GetOptionsConfigurations() override { return &Quiet; }
    TQuietOptions& Quiet;
  } project(options);
  Forms.Choose = "Client";
  bool showAuto = true;
  project.GivenDeployment = &World.Deployment();
  ModifyFeaturedFiles(project, showAuto, {}, World.Host);
  EXPECT_EQ(Forms.Shown, 1);
  EXPECT_EQ(options.Written, 0);
}

TEST_F(ModifyFeatured, RecordsTheOfferedClassesOnCancelButNothingWithoutAnExtension) {
  Forms.Result = TModalResult::Cancel;
  Forms.Choose = "*";
  Forms.ShowAuto = false;
  EXPECT_TRUE(Modify(""));
  EXPECT_EQ(Recorded(), "");
  EXPECT_TRUE(Modify(".url"));
  EXPECT_EQ(Recorded(), "Net");
  EXPECT_EQ(World.Lines("Debug", "Win32"), TTexts{});
}

TEST_F(ModifyFeatured, RecordsNothingWhenTheBoxIsCleared) {
  Forms.ShowAuto = false;
  Forms.Choose = "Proxy";
  EXPECT_FALSE(Modify(".url"));
  EXPECT_EQ(Recorded(), "");
  EXPECT_TRUE(World.Project.Modified);
  EXPECT_EQ(World.Lines("Debug", "Win32"), TTexts{"File | proxy.dll |  | "});
}

TEST_F(ModifyFeatured, ShowsTheBoxAsTheCallerHasIt) {
  Modify("", false);
  EXPECT_FALSE(Forms.SawShowAuto);
}

TEST_F(ModifyFeatured, RecordsNothingWhenTheDialogWasNotAnswered) {
  Forms.Result = TModalResult::None;
  Forms.Choose = "*";
  EXPECT_TRUE(Modify(".url"));
  EXPECT_EQ(Recorded(), "");
  EXPECT_EQ(World.Lines("Debug", "Win32"), TTexts{});
}

TEST_F(ModifyFeatured, DoesNothingInAHostWithoutDialogs) {
  World.Host.ModalForms = nullptr;
  EXPECT_TRUE(Modify(".url"));
  EXPECT_EQ(Recorded(), "");
}

TEST_F(ModifyFeatured, ComesUpByItselfOnlyWhereTheSettingsLetIt) {
  World.Host.Settings.WriteBool(FeaturedSettingsSection, ShowFeaturedFormAuto, false);
  AskForFeaturedFiles(World.Project, ".url", World.Host);
  EXPECT_EQ(Forms.Shown, 0);
  AskForFeaturedFiles(World.Project, {}, World.Host);
  EXPECT_EQ(Forms.Shown, 1);
  EXPECT_FALSE(Forms.SawShowAuto);
}

TEST_F(ModifyFeatured, PutsTheBoxIntoTheSettingsWhenItDiffers) {
  AskForFeaturedFiles(World.Project, {}, World.Host);
  EXPECT_TRUE(World.Host.Settings.Booleans.empty());
  Forms.ShowAuto = false;
  AskForFeaturedFiles(World.Project, ".url", World.Host);
  EXPECT_FALSE(MayOfferFeaturedFiles(World.Host));
  Forms.ShowAuto = true;
  AskForFeaturedFiles(World.Project, {}, World.Host);
  EXPECT_TRUE(MayOfferFeaturedFiles(World.Host));
}

TEST_F(ModifyFeatured, CanBeLookedAtWithoutBeingShown) {
  const auto form = LookAtFeaturedFiles(World.Project, ".url", World.Host);
  EXPECT_EQ(form->GetNode(form->GetChildren(0).front()).Title, "Client");
  EXPECT_EQ(Forms.Shown, 0);
}

TEST_F(ModifyFeatured, PassesOnTheErrorsOfTheCatalog) {
  World.SetCatalog("<C><Feature ProductName=\"Test\"><Title><b/></Title></Feature></C>");
  EXPECT_THROW(Modify(""), TInputError);
}

} // namespace
} // namespace deployment
