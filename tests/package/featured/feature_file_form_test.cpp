#include "package/featured/feature_file_form.h"
#include "tests/package/featured/catalog_fixture.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

class FeatureFileForm : public testing::Test {
protected:
  TFeatureFileForm Form() { return {Features, World.Project}; }
  // The tree as text: "+" checked, "-" unchecked, "?" mixed, with the depth as blanks.
  static TTexts Tree(const TFeatureFileForm& form, TNodeId node = 0, std::size_t depth = 0) {
    TTexts lines;
    for (const TNodeId child : form.GetChildren(node)) {
      lines.push_back(std::string(depth, ' ') +
                      "-+?"[static_cast<std::size_t>(form.GetCheckState(child))] +
                      form.GetText(child));
      const TTexts below = Tree(form, child, depth + 1);
      lines.insert(lines.end(), below.begin(), below.end());
    }
    return lines;
  }
  static TNodeId Find(const TFeatureFileForm& form, std::string_view text, TNodeId node = 0) {
    for (const TNodeId child : form.GetChildren(node)) {
      if (form.GetText(child) == text)
        return child;
      if (const TNodeId found = Find(form, text, child))
        return found;
    }
    return 0;
  }

  TCatalogWorld World;
  TFeatures Features{World.Host, ""};
};

TEST_F(FeatureFileForm, ShowsFeaturesPlatformsAndFiles) {
  const auto form = Form();
  EXPECT_EQ(Tree(form), (TTexts{"-Client", " -Win32", "  -lib\\client.dll", "  -lib\\client.ini",
                                " -Win64", "  -lib\\client.dll", "-Proxy", " -Win32",
                                "  -proxy.dll", "-Loose", "-Tables"}));
  EXPECT_EQ(form.GetCaption(), "Featured Files");
  EXPECT_EQ(form.GetHelpContext(), 13602);
  EXPECT_TRUE(form.GetShowAuto());
}

TEST_F(FeatureFileForm, KnowsWhatEachNodeStandsFor) {
  const auto form = Form();
  const TFeatureNode& feature = form.GetNode(Find(form, "Client"));
  EXPECT_EQ(feature.Title, "Client");
  EXPECT_EQ(feature.FeatureClasses, " data ;Net");
  const TFeatureNode& file = form.GetNode(Find(form, "lib\\client.dll"));
  EXPECT_EQ(file.Title, "");
  EXPECT_EQ(file.ClassDesc, "DependencyModule");
  EXPECT_EQ(file.Platform, "Win32");
  EXPECT_EQ(file.Configuration, "Debug");
  EXPECT_EQ(file.RemoteDir, "lib\\");
  EXPECT_EQ(file.FeatureClasses, " data ;Net");
}

TEST_F(FeatureFileForm, ChecksWhatTheDeploymentHoldsAndDerivesTheParents) {
  World.Deployment().AddFile("Debug", "Win32", "lib\\client.dll")->SetEnabled("Win32", true);
  World.Deployment().AddFile("Debug", "Win32", "proxy.dll")->SetEnabled("Win32", true);
  EXPECT_EQ(Tree(Form()), (TTexts{"?Client", " ?Win32", "  +lib\\client.dll", "  -lib\\client.ini",
                                  " -Win64", "  -lib\\client.dll", "+Proxy", " +Win32",
                                  "  +proxy.dll", "-Loose", "-Tables"}));
}

TEST_F(FeatureFileForm, LeavesADisabledEntryUncheckedAndRemovesItWithOK) {
  World.Deployment().AddFile("Debug", "Win32", "proxy.dll")->SetEnabled("Win32", false);
  auto form = Form();
  EXPECT_EQ(form.GetCheckState(Find(form, "proxy.dll")), TCheckState::Unchecked);
  form.FormClose(TModalResult::OK);
  EXPECT_TRUE(World.Deployment().FindFiles("proxy.dll", "", "", "").empty());
}

