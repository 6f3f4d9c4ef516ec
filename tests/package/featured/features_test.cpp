#include "package/featured/features.h"
#include "tests/package/featured/catalog_fixture.h"

#include <gtest/gtest.h>

namespace deployment {
namespace {

using TTexts = std::vector<std::string>;

std::string ErrorOf(std::string_view catalog) {
  TCatalogWorld world(catalog);
  try {
    const TFeatures features(world.Host, "");
  } catch (const TInputError& error) {
    return error.Place().File + ":" + std::to_string(error.Place().Line) + ": " + error.what();
  }
  return {};
}

TEST(Features, OfThisProductAreListedInOrder) {
  TCatalogWorld world;
  EXPECT_EQ(world.TitlesFor(""), "Client Proxy Loose Tables");
}

TEST(Features, AreNoneWithoutACatalog) {
  TCatalogWorld world;
  world.Host.Files.clear();
  const TFeatures features(world.Host, "");
  EXPECT_TRUE(features.List().empty());
  EXPECT_TRUE(features.FeaturesClasses().IsEmpty());
  EXPECT_EQ(OpenFeaturedFilesXml(world.Host), nullptr);
}

TEST(Features, ComeFromTheCopyForTheUsersLanguage) {
  TCatalogWorld world;
  world.Host.AppStrings.LocaleFiles[CatalogFile] = "de.xml";
  world.Host.Files["de.xml"] =
      R"(<C><Feature ProductName="Test"><Title>Kunde</Title></Feature></C>)";
  EXPECT_EQ(world.TitlesFor(""), "Kunde");
}

TEST(Features, AreThoseWhoseClassesClaimTheExtension) {
  TCatalogWorld world;
  EXPECT_EQ(world.TitlesFor(".dat"), "Client Tables");
  EXPECT_EQ(world.TitlesFor(".url"), "Client Proxy");
  EXPECT_EQ(world.TitlesFor(" .DAT "), "Client Tables");
}

TEST(Features, AreNoneForAnExtensionThatNobodyClaimsThoughTheClassesStay) {
  TCatalogWorld world;
  EXPECT_EQ(world.TitlesFor(".zip"), "");
  EXPECT_EQ(TFeatures(world.Host, ".zip").FeaturesClasses().Count(), 2U);
}

TEST(Features, KeepTheBlanksOfTheirExtensions) {
  TCatalogWorld world;
  EXPECT_EQ(world.TitlesFor(".bin"), "");
  EXPECT_EQ(world.TitlesFor(".db"), "Client Tables");
}

TEST(Features, FindClassesWhateverTheirCaseAndBlanks) {
  TCatalogWorld world;
  const TFeatures features(world.Host, "");
  ASSERT_NE(features.FindClass(" DATA"), nullptr);
  EXPECT_EQ(features.FindClass(" DATA")->Name(), "Data");
  EXPECT_EQ(features.FindClass(" DATA")->Extensions(), (TTexts{".dat", " .bin", ".db"}));
  EXPECT_TRUE(features.ExtensionInFeaturesClasses(" .Url "));
  EXPECT_FALSE(features.ExtensionInFeaturesClasses(".zip"));
  EXPECT_TRUE(features.ExtensionInFeatureClass("Nobody; net ", ".url"));
  EXPECT_FALSE(features.ExtensionInFeatureClass("Nobody;Data", ".url"));
}

TEST(Features, GiveCopiesOfTheClassesThatClaimAnExtension) {
  TCatalogWorld world;
  const TFeatures features(world.Host, "");
  const auto classes = features.GetFeaturesClassesByExtension(".url");
  ASSERT_EQ(classes.Count(), 1U);
  EXPECT_EQ(classes.begin()->Key, "Net");
  EXPECT_EQ(classes.begin()->Value.Extensions(), TTexts{".url"});
}

TEST(Features, HoldTheirFilesWithTheirPlatforms) {
  TCatalogWorld world;
  const TFeatures features(world.Host, "");
  const TFeature& client = features.List().front();
  EXPECT_EQ(client.FeaturesClasses(), (TTexts{" data ", "Net"}));
  ASSERT_EQ(client.DeployFiles().size(), 2U);
  const TDeployFile& library = client.DeployFiles().front();
  EXPECT_EQ(library.LocalName(), "lib\\client.dll");
  EXPECT_EQ(library.ClassDesc(), "DependencyModule");
  EXPECT_EQ(library.Platforms(), (TTexts{"Win32", "Win64"}));
  EXPECT_EQ(library.Configuration(), "");
}

TEST(Features, EndEveryDirectoryWithADelimiter) {
  TCatalogWorld world;
  const TFeatures features(world.Host, "");
  const auto& files = features.List().front().DeployFiles();
  EXPECT_EQ(files[0].GetRemoteDir("Win32"), "lib\\");
  EXPECT_EQ(files[0].GetRemoteDir("Win64"), "");
  EXPECT_EQ(files[0].GetRemoteDir("win32"), "");
  EXPECT_EQ(files[1].GetRemoteDir("Win32"), "conf\\");
}

TEST(Features, TakeTheLastTitleAndTheLastExtensions) {
  TCatalogWorld world(R"(<C><FeatureClass ProductName="Test" Name="A"><Extensions>.a</Extensions>
    <Extensions>.b</Extensions></FeatureClass><Feature ProductName="Test" FeatureClass="A">
    <Title>One</Title><Title>Two</Title></Feature></C>)");
  EXPECT_EQ(world.TitlesFor(".b"), "Two");
  EXPECT_EQ(world.TitlesFor(".a"), "");
}

TEST(Features, RefuseAClassThatStandsTwice) {
  EXPECT_EQ(ErrorOf("<C><FeatureClass ProductName=\"Test\" Name=\"Data\"/>\n"
                    "<FeatureClass ProductName=\"Test\" Name=\" DATA \"/></C>"),
            std::string(CatalogFile) + ":2: the feature class \" DATA \" stands twice");
}

TEST(Features, RefuseTwoDirectoriesForOnePlatform) {
  EXPECT_EQ(ErrorOf("<C><Feature ProductName=\"Test\"><DeployFile LocalName=\"a.dll\">\n"
                    "<Platform Name=\"Win32\"><RemoteDir>x</RemoteDir></Platform>\n"
                    "<Platform Name=\"Win32\"><RemoteDir>y</RemoteDir></Platform>"
                    "</DeployFile></Feature></C>"),
            std::string(CatalogFile) +
                ":3: the file \"a.dll\" has two \"RemoteDir\" for \"Win32\"");
}

TEST(Features, RefuseADirectoryWithAnElementInIt) {
  EXPECT_EQ(ErrorOf("<C><Feature ProductName=\"Test\"><DeployFile LocalName=\"a.dll\">\n"
                    "<Platform Name=\"Win32\"><RemoteDir>a<b>c</b>d</RemoteDir></Platform>"
                    "</DeployFile></Feature></C>"),
            std::string(CatalogFile) +
                ":2: the element \"RemoteDir\" holds elements where a text is wanted");
}

TEST(Features, RefuseAPlatformWithSomethingElseThanADirectory) {
  EXPECT_EQ(ErrorOf("<C><Feature ProductName=\"Test\"><DeployFile LocalName=\"a.dll\">\n"
                    "<Platform Name=\"Win32\"><Dir>x</Dir></Platform>"
                    "</DeployFile></Feature></C>"),
            std::string(CatalogFile) +
                ":2: the platform \"Win32\" of the file \"a.dll\" holds no \"RemoteDir\"");
}

TEST(Features, RefuseATitleThatIsNoPlainText) {
  EXPECT_EQ(ErrorOf("<C><Feature ProductName=\"Test\">\n<Title><b>x</b></Title></Feature></C>"),
            std::string(CatalogFile) +
                ":2: the element \"Title\" holds elements where a text is wanted");
}

TEST(Features, PassOverTheMistakesOfOtherProducts) {
  EXPECT_EQ(ErrorOf("<C><Feature ProductName=\"Other\"><Title><b/></Title></Feature></C>"), "");
}

} // namespace
} // namespace deployment
