#include "tests/workbench/project/document_fixture.h"
#include "workbench/project/project_document.h"

namespace workbench {
namespace {

using testing::Compose;

const std::string Text =
    "<Project>\r\n\t<!-- mine -->\r\n\t<ItemGroup Label=\"Other\"><A "
    "Include=\"x\"/></ItemGroup>\r\n"
    "\t<ItemGroup Label=\"Kept\"/>\r\n\t<ProjectExtensions>\r\n\t\t<Deployment Version=\"2\"/>\r\n"
    "\t</ProjectExtensions>\r\n</Project>\r\n";

TEST(LabelledItems, AreWrittenInTheFilesOwnLayoutAndNothingElseIs) {
  TProjectDocument document(Text, "demo.vproj", "Deployment");
  EXPECT_TRUE(document.LabelledItems("Kept").empty());
  EXPECT_FALSE(document.HasPropertyChanges());
  document.SetLabelledItems("Kept", {{"File", "a;b%41*", {{"Name", "<x> & $(y)"}, {"Empty", ""}}}});
  EXPECT_TRUE(document.HasPropertyChanges());
  const auto composed = Compose(document, {});
  EXPECT_EQ(composed,
            testing::Replaced(Text, "<ItemGroup Label=\"Kept\"/>",
                              "<ItemGroup Label=\"Kept\">\r\n\t\t<File Include=\"a%3bb%2541%2a\">"
                              "<Name>&lt;x&gt; &amp; %24%28y%29</Name><Empty></Empty></File>\r\n\t"
                              "</ItemGroup>"));
}

TEST(LabelledItems, ComeBackAsTheyWereMeant) {
  TProjectDocument document(Text, "demo.vproj", "Deployment");
  const std::vector<TLabelledItem> items{{"File", "ü;%41", {{"Name", "a'b@c"}}}, {"Other", "", {}}};
  document.SetLabelledItems("Kept", items);
  EXPECT_EQ(document.LabelledItems("Kept"), items);
  TProjectDocument again(*Compose(document, {}), "demo.vproj", "Deployment");
  EXPECT_EQ(again.LabelledItems("Kept"), items);
  EXPECT_EQ(again.LabelledItems("Kept").front().FindMetadata("Name"), "a'b@c");
  EXPECT_EQ(again.LabelledItems("Kept").front().FindMetadata("None"), "");
  again.SetLabelledItems("Kept", items);
  EXPECT_FALSE(again.HasPropertyChanges());
  EXPECT_EQ(Compose(again, {}), std::nullopt);
}

TEST(LabelledItems, WantAGroupOfTheirLabel) {
  TProjectDocument document(Text, "demo.vproj", "Deployment");
  EXPECT_TRUE(document.LabelledItems("None").empty());
  try {
    document.SetLabelledItems("None", {});
    FAIL();
  } catch (const deployment::TInputError& error) {
    EXPECT_STREQ(error.what(), "the project has no group of items with the label \"None\"");
  }
}

} // namespace
} // namespace workbench
