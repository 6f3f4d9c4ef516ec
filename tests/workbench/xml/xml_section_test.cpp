#include "tests/workbench/xml/xml_fixture.h"
#include "workbench/xml/xml_fingerprint.h"

namespace workbench {
namespace {

using testing::Describe;
using testing::Read;

constexpr TXmlSectionPath Path{"ProjectExtensions", "Deployment"};

constexpr std::string_view Text = R"(<Project>
  <A x="1"><Deployment><no/></Deployment></A>
  <ProjectExtensions>
    <Deployment Version="2">
      <DeployFile LocalName="a.dat"><Platform Name="Win32"><X>1</X>  <Y z="&lt;"/></Platform></DeployFile>
      <!-- kept -->
      <DeployFile LocalName="b.dat">text<Platform Name="OSX32"/>more</DeployFile>
      <Empty/>
      <Leaf> l </Leaf>
    </Deployment>
    <Other><o/></Other>
  </ProjectExtensions>
  <ProjectExtensions><Deployment><second/></Deployment></ProjectExtensions>
</Project>)";

TXmlElement& ChildAt(TXmlElement& element, int index) {
  TXmlElement* child = element.FirstChild();
  for (; index > 0; --index)
    child = child->NextSibling();
  return *child;
}

TEST(XmlSection, HasTheContentOfAPlainRead) {
  EXPECT_EQ(Describe(Read(Text, Path)->Root()), Describe(Read(Text)->Root()));
}

TEST(XmlSection, IsTheFirstOfItsNameInAContainerBelowTheRoot) {
  const auto reader = Read(Text, Path);
  ASSERT_NE(reader->Section(), nullptr);
  EXPECT_EQ(reader->Section()->Place().Line, 4U);
  EXPECT_EQ(reader->SectionChildren().size(), 4U);
  EXPECT_EQ(Read("<P><ProjectExtensions><DEPLOYMENT/></ProjectExtensions></P>", Path)
                ->Section()
                ->NodeName(),
            "DEPLOYMENT");
  EXPECT_EQ(Read("<P><projectextensions><Deployment/></projectextensions></P>", Path)->Section(),
            nullptr);
  EXPECT_EQ(
      Read("<P><a><ProjectExtensions><Deployment/></ProjectExtensions></a></P>", Path)->Section(),
      nullptr);
  EXPECT_EQ(Read(Text)->Section(), nullptr);
}

TEST(XmlSection, KnowsWhereItsChildrenStand) {
  const auto reader = Read(Text, Path);
  const TByteRange range = reader->SectionChildren()[2].Range;
  EXPECT_EQ(Text.substr(range.Start, range.End - range.Start), "<Empty/>");
  EXPECT_EQ(ChildAt(*reader->Section(), 2).Range().Start, range.Start);
}

TEST(XmlSection, LetsOneLookIntoOneChildAfterAnotherAndBack) {
  const auto reader = Read(Text, Path);
  TXmlElement& first = ChildAt(*reader->Section(), 0);
  TXmlElement& second = ChildAt(*reader->Section(), 1);
  const std::string content = "DeployFile[LocalName=a.dat](Platform[Name=Win32](X\"1\" Y[z=<]))";
  for (int round = 0; round < 3; ++round) {
    EXPECT_TRUE(first.HasChildren());
    EXPECT_EQ(Describe(first), content);
    EXPECT_EQ(Describe(second), "DeployFile[LocalName=b.dat]\"textmore\"(Platform[Name=OSX32])");
  }
  EXPECT_FALSE(ChildAt(*reader->Section(), 2).HasChildren());
}

TEST(XmlSection, KnowsTheLinesInsideItsChildren) {
  const auto reader = Read(Text, Path);
  TXmlElement& second = ChildAt(*reader->Section(), 1);
  EXPECT_EQ(second.Place().Line, 7U);
  EXPECT_EQ(second.FirstChild()->Place().Line, 7U);
}

TEST(XmlSection, KeepsItsOwnTextWhenItIsForgotten) {
  const auto reader = Read("<P><ProjectExtensions><Deployment><E/>a text</Deployment>"
                           "</ProjectExtensions></P>",
                           Path);
  reader->ForgetSection();
  EXPECT_EQ(reader->Section()->Text(), "a text");
}

TEST(XmlSection, IsReadAgainAfterItWasForgotten) {
  const auto reader = Read(Text, Path);
  const std::string before = Describe(reader->Root());
  Describe(*reader->Section());
  reader->ForgetSection();
  EXPECT_TRUE(reader->Section()->HasChildren());
  EXPECT_EQ(reader->Section()->GetAttribute("Version"), "2");
  EXPECT_EQ(Describe(reader->Root()), before);
  EXPECT_EQ(ChildAt(*reader->Section(), 3).Place().Line, 9U);
  reader->ForgetSection();
  EXPECT_EQ(Describe(reader->Root()), before);
}

TEST(XmlSection, IsReadAgainInItsOwnEncoding) {
  const std::string text =
      "<P><ProjectExtensions><Deployment>\n<e n=\"\xC3\xA4\"><f>\xC3\xB6</f></e></Deployment>"
      "</ProjectExtensions></P>";
  for (const auto encoding : {TXmlEncoding::Utf16LittleEndian, TXmlEncoding::Utf16BigEndian}) {
    const auto reader = Read(testing::Utf16(text, encoding), Path);
    reader->ForgetSection();
    EXPECT_EQ(Describe(*reader->Section()), "Deployment(e[n=\xC3\xA4](f\"\xC3\xB6\"))");
    EXPECT_EQ(reader->Section()->FirstChild()->FirstChild()->Place().Line, 2U);
  }
  const auto latin = Read("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><P><ProjectExtensions>"
                          "<Deployment><e>\xE4</e></Deployment></ProjectExtensions></P>",
                          Path);
  latin->ForgetSection();
  EXPECT_EQ(Describe(*latin->Section()), "Deployment(e\"\xC3\xA4\")");
}

TEST(XmlSection, IsReadAgainWithPrefixesDeclaredOutsideOfIt) {
  const auto reader = Read("<P xmlns:p=\"u\"><ProjectExtensions><Deployment><p:e p:x=\"1\"/>"
                           "</Deployment></ProjectExtensions></P>",
                           Path);
  reader->ForgetSection();
  EXPECT_EQ(Describe(*reader->Section()), "Deployment(p:e[p:x=1])");
}

TEST(XmlSection, WithoutChildrenStaysWithoutThemWhenForgotten) {
  const auto reader = Read("<P><ProjectExtensions><Deployment/></ProjectExtensions></P>", Path);
  reader->ForgetSection();
  EXPECT_FALSE(reader->Section()->HasChildren());
  EXPECT_EQ(reader->Section()->FirstChild(), nullptr);
}

TEST(XmlSection, CanBeEmptiedAndFilledInMemory) {
  const auto reader = Read(Text, Path);
  TXmlElement& first = ChildAt(*reader->Section(), 0);
  first.RemoveChildren();
  EXPECT_EQ(Describe(first), "DeployFile[LocalName=a.dat]");
  TXmlElement& second = ChildAt(*reader->Section(), 1);
  second.AddChild("New").SetText("n");
  EXPECT_EQ(Describe(second),
            "DeployFile[LocalName=b.dat]\"textmore\"(Platform[Name=OSX32] New\"n\")");
}

TEST(XmlSection, TakesTheFingerprintsOfItsChildrenFromTheBytes) {
  const auto reader = Read(Text, Path);
  const auto plain = Read(Text);
  TXmlElement* child = ChildAt(plain->Root(), 1).FirstChild()->FirstChild();
  for (const TSectionChild& section : reader->SectionChildren()) {
    EXPECT_EQ(section.Fingerprint, FingerprintOf(*child));
    child = child->NextSibling();
  }
  EXPECT_EQ(child, nullptr);
}

} // namespace
} // namespace workbench
