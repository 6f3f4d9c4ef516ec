#include "tests/workbench/xml/xml_fixture.h"

namespace workbench {
namespace {

using testing::Describe;
using testing::Read;
using testing::ReadError;
using testing::Utf16;

constexpr std::string_view Umlaut = "\xC3\xA4";

TEST(XmlReaderEncoding, IsUtf8WhenNothingIsSaid) {
  const auto reader = Read("<a>\xC3\xA4</a>");
  EXPECT_EQ(reader->Encoding(), TXmlEncoding::Utf8);
  EXPECT_EQ(reader->Root().Text(), Umlaut);
}

TEST(XmlReaderEncoding, TakesAByteOrderMarkOfUtf8) {
  const auto reader = Read("\xEF\xBB\xBF<?xml version=\"1.0\" encoding=\"utf-8\"?><a>\xC3\xA4</a>");
  EXPECT_EQ(reader->Encoding(), TXmlEncoding::Utf8);
  EXPECT_EQ(reader->Root().Text(), Umlaut);
  EXPECT_EQ(reader->Root().Range().Start, 41U);
}

TEST(XmlReaderEncoding, IsUtf16ByItsByteOrderMark) {
  for (const auto encoding : {TXmlEncoding::Utf16LittleEndian, TXmlEncoding::Utf16BigEndian}) {
    const auto reader =
        Read(Utf16("<?xml version=\"1.0\" encoding=\"utf-16\"?><a \xC3\xA4=\"x\">\xF0\x9F\x98\x80"
                   "</a>",
                   encoding));
    EXPECT_EQ(reader->Encoding(), encoding);
    EXPECT_EQ(Describe(reader->Root()), "a[\xC3\xA4=x]\"\xF0\x9F\x98\x80\"");
    EXPECT_EQ(reader->Root().Range().Start, 2U + 2 * 39);
  }
}

TEST(XmlReaderEncoding, IsLatin1OrAsciiByItsDeclaration) {
  const auto latin = Read("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><a>\xE4</a>");
  EXPECT_EQ(latin->Encoding(), TXmlEncoding::Latin1);
  EXPECT_EQ(latin->Root().Text(), Umlaut);
  const auto ascii = Read("<?xml version=\"1.0\" encoding=\"us-ascii\"?><a>&#xE4;</a>");
  EXPECT_EQ(ascii->Encoding(), TXmlEncoding::Ascii);
  EXPECT_EQ(ascii->Root().Text(), Umlaut);
}

TEST(XmlReaderEncoding, ChangesNothingAboutTheLettersOfNames) {
  constexpr std::string_view Refused =
      "demo.vproj:1: not well-formed XML: not well-formed (invalid token)";
  for (const std::string letter : {"\xC2\xAA", "\xC2\xB5", "\xC2\xBA"}) {
    for (const std::string& text : {"<a " + letter + "='1'/>", "<a><b" + letter + "/></a>"}) {
      EXPECT_EQ(ReadError(text), Refused);
      EXPECT_EQ(ReadError(Utf16(text, TXmlEncoding::Utf16LittleEndian)), Refused);
    }
    EXPECT_EQ(
        ReadError("<?xml version=\"1.0\" encoding=\"iso-8859-1\"?><" + letter.substr(1) + "/>"),
        Refused);
  }
  EXPECT_EQ(Describe(Read(Utf16("<a>\xC2\xBA</a>", TXmlEncoding::Utf16LittleEndian))->Root()),
            "a\"\xC2\xBA\"");
}

TEST(XmlReaderEncoding, ThatIsNotKnownIsRefused) {
  EXPECT_EQ(ReadError("<?xml version=\"1.0\" encoding=\"x-klingon\"?><a/>"),
            "demo.vproj:1: not well-formed XML: unknown encoding (the file declares "
            "\"x-klingon\")");
}

TEST(XmlReaderEncoding, ThatContradictsTheBytesIsRefused) {
  EXPECT_EQ(ReadError("<?xml version=\"1.0\" encoding=\"utf-16\"?><a/>"),
            "demo.vproj:1: not well-formed XML: encoding specified in XML declaration is incorrect "
            "(the file declares \"utf-16\")");
  EXPECT_EQ(ReadError(Utf16("<?xml version=\"1.0\" encoding=\"utf-8\"?><a/>",
                            TXmlEncoding::Utf16LittleEndian)),
            "demo.vproj:1: not well-formed XML: encoding specified in XML declaration is incorrect "
            "(the file declares \"utf-8\")");
}

TEST(XmlReaderEncoding, RefusesBytesThatAreNotOfIt) {
  EXPECT_EQ(ReadError("<a>\n\xE4</a>"),
            "demo.vproj:2: not well-formed XML: not well-formed (invalid token)");
  EXPECT_EQ(ReadError("<?xml version=\"1.0\" encoding=\"us-ascii\"?>\n<a>\xC3\xA4</a>"),
            "demo.vproj:2: not well-formed XML: not well-formed (invalid token)");
}

// The document, with the character behind "<a>" and a line end replaced by one unit or two.
std::string WithUnits(TXmlEncoding encoding, std::initializer_list<unsigned> units) {
  const bool little = encoding == TXmlEncoding::Utf16LittleEndian;
  std::string text = Utf16("<a>\n", encoding);
  for (const unsigned unit : units) {
    text += static_cast<char>(little ? unit & 0xFFU : unit >> 8U);
    text += static_cast<char>(little ? unit >> 8U : unit & 0xFFU);
  }
  return text + Utf16("b</a>", encoding).substr(2);
}

TEST(XmlReaderEncoding, RefusesHalvesOfCharacters) {
  constexpr const char* Half =
      "demo.vproj:2: not well-formed XML: half of a character (a surrogate without its other one)";
  for (const auto encoding : {TXmlEncoding::Utf16LittleEndian, TXmlEncoding::Utf16BigEndian}) {
    EXPECT_EQ(ReadError(WithUnits(encoding, {0xD800})), Half);
    EXPECT_EQ(ReadError(WithUnits(encoding, {0xDC00})), Half);
    EXPECT_EQ(ReadError(WithUnits(encoding, {0xDE00, 0xD83D})), Half);
    EXPECT_EQ(ReadError(WithUnits(encoding, {0xD83D, 0xD83D, 0xDE00})), Half);
    EXPECT_EQ(Read(WithUnits(encoding, {0xD83D, 0xDE00}))->Root().Text(), "\n\xF0\x9F\x98\x80"
                                                                          "b");
  }
}

TEST(XmlReaderEncoding, CanBeChosenByName) {
  for (const auto encoding :
       {TXmlEncoding::Utf8, TXmlEncoding::Latin1, TXmlEncoding::Utf16LittleEndian}) {
    TXmlParser parser(EncodingName(encoding));
    const std::string bytes = EncodeMarkup("<a>\xC3\xA4</a>", encoding);
    bytes.copy(parser.Reserve(bytes.size()), bytes.size());
    TXmlTree tree("demo.vproj");
    TXmlSection section;
    TXmlTreeBuilder builder(tree, {}, {}, section);
    parser.Parse(tree, builder, bytes.size());
    EXPECT_EQ(tree.Root()->Text(), Umlaut);
  }
}

} // namespace
} // namespace workbench
