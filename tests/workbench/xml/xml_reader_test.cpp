#include "tests/support/sanitized.h"
#include "tests/workbench/xml/xml_fixture.h"

namespace workbench {
namespace {

using testing::DescribeText;
using testing::Read;

TEST(XmlReader, ReadsElementsAttributesAndTextInOrder) {
  EXPECT_EQ(DescribeText("<a y=\"1\" x='2'><b/><c>text</c><b z=\"\"/></a>"),
            "a[y=1][x=2](b c\"text\" b[z=])");
}

TEST(XmlReader, ResolvesEntitiesAndCharacterReferences) {
  EXPECT_EQ(DescribeText("<a x=\"&lt;&amp;&quot;&#xE4;\">&gt;&apos;&#65;&#x1F600;</a>"),
            "a[x=<&\"\xC3\xA4]\">'A\xF0\x9F\x98\x80\"");
}

TEST(XmlReader, TakesCDataAsText) {
  EXPECT_EQ(DescribeText("<a>1<![CDATA[<b>&amp;</b>]]>2</a>"), "a\"1<b>&amp;</b>2\"");
}

TEST(XmlReader, LeavesCommentsAndInstructionsOut) {
  EXPECT_EQ(DescribeText("<?pi x?><!-- c --><a>1<!-- no -->2<?pi?>3<b/></a><!-- end -->"),
            "a\"123\"(b)");
}

TEST(XmlReader, JoinsTextAroundChildren) {
  EXPECT_EQ(DescribeText("<a>one<b/>two<c>inner</c>three</a>"), "a\"onetwothree\"(b c\"inner\")");
}

TEST(XmlReader, DropsBlankTextAroundChildrenOnly) {
  EXPECT_EQ(DescribeText("<a>\n\t<b>  </b> x <c/>\r\n</a>"), "a\" x \"(b\"  \" c)");
}

TEST(XmlReader, UnifiesLineEndsInTextAndBlanksInAttributes) {
  EXPECT_EQ(DescribeText("<a x=\"1\r\n2\t3\">4\r\n5\r6\n7&#xD;&#xA;8</a>"),
            "a[x=1 2 3]\"4\n5\n6\n7\r\n8\"");
}

TEST(XmlReader, KnowsWhereElementsStandInTheBytes) {
  const std::string text = "<?xml version=\"1.0\"?><a>\n  <b x=\"1\" >t</b >\n  <c /><d></d></a>";
  const auto reader = Read(text);
  const auto bytesOf = [&](const TXmlElement& element) {
    return text.substr(element.Range().Start, element.Range().End - element.Range().Start);
  };
  TXmlElement& b = *reader->Root().FirstChild();
  TXmlElement& c = *b.NextSibling();
  TXmlElement& d = *c.NextSibling();
  EXPECT_EQ(bytesOf(reader->Root()), text.substr(21));
  EXPECT_EQ(bytesOf(b), "<b x=\"1\" >t</b >");
  EXPECT_EQ(text.substr(b.ContentStart(), 5), "t</b ");
  EXPECT_EQ(bytesOf(c), "<c />");
  EXPECT_FALSE(c.HasEndTag());
  EXPECT_EQ(bytesOf(d), "<d></d>");
  EXPECT_TRUE(d.HasEndTag());
  EXPECT_TRUE(d.StandsInSource());
}

TEST(XmlReader, TellsTheParentAndTheNextSibling) {
  const auto reader = Read("<a><b/><c/></a>");
  TXmlElement& b = *reader->Root().FirstChild();
  EXPECT_EQ(reader->Root().Parent(), nullptr);
  EXPECT_EQ(reader->Root().NextSibling(), nullptr);
  EXPECT_EQ(b.Parent(), &reader->Root());
  EXPECT_EQ(b.NextSibling()->NodeName(), "c");
  EXPECT_EQ(b.NextSibling()->NextSibling(), nullptr);
  EXPECT_TRUE(reader->Root().HasChildren());
  EXPECT_FALSE(b.HasChildren());
}

TEST(XmlReader, AnswersNothingForAnAbsentAttribute) {
  const auto reader = Read("<a x=\"\" y=\"1\"/>");
  EXPECT_EQ(reader->Root().GetAttribute("x"), "");
  EXPECT_EQ(reader->Root().GetAttribute("y"), "1");
  EXPECT_EQ(reader->Root().GetAttribute("X"), std::nullopt);
}

class XmlReaderLines : public ::testing::TestWithParam<std::string> {};

TEST_P(XmlReaderLines, AreCountedFromOne) {
  const std::string& end = GetParam();
  const auto reader = Read("<a>" + end + end + "<b/>" + end + "<c" + end + "/><d/></a>");
  TXmlElement* child = reader->Root().FirstChild();
  EXPECT_EQ(reader->Root().Place().Line, 1U);
  EXPECT_EQ(reader->Root().Place().File, "demo.vproj");
  EXPECT_EQ(child->Place().Line, 3U);
  child = child->NextSibling();
  EXPECT_EQ(child->Place().Line, 4U);
  EXPECT_EQ(child->NextSibling()->Place().Line, 5U);
}

TEST_P(XmlReaderLines, AreCountedInUtf16) {
  const std::string& end = GetParam();
  for (const auto encoding : {TXmlEncoding::Utf16LittleEndian, TXmlEncoding::Utf16BigEndian}) {
    const auto reader = Read(testing::Utf16("<a>" + end + end + "<b/></a>", encoding));
    EXPECT_EQ(reader->Root().FirstChild()->Place().Line, 3U);
  }
}

TEST_P(XmlReaderLines, AreCountedOverManyBlocks) {
  const std::string& end = GetParam();
  std::string text = "<a>";
  constexpr unsigned Children = testing_support::IsSanitized ? 4'000 : 20'000; // 16 KiB at least
  for (unsigned i = 0; i < Children; ++i)
    text += "<b/>" + end;
  const auto reader = Read(text + "</a>");
  unsigned line = 1;
  for (TXmlElement* child = reader->Root().FirstChild(); child; child = child->NextSibling())
    ASSERT_EQ(child->Place().Line, line++);
  EXPECT_EQ(line, Children + 1);
}

INSTANTIATE_TEST_SUITE_P(Ends, XmlReaderLines, ::testing::Values("\n", "\r\n", "\r"),
                         [](const auto& test) {
                           return test.param == "\n" ? "LF" : test.param == "\r" ? "CR" : "CRLF";
                         });

TEST(XmlReader, CountsMixedLineEndsOnceEach) {
  const auto reader = Read("<a>\n\r\n\r<b/></a>");
  EXPECT_EQ(reader->Root().FirstChild()->Place().Line, 4U);
}

TEST(XmlReader, AsksTheInputForMemoryAndTakesWhatWasFilled) {
  const TXmlReader reader(
      [](const std::function<char*(std::size_t)>& reserve) {
        char* memory = reserve(100); // a file that shrank since its size was asked for
        const std::string_view text = "<a/>";
        text.copy(memory, text.size());
        return text.size();
      },
      "demo.vproj");
  EXPECT_EQ(reader.Bytes(), "<a/>");
}

} // namespace
} // namespace workbench
