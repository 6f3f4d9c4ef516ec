#include "tests/workbench/xml/xml_fixture.h"

namespace workbench {
namespace {

using namespace std::string_literals;
using testing::ReadError;

std::string Malformed(unsigned line, const std::string& reason) {
  return "demo.vproj:" + std::to_string(line) + ": not well-formed XML: " + reason;
}

TEST(XmlReaderRefusals, NameTheEmptyFile) {
  EXPECT_EQ(ReadError(""), "demo.vproj:1: the file is empty");
  EXPECT_EQ(ReadError("\xEF\xBB\xBF"), "demo.vproj:1: the file is empty");
  EXPECT_EQ(ReadError(" \t\r\n"), "demo.vproj:1: the file is empty");
  EXPECT_EQ(ReadError("\xEF\xBB\xBF \n"), "demo.vproj:1: the file is empty");
}

TEST(XmlReaderRefusals, NameTheFileOfZeros) {
  EXPECT_EQ(ReadError(std::string(4096, '\0')),
            "demo.vproj:1: the file holds nothing but zero bytes");
}

TEST(XmlReaderRefusals, NameADocumentTypeDeclaration) {
  const std::string sentence = ": a document type declaration (DOCTYPE) is not allowed in such a "
                               "file";
  EXPECT_EQ(ReadError("<!DOCTYPE a><a/>"), "demo.vproj:1" + sentence);
  EXPECT_EQ(ReadError("<?xml version=\"1.0\"?>\n<!DOCTYPE a [\n<!ENTITY e \"x\">]>\n<a>&e;</a>"),
            "demo.vproj:2" + sentence);
  EXPECT_EQ(ReadError("\n<!DOCTYPE a SYSTEM \"file:///etc/passwd\"><a/>"),
            "demo.vproj:2" + sentence);
  EXPECT_EQ(ReadError("<!DOCTYPE a PUBLIC \"p\" \"http://localhost/x.dtd\"><a/>"),
            "demo.vproj:1" + sentence);
}

TEST(XmlReaderRefusals, NameWhatIsNotWellFormed) {
  EXPECT_EQ(ReadError("hello"), Malformed(1, "syntax error"));
  EXPECT_EQ(ReadError("<a>\n<b>\n"), Malformed(3, "no element found"));
  EXPECT_EQ(ReadError("<a>\n</b>"), Malformed(2, "mismatched tag"));
  EXPECT_EQ(ReadError("<a/>\n<b/>"), Malformed(2, "junk after document element"));
  EXPECT_EQ(ReadError("<a/>\ntext"), Malformed(2, "junk after document element"));
  EXPECT_EQ(ReadError("<a\n x=\"1\" x=\"2\"/>"), Malformed(2, "duplicate attribute"));
  EXPECT_EQ(ReadError("<a x=1/>"), Malformed(1, "not well-formed (invalid token)"));
  EXPECT_EQ(ReadError("<a>\n<!-- -- --></a>"), Malformed(2, "not well-formed (invalid token)"));
  EXPECT_EQ(ReadError("<a>&nbsp;</a>"), Malformed(1, "undefined entity"));
  EXPECT_EQ(ReadError("<a>\n<![CDATA[x"), Malformed(2, "unclosed CDATA section"));
  EXPECT_EQ(ReadError("<a x=\"<\"/>"), Malformed(1, "not well-formed (invalid token)"));
  EXPECT_EQ(ReadError("<a>\r<?xml version=\"1.0\"?></a>"),
            Malformed(2, "XML or text declaration not at start of entity"));
}

TEST(XmlReaderRefusals, NameCharactersThatXmlCannotHold) {
  EXPECT_EQ(ReadError("<a>&#0;</a>"), Malformed(1, "reference to invalid character number"));
  EXPECT_EQ(ReadError("<a>&#x1;</a>"), Malformed(1, "reference to invalid character number"));
  EXPECT_EQ(ReadError("<a>&#xFFFE;</a>"), Malformed(1, "reference to invalid character number"));
  EXPECT_EQ(ReadError("<a>\n\x01</a>"), Malformed(2, "not well-formed (invalid token)"));
  EXPECT_EQ(ReadError("<a>\xEF\xBF\xBE</a>"), Malformed(1, "not well-formed (invalid token)"));
  EXPECT_EQ(ReadError("<a>\0</a>"s), Malformed(1, "not well-formed (invalid token)"));
  EXPECT_EQ(ReadError("<a>\xC0\x80</a>"), Malformed(1, "not well-formed (invalid token)"));
  EXPECT_EQ(ReadError("<a>\xED\xA0\x80</a>"), Malformed(1, "not well-formed (invalid token)"));
}

TEST(XmlReaderRefusals, NameAnUndeclaredPrefix) {
  EXPECT_EQ(ReadError("<a>\n<p:b/></a>"), Malformed(2, "the prefix of \"p:b\" is not declared"));
  EXPECT_EQ(ReadError("<a p:x=\"\"/>"), Malformed(1, "the prefix of \"p:x\" is not declared"));
  EXPECT_EQ(ReadError("<a><b xmlns:p=\"u\"/>\n<p:c/></a>"),
            Malformed(2, "the prefix of \"p:c\" is not declared"));
}

TEST(XmlReaderRefusals, SpareDeclaredPrefixes) {
  EXPECT_EQ(ReadError("<p:a xmlns:p=\"u\" p:x=\"\"><b><p:c/></b></p:a>"), "no error");
  EXPECT_EQ(ReadError("<a xml:space=\"preserve\" xmlns=\"u\"/>"), "no error");
  EXPECT_EQ(ReadError("<a><b xmlns:p=\"u\"><p:c/></b><b xmlns:p=\"v\" p:x=\"\"/></a>"), "no error");
}

TEST(XmlReaderRefusals, SeeUndeclaredPrefixesInsideTheSection) {
  EXPECT_THROW(testing::Read("<P><C><S><e><p:x/></e></S></C></P>", {"C", "S"}),
               deployment::TInputError);
  EXPECT_NO_THROW(
      testing::Read("<P xmlns:p=\"u\"><C><S><e><p:x p:y=\"\"/></e></S></C></P>", {"C", "S"}));
}

std::string Sample() {
  std::string text = "<?xml version=\"1.0\" encoding=\"utf-8\"?>\r\n<Project>\r\n"
                     "  <!-- \xC3\xA4 -->\r\n  <ProjectExtensions><Deployment Version=\"2\">\r\n";
  for (int i = 0; text.size() < 4000; ++i)
    text += "    <DeployFile LocalName=\"d" + std::to_string(i) +
            "&amp;.dat\"><Platform Name='Win32'><![CDATA[<\xE2\x82\xAC>]]></Platform>"
            "</DeployFile>\r\n";
  return text + "  </Deployment></ProjectExtensions></Project>\r\n";
}

TEST(XmlReaderRefusals, CoverATextThatWasCutAnywhere) {
  const std::string text = Sample();
  const std::size_t rootEnd = text.size() - 2;
  for (std::size_t length = 0; length <= text.size(); ++length) {
    const std::string error = ReadError(text.substr(0, length));
    if (length >= rootEnd)
      ASSERT_EQ(error, "no error") << length;
    else if (length > 41)
      ASSERT_TRUE(error.find(": not well-formed XML: ") != std::string::npos) << length << error;
    else
      ASSERT_NE(error, "no error") << length;
  }
}

TEST(XmlReaderRefusals, CoverUtf16ThatWasCutAnywhere) {
  const std::string text = testing::Utf16("<a>\n<b x=\"\xC3\xA4\">\xF0\x9F\x98\x80</b>\n</a>",
                                          TXmlEncoding::Utf16BigEndian);
  for (std::size_t length = 0; length < text.size(); ++length)
    ASSERT_NE(ReadError(std::string_view(text).substr(0, length)), "no error") << length;
  EXPECT_EQ(ReadError(text), "no error");
}

} // namespace
} // namespace workbench
