#include "tests/workbench/xml/xml_fixture.h"
#include "workbench/xml/short_text.h"
#include "workbench/xml/xml_text.h"
#include "workbench/xml/xml_writer.h"

namespace workbench {
namespace {

using namespace std::string_literals;

std::string AsText(std::string_view text) {
  std::string markup;
  AppendXmlText(markup, text);
  return markup;
}

std::string AsValue(std::string_view text) {
  std::string markup;
  AppendXmlAttributeValue(markup, text);
  return markup;
}

std::string RefusalOf(std::string_view text) {
  try {
    AsText(text);
  } catch (const deployment::TInputError& error) {
    return error.what();
  }
  return "no error";
}

TEST(XmlText, EscapesMarkupAndLineEnds) {
  EXPECT_EQ(AsText("a<b>&\"'\t]]>\r\n\xC3\xA4\xF0\x9F\x98\x80"),
            "a&lt;b&gt;&amp;\"'\t]]&gt;&#xD;&#xA;\xC3\xA4\xF0\x9F\x98\x80");
  EXPECT_EQ(AsValue("a<b>&\"'\t\r\n"), "a&lt;b&gt;&amp;&quot;'&#x9;&#xD;&#xA;");
  EXPECT_EQ(AsText(""), "");
}

TEST(XmlText, RefusesControlCharactersAndNonCharacters) {
  EXPECT_EQ(RefusalOf("a\x01"), "the text \"a\x01\" holds characters that an XML file cannot hold");
  EXPECT_NE(RefusalOf("\0"s), "no error");
  EXPECT_NE(RefusalOf("\x1F"), "no error");
  EXPECT_NE(RefusalOf("\xEF\xBF\xBE"), "no error");
  EXPECT_NE(RefusalOf("\xEF\xBF\xBF"), "no error");
  EXPECT_EQ(RefusalOf("\x7F\xEF\xBF\xBD"), "no error");
}

TEST(XmlText, RefusesBytesThatAreNotUtf8) {
  for (const char* text : {"\xE4", "\x80", "\xC0\x80", "\xC3", "\xC3(", "\xE2\x82", "\xED\xA0\x80",
                           "\xE0\x80\xAF", "\xF0\x80\x80\x80", "\xF4\x90\x80\x80", "\xF8\x88"})
    EXPECT_NE(RefusalOf(text), "no error") << text;
  for (const char* text : {"\xC2\x80", "\xE0\xA0\x80", "\xED\x9F\xBF", "\xEE\x80\x80",
                           "\xF0\x90\x80\x80", "\xF4\x8F\xBF\xBF"})
    EXPECT_EQ(RefusalOf(text), "no error") << text;
}

TEST(ShortText, CutsBetweenCharacters) {
  EXPECT_EQ(ShortText("short"), "short");
  EXPECT_EQ(ShortText("12345", 5), "12345");
  EXPECT_EQ(ShortText("123456", 5), "12345...");
  EXPECT_EQ(ShortText("1234\xC3\xA4", 5), "1234...");
}

std::string Written(std::string_view text, const TXmlLayout& layout, std::string_view indentation) {
  const auto reader = testing::Read(text);
  std::string markup;
  AppendXmlElement(markup, reader->Root(), layout, indentation);
  return markup;
}

TEST(XmlWriter, LaysElementsOutOneBelowAnother) {
  EXPECT_EQ(Written("<a x='\"'><b><c>t</c><d/></b><e></e></a>", {"\r\n", "\t"}, " "),
            "<a x=\"&quot;\">\r\n \t<b>\r\n \t\t<c>t</c>\r\n \t\t<d/>\r\n \t</b>\r\n \t<e/>\r\n "
            "</a>");
}

TEST(XmlWriter, WritesOneLineWithoutLineEnds) {
  EXPECT_EQ(Written("<a>\n<b>\n<c>t</c></b><d/></a>", {"", "  "}, ""),
            "<a><b><c>t</c></b><d/></a>");
}

TEST(XmlWriter, WritesTextBeforeChildren) {
  EXPECT_EQ(Written("<a>t<b/>u</a>", {"", ""}, ""), "<a>tu<b/></a>");
}

TEST(XmlWriter, WritesWhatReadsTheSame) {
  const std::string text = "<a x=\"&#xD;&#xA;&#x9;&lt;\">&#xD;&#xA;<b> &amp; </b></a>";
  EXPECT_EQ(testing::DescribeText(Written(text, {"", ""}, "")), testing::DescribeText(text));
}

} // namespace
} // namespace workbench
