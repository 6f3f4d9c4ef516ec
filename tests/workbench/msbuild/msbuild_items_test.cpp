#include "tests/workbench/project/project_fixture.h"

namespace workbench {
namespace {

using MSBuildItems = TProjectTest;

TEST_F(MSBuildItems, AreSplitBeforeEscapesAreResolved) {
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\" a ; b;;c%3Bd;%2A.txt \"/></ItemGroup>"),
            "X:a X:b X:c;d X:*.txt");
}

TEST_F(MSBuildItems, SeeTheFinalValueOfAProperty) {
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"$(A)\"/></ItemGroup>"
                    "<PropertyGroup><A>late</A></PropertyGroup>"),
            "X:late");
}

TEST_F(MSBuildItems, FollowConditions) {
  EXPECT_EQ(
      ItemsOf("<ItemGroup Condition=\"false\"><X Include=\"a\"/></ItemGroup>"
              "<ItemGroup><X Include=\"b\" Condition=\"false\"/><X Include=\"c\"/></ItemGroup>"),
      "X:c");
}

TEST_F(MSBuildItems, CanBeReferredTo) {
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"a;b\"/><Y Include=\"@(x);c;@(X, ';')\"/></ItemGroup>"),
            "X:a X:b Y:a Y:b Y:c Y:a Y:b");
}

TEST_F(MSBuildItems, BringTheirMetadataWhenTheyAreReferredTo) {
  auto& project =
      Evaluate("<ItemGroup><X Include=\"a\"><M>1</M><N>2</N></X>"
               "<Y Include=\"@(X)\"><N>3</N><O Condition=\"false\">4</O></Y></ItemGroup>");
  const TProjectItem& item = project.Items().at(1);
  EXPECT_EQ(item.FindMetadata("m"), "1");
  EXPECT_EQ(item.FindMetadata("N"), "3");
  EXPECT_EQ(item.FindMetadata("O"), "");
}

TEST_F(MSBuildItems, TakeMetadataFromAttributesAndElementsInOrder) {
  auto& project = Evaluate("<PropertyGroup><P>lab</P></PropertyGroup><ItemGroup>"
                           "<X Include=\"a\" Label=\"no\" Profile=\"$(P)\"><SDK>k%3B1</SDK></X>"
                           "</ItemGroup>");
  const auto& metadata = project.Items().at(0).Metadata;
  ASSERT_EQ(metadata.size(), 2U);
  EXPECT_EQ(metadata[0].Name + "=" + metadata[0].Text, "Profile=lab");
  EXPECT_EQ(metadata[1].Name + "=" + metadata[1].Text, "SDK=k;1");
}

TEST_F(MSBuildItems, CanBeExcludedRemovedAndUpdated) {
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"a;sub/B;c.txt;d.txt\" Exclude=\"SUB\\b;d.*\"/>"
                    "<X Remove=\"A\"/><X Include=\"a\"/></ItemGroup>"),
            "X:c.txt X:a");
  auto& project =
      Evaluate("<ItemGroup><X Include=\"a;b\"/><X Update=\"b\"><M>1</M></X></ItemGroup>");
  EXPECT_EQ(project.Items().at(0).FindMetadata("M"), "");
  EXPECT_EQ(project.Items().at(1).FindMetadata("M"), "1");
}

TEST_F(MSBuildItems, CanBeExcludedByANameWithAColon) {
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"a:b.txt;a:c.txt;d\" Exclude=\"a:b.txt;?:c*\"/>"
                    "</ItemGroup>"),
            "X:d");
}

TEST_F(MSBuildItems, CanRemoveWhatAnotherListNames) {
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"a;b;c\"/><Y Include=\"b\"/><X Remove=\"@(Y);c*\"/>"
                    "</ItemGroup>"),
            "X:a Y:b");
}

TEST_F(MSBuildItems, WithWildcardsAreTheFilesOnTheDisk) {
  MakeFile("data/b.dat");
  MakeFile("data/A.dat");
  MakeFile("data/deep/er/c.DAT");
  MakeFile("data/deep/noext");
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"data\\*.dat\"/></ItemGroup>"),
            "X:data\\A.dat X:data\\b.dat");
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"data\\**\\?.dat\"/></ItemGroup>"),
            "X:data\\A.dat X:data\\b.dat X:data\\deep\\er\\c.DAT");
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"data/**\" Exclude=\"**\\*.dat\"/></ItemGroup>"),
            "X:data/deep\\noext");
  EXPECT_EQ(
      ItemsOf("<ItemGroup><X Include=\"$(MSBuildProjectDirectory)\\data\\*\\*.*\"/></ItemGroup>"),
      "X:" + Directory.string() + "\\data\\deep\\noext");
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"nothing\\*.dat\"/></ItemGroup>"), "");
}

TEST_F(MSBuildItems, WithWildcardsDoNotFollowLinksToDirectories) {
  MakeFile("data/a.dat");
  std::filesystem::create_directory_symlink(Directory, Directory / "data/loop");
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"**\\*.dat\"/></ItemGroup>"), "X:data\\a.dat");
}

TEST_F(MSBuildItems, ThatCannotBeEvaluatedAreNoted) {
  EXPECT_EQ(ItemsOf("<ItemGroup><X Include=\"a\"/><Y Include=\"@(X->'%(Filename);b');p@(X);"
                    "/**;\\\\server\\**;C:\\*\"/></ItemGroup>"),
            "X:a");
  ASSERT_EQ(Evaluation->Notes().size(), 5U);
  EXPECT_EQ(Evaluation->Notes()[0].Text,
            "\"@(X->'%(Filename);b')\" of the item \"Y\" was left out: it transforms a list");
  EXPECT_EQ(Evaluation->Notes()[1].Text,
            "\"p@(X)\" of the item \"Y\" was left out: it holds a list inside a name");
  EXPECT_EQ(Evaluation->Notes()[2].Text, "\"/**\" of the item \"Y\" was left out: it walks "
                                         "through everything above the project's directory");
}

TEST_F(MSBuildItems, WithoutIncludeAreAnError) {
  try {
    Evaluate("<ItemGroup>\n<X/></ItemGroup>").Items();
    FAIL();
  } catch (const deployment::TInputError& error) {
    EXPECT_STREQ(error.what(), "the item \"X\" lacks the attribute \"Include\"");
    EXPECT_EQ(error.Place().Line, 2U);
  }
}

TEST_F(MSBuildItems, OfAnImportAreRelativeToTheProject) {
  MakeFile("a.dat");
  MakeFile("sub/b.dat");
  Imports.Texts[PathOf("sub/x.props")] =
      "<Project><ItemGroup><X Include=\"*.dat\"/><X Include=\"$(MSBuildThisFileDirectory)b.dat\"/>"
      "</ItemGroup></Project>";
  EXPECT_EQ(ItemsOf("<Import Project=\"sub\\x.props\"/>"), "X:a.dat X:" + PathOf("sub/b.dat"));
}

TEST_F(MSBuildItems, AreRemovedOneByOneInReasonableTime) {
  std::string text = "<ItemGroup>";
  for (int i = 0; i < 20'000; ++i)
    text += "<X Include=\"" + std::to_string(i) + "\"/>";
  for (int i = 1; i < 20'000; ++i)
    text += "<X Remove=\"" + std::to_string(i) + "\"/>";
  EXPECT_EQ(ItemsOf(text + "</ItemGroup>"), "X:0");
}

} // namespace
} // namespace workbench