TEST_F(FeatureFileForm, LetsChildrenFollowAndDerivesParentsWhenABoxIsClicked) {
  auto form = Form();
  form.SetChecked(Find(form, "Client"), true);
  EXPECT_EQ(form.GetCheckState(Find(form, "lib\\client.ini")), TCheckState::Checked);
  form.SetChecked(Find(form, "lib\\client.ini"), false);
  EXPECT_EQ(form.GetCheckState(Find(form, "Win32")), TCheckState::Mixed);
  EXPECT_EQ(form.GetCheckState(Find(form, "Client")), TCheckState::Mixed);
  form.SetChecked(Find(form, "lib\\client.ini"), true);
  EXPECT_EQ(form.GetCheckState(Find(form, "Client")), TCheckState::Checked);
}

TEST_F(FeatureFileForm, AddsCheckedFilesPerPlatformAsTheUsersOwn) {
  auto form = Form();
  form.SetChecked(Find(form, "Client"), true);
  form.FormClose(TModalResult::OK);
  EXPECT_EQ(World.Lines("Debug", "Win32"),
            (TTexts{"File | lib\\client.dll | lib\\ | ", "File | lib\\client.ini | conf\\ | "}));
  EXPECT_EQ(World.Lines("Debug", "Win64"), TTexts{"File | lib\\client.dll |  | "});
  EXPECT_EQ(World.Entry("File", "Debug", "Win64")->GetFilePlatform(), "Win64");
  EXPECT_EQ(form.GetAddedFiles(""), " data ;Net");
}

TEST_F(FeatureFileForm, RemovesAndThenAddsInTheOrderOfTheTree) {
  World.Deployment().AddFile("Debug", "Win32", "proxy.dll")->SetEnabled("Win32", true);
  const auto log = std::make_shared<TChangeLog>();
  World.Deployment().AddNotifier(log);
  auto form = Form();
  form.SetChecked(Find(form, "Client"), true);
  form.SetChecked(Find(form, "Proxy"), false);
  form.FormClose(TModalResult::OK);
  TTexts order;
  for (const std::string& line : log->Lines) {
    if (!line.starts_with("modified "))
      order.push_back(line);
  }
  // Win32 comes with both of its files before Win64.
  EXPECT_EQ(order, (TTexts{"removed proxy.dll", "added lib\\client.dll", "added lib\\client.ini",
                           "added lib\\client.dll"}));
}

TEST_F(FeatureFileForm, MakesAnEntryAnewThatDiffersFromTheCatalog) {
  const auto mine = World.Deployment().AddFile("Debug", "Win32", "proxy.dll");
  mine->SetEnabled("Win32", true);
  mine->SetRemoteDir("Win32", "mine\\");
  mine->SetDeploymentClass("DependencyModule");
  auto form = Form();
  EXPECT_EQ(form.GetCheckState(Find(form, "proxy.dll")), TCheckState::Checked);
  form.FormClose(TModalResult::OK);
  EXPECT_EQ(World.Lines("Debug", "Win32"), TTexts{"File | proxy.dll |  | "});
}

TEST_F(FeatureFileForm, LeavesTheRootConfigurationAlone) {
  World.Deployment().AddFile("Base", "Win32", "proxy.dll")->SetEnabled("Win32", true);
  auto form = Form();
  EXPECT_EQ(form.GetCheckState(Find(form, "proxy.dll")), TCheckState::Unchecked);
  form.FormClose(TModalResult::OK);
  EXPECT_EQ(World.Lines("Base", "Win32"), TTexts{" | proxy.dll |  | "});
}

TEST_F(FeatureFileForm, RemovesOnlyThePlatformThatIsUnchecked) {
  auto form = Form();
  form.SetChecked(Find(form, "Client"), true);
  form.FormClose(TModalResult::OK);
  auto again = Form();
  again.SetChecked(Find(again, "Win64"), false);
  again.FormClose(TModalResult::OK);
  EXPECT_EQ(World.Lines("Debug", "Win64"), TTexts{});
  EXPECT_EQ(World.Lines("Debug", "Win32").size(), 2U);
}

