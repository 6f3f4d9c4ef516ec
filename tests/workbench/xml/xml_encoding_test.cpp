#include "workbench/xml/xml_encoding.h"

#include <gtest/gtest.h>

namespace workbench {
namespace {

using namespace std::string_literals;
using namespace std::string_view_literals;

const std::string Markup = "<a>\xC3\xA4\xE2\x82\xAC\xF0\x9F\x98\x80</a>"; // a-umlaut, euro, face

TEST(XmlEncoding, LeavesUtf8AsItIs) {
  EXPECT_EQ(EncodeMarkup(Markup, TXmlEncoding::Utf8), Markup);
}

TEST(XmlEncoding, WritesUtf16InBothByteOrders) {
  EXPECT_EQ(EncodeMarkup(Markup, TXmlEncoding::Utf16LittleEndian),
            "<\0a\0>\0\xE4\0\xAC\x20\x3D\xD8\x00\xDE<\0/\0a\0>\0"s);
  EXPECT_EQ(EncodeMarkup(Markup, TXmlEncoding::Utf16BigEndian),
            "\0<\0a\0>\0\xE4\x20\xAC\xD8\x3D\xDE\x00\0<\0/\0a\0>"s);
}

TEST(XmlEncoding, WritesCharactersOutsideOfItAsReferences) {
  EXPECT_EQ(EncodeMarkup(Markup, TXmlEncoding::Latin1), "<a>\xE4&#8364;&#128512;</a>");
  EXPECT_EQ(EncodeMarkup(Markup, TXmlEncoding::Ascii), "<a>&#228;&#8364;&#128512;</a>");
}

TEST(XmlEncoding, IsFoundByByteOrderMarkThenByZerosThenByDeclaration) {
  EXPECT_EQ(DetectEncoding("\xFF\xFE<\0"sv, "utf-16"), TXmlEncoding::Utf16LittleEndian);
  EXPECT_EQ(DetectEncoding("\xFE\xFF\0<"sv, "utf-16"), TXmlEncoding::Utf16BigEndian);
  EXPECT_EQ(DetectEncoding("<\0?\0"sv, ""), TXmlEncoding::Utf16LittleEndian);
  EXPECT_EQ(DetectEncoding("\0<\0?"sv, ""), TXmlEncoding::Utf16BigEndian);
  EXPECT_EQ(DetectEncoding("\n\0<\0"sv, ""), TXmlEncoding::Utf16LittleEndian);
  EXPECT_EQ(DetectEncoding("\0 \0<"sv, ""), TXmlEncoding::Utf16BigEndian);
  EXPECT_EQ(DetectEncoding("<?xml", "ISO-8859-1"), TXmlEncoding::Latin1);
  EXPECT_EQ(DetectEncoding("<?xml", "us-ascii"), TXmlEncoding::Ascii);
  EXPECT_EQ(DetectEncoding("<?xml", "UTF-8"), TXmlEncoding::Utf8);
  EXPECT_EQ(DetectEncoding("", ""), TXmlEncoding::Utf8);
}

TEST(XmlEncoding, HasANameForTheParser) {
  EXPECT_STREQ(EncodingName(TXmlEncoding::Utf8), "UTF-8");
  EXPECT_STREQ(EncodingName(TXmlEncoding::Utf16LittleEndian), "UTF-16LE");
  EXPECT_STREQ(EncodingName(TXmlEncoding::Utf16BigEndian), "UTF-16BE");
  EXPECT_STREQ(EncodingName(TXmlEncoding::Latin1), "ISO-8859-1");
  EXPECT_STREQ(EncodingName(TXmlEncoding::Ascii), "US-ASCII");
}

} // namespace
} // namespace workbench
