#include "package/common/errors.h"
#include "tests/workbench/files/save_fixture.h"
#include "workbench/files/save_error.h"
#include "workbench/msbuild/msbuild_document.h"
#include "workbench/xml/xml_encoding.h"

namespace workbench {
namespace {

constexpr std::string_view Template = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n"
                                      "<Project xmlns=\"urn:p\">\n</Project>\n";

class MSBuildDocument : public testing::TSaveTest {
protected:
  std::unique_ptr<TMSBuildDocument> Load(std::string_view text) {
    Write(FRoot / "template.xml", text);
    return std::make_unique<TMSBuildDocument>(FRoot / "template.xml");
  }
  std::string Saved(TMSBuildDocument& document) {
    document.SaveToFile(FFile.string());
    return Read(FFile);
  }
  static void AddExample(TMSBuildDocument& document) {
    deployment::IMSBuildItemGroup& group = document.AddItemGroup("'$(Platform)'=='Win32'");
    deployment::IMSBuildItem& item = group.AddItem("DeployFile", "a.dat");
    item.AddMetadata("RemoteDir", "d\\");
  }
};

TEST_F(MSBuildDocument, AddsGroupsAndItemsInOrder) {
  const auto document = Load(Template);
  deployment::IMSBuildItemGroup& first = document->AddItemGroup("'$(Platform)'=='Win32'");
  deployment::IMSBuildItem& item = first.AddItem("DeployFile", "a&b.dat");
  EXPECT_EQ(item.GetCondition(), "");
  item.SetCondition("'$(Config)'=='Debug'");
  EXPECT_EQ(item.GetCondition(), "'$(Config)'=='Debug'");
  item.AddMetadata("Zebra", "1");
  item.AddMetadata("Alpha", "<\"2\">");
  first.AddItem("DeployFile", "c.dat");
  document->AddItemGroup("");
  document->AddItemGroup("").AddItem("X", "y").AddMetadata("M", "");
  EXPECT_EQ(Saved(*document),
            "<?xml version=\"1.0\" encoding=\"utf-8\"?>\n<Project xmlns=\"urn:p\">\n"
            "  <ItemGroup Condition=\"'$(Platform)'=='Win32'\">\n"
            "    <DeployFile Include=\"a&amp;b.dat\" Condition=\"'$(Config)'=='Debug'\">\n"
            "      <Zebra>1</Zebra>\n      <Alpha>&lt;\"2\"&gt;</Alpha>\n    </DeployFile>\n"
            "    <DeployFile Include=\"c.dat\"/>\n  </ItemGroup>\n  <ItemGroup/>\n"
            "  <ItemGroup>\n    <X Include=\"y\">\n      <M></M>\n    </X>\n  </ItemGroup>\n"
            "</Project>\n");
  EXPECT_TRUE(document->WasWritten());
}

TEST_F(MSBuildDocument, WritesLineEndsInMetadataAsReferences) {
  const auto document = Load(Template);
  document->AddItemGroup("").AddItem("X", "y").AddMetadata("Commands", "one\r\ntwo\nthree");
  EXPECT_NE(Saved(*document).find("<Commands>one&#xD;&#xA;two&#xA;three</Commands>"),
            std::string::npos);
}

TEST_F(MSBuildDocument, StartsEachItemWithoutConditionAndMetadata) {
  const auto document = Load("<Project/>");
  deployment::IMSBuildItemGroup& group = document->AddItemGroup("");
  deployment::IMSBuildItem& first = group.AddItem("X", "1");
  first.SetCondition("c");
  first.AddMetadata("M", "m");
  EXPECT_EQ(group.AddItem("X", "2").GetCondition(), "");
  EXPECT_EQ(Saved(*document), "<Project><ItemGroup><X Include=\"1\" Condition=\"c\"><M>m</M></X>"
                              "<X Include=\"2\"/></ItemGroup></Project>");
}

TEST_F(MSBuildDocument, WithoutGroupsIsTheTemplate) {
  EXPECT_EQ(Saved(*Load(Template)), Template);
}

TEST_F(MSBuildDocument, LeavesAFileOfThatContentUntouched) {
  const auto first = Load(Template);
  AddExample(*first);
  const std::string text = Saved(*first);
  const auto before = std::filesystem::last_write_time(FFile);
  const auto second = Load(Template);
  AddExample(*second);
  EXPECT_EQ(Saved(*second), text);
  EXPECT_FALSE(second->WasWritten());
  EXPECT_EQ(std::filesystem::last_write_time(FFile), before);
}

TEST_F(MSBuildDocument, ReplacesWhateverStandsThereWithoutABackup) {
  Write(FFile, "edited by hand");
  const auto document = Load(Template);
  AddExample(*document);
  EXPECT_NE(Saved(*document).find("a.dat"), std::string::npos);
  EXPECT_TRUE(document->WasWritten());
  EXPECT_FALSE(std::filesystem::exists(FRoot / "state"));
  EXPECT_EQ(Names(), std::vector<std::string>{"demo.vproj"});
}

TEST_F(MSBuildDocument, OpensATemplateWithoutEndTag) {
  const auto document = Load("<?xml version=\"1.0\"?>\n<Project />\n");
  document->AddItemGroup("").AddItem("X", "y");
  EXPECT_EQ(Saved(*document), "<?xml version=\"1.0\"?>\n<Project>\n  <ItemGroup>\n"
                              "    <X Include=\"y\"/>\n  </ItemGroup>\n</Project>\n");
}

TEST_F(MSBuildDocument, FollowsTheLayoutOfItsTemplate) {
  const auto document = Load("<Project>\r\n\t<PropertyGroup/>\r\n\t<!-- here -->\r\n</Project>");
  document->AddItemGroup("").AddItem("X", "y");
  EXPECT_EQ(Saved(*document), "<Project>\r\n\t<PropertyGroup/>\r\n\t<!-- here -->\r\n\t<ItemGroup>"
                              "\r\n\t\t<X Include=\"y\"/>\r\n\t</ItemGroup>\r\n</Project>");
}

TEST_F(MSBuildDocument, StaysInTheEncodingOfItsTemplate) {
  const auto encoding = TXmlEncoding::Utf16BigEndian;
  const auto document = Load("\xFE\xFF" + EncodeMarkup("<Project></Project>", encoding));
  document->AddItemGroup("").AddItem("X", "\xC3\xA4");
  EXPECT_EQ(Saved(*document),
            "\xFE\xFF" + EncodeMarkup("<Project><ItemGroup><X Include=\"\xC3\xA4\"/></ItemGroup>"
                                      "</Project>",
                                      encoding));
}

TEST_F(MSBuildDocument, WritesLargeListsWhole) {
  const auto document = Load(Template);
  deployment::IMSBuildItemGroup& group = document->AddItemGroup("");
  for (int i = 0; i < 20'000; ++i)
    group.AddItem("X", std::to_string(i)).AddMetadata("Name", "value " + std::to_string(i));
  const std::string text = Saved(*document);
  TXmlReader reader(text, "demo.vproj");
  TXmlElement* item = reader.Root().FirstChild()->FirstChild();
  for (int i = 0; i < 20'000; ++i, item = item->NextSibling()) {
    ASSERT_EQ(item->GetAttribute("Include"), std::to_string(i));
    ASSERT_EQ(item->FirstChild()->Text(), "value " + std::to_string(i));
  }
  EXPECT_EQ(item, nullptr);
}

TEST_F(MSBuildDocument, RefusesATemplateOfAnotherKind) {
  EXPECT_EQ(testing::ErrorOf<deployment::TInputError>([this] { Load("<Targets/>"); }),
            "the root element is \"Targets\", so this is not an MSBuild project");
  EXPECT_EQ(testing::ErrorOf<deployment::TInputError>([this] { Load("<Project>"); }),
            "not well-formed XML: no element found");
}

TEST_F(MSBuildDocument, RefusesTextThatXmlCannotHold) {
  Write(FFile, "before");
  const auto document = Load(Template);
  document->AddItemGroup("").AddItem("X", "a\x01");
  EXPECT_EQ(testing::ErrorOf<deployment::TInputError>([&] { Saved(*document); }),
            "the text \"a\x01\" holds characters that an XML file cannot hold");
  EXPECT_EQ(Read(FFile), "before");
}

TEST_F(MSBuildDocument, ThrowsWhatTheSaveThrows) {
  const auto document = Load(Template);
  AddExample(*document);
  EXPECT_THROW(document->SaveToFile((FDirectory / "absent" / "x").string()), TSaveError);
  EXPECT_FALSE(document->WasWritten());
}

} // namespace
} // namespace workbench