TEST_F(FeatureFileForm, TellsNobodyOfFilesThatStayAsTheyAre) {
  auto form = Form();
  form.SetChecked(Find(form, "Client"), true);
  form.FormClose(TModalResult::OK);
  const auto log = std::make_shared<TChangeLog>();
  World.Deployment().AddNotifier(log);
  auto again = Form();
  again.FormClose(TModalResult::OK);
  EXPECT_EQ(log->Lines, TTexts{});
  EXPECT_EQ(again.GetAddedFiles(""), " data ;Net");
}

TEST_F(FeatureFileForm, ChangesNothingUnlessItIsLeftWithOK) {
  for (const TModalResult result : {TModalResult::Cancel, TModalResult::None}) {
    auto form = Form();
    form.SetChecked(Find(form, "Client"), true);
    form.FormClose(result);
    EXPECT_EQ(World.Lines("Debug", "Win32"), TTexts{});
    EXPECT_EQ(form.GetAddedFiles(""), "");
  }
}

TEST_F(FeatureFileForm, HasFilesWithoutDataInAProjectOfTheRootConfigurationAlone) {
  struct TOnlyBase : TMemoryOptions {
    std::vector<const IOTABuildConfiguration*> GetConfigurations() const override {
      return {&Base};
    }
  };
  struct TBaseProject : TMemoryProject {
    IOTAProjectOptionsConfigurations* GetOptionsConfigurations() override { return &Only; }
    TOnlyBase Only;
  } project;
  project.GivenDeployment = &World.Deployment();
  TFeatureFileForm form(Features, project);
  const TNodeId platform = form.GetChildren(form.GetChildren(0).front()).front();
  const TNodeId file = form.GetChildren(platform).front();
  EXPECT_EQ(form.GetText(file), "");
  form.SetChecked(form.GetChildren(0).front(), true);
  form.FormClose(TModalResult::OK);
  EXPECT_TRUE(World.Deployment().FindFiles("", "", "", "").empty());
}

TEST_F(FeatureFileForm, IsEmptyForAProjectWithoutADeployment) {
  TMemoryProject project;
  TFeatureFileForm form(Features, project);
  EXPECT_TRUE(form.GetChildren(0).empty());
  form.FormClose(TModalResult::OK);
}

TEST_F(FeatureFileForm, LeavesKnownClassesOutThatDoNotClaimTheExtension) {
  World.SetCatalog(R"(<C><FeatureClass ProductName="Test" Name="Data"><Extensions>.dat</Extensions>
    </FeatureClass><FeatureClass ProductName="Test" Name="Net"><Extensions>.url</Extensions>
    </FeatureClass><Feature ProductName="Test" FeatureClass="Unknown;Net;Data"><Title>T</Title>
    <DeployFile LocalName="a"><Platform Name="Win32"/></DeployFile></Feature></C>)");
  const TFeatures features(World.Host, ".dat");
  TFeatureFileForm form(features, World.Project);
  form.SetChecked(form.GetChildren(0).front(), true);
  form.FormClose(TModalResult::OK);
  EXPECT_EQ(form.GetAddedFiles(".dat"), "Unknown;Data");
  EXPECT_EQ(form.GetAddedFiles(""), "Unknown;Net;Data");
}

TEST_F(FeatureFileForm, TakesTheDataOfTheConfigurationThatItLooksAtLast) {
  const TMemoryConfiguration release("Release", &World.Project.Options.Base);
  World.Project.Options.Further = {&release};
  const auto form = Form();
  EXPECT_EQ(form.GetNode(Find(form, "lib\\client.dll")).Configuration, "Release");
}

} // namespace
} // namespace deployment
