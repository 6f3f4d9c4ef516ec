#include "tests/workbench/xml/xml_fixture.h"

#include <chrono>

namespace workbench {
namespace {

using testing::Read;
using testing::ReadError;

std::string Nested(int levels) {
  std::string text;
  for (int i = 0; i < levels; ++i)
    text += "<a>\n";
  for (int i = 0; i < levels; ++i)
    text += "</a>";
  return text;
}

std::string WithAttributes(int count) {
  std::string text = "<root>\n<a";
  for (int i = 0; i < count; ++i)
    text += " a" + std::to_string(i) + "=\"\"";
  return text + "/></root>";
}

TEST(XmlLimits, AllowADepthOf256) {
  EXPECT_EQ(ReadError(Nested(256)), "no error");
  EXPECT_EQ(ReadError(Nested(257)), "demo.vproj:257: elements are nested deeper than 256 levels");
  EXPECT_EQ(ReadError(Nested(1'000'000)),
            "demo.vproj:257: elements are nested deeper than 256 levels");
}

TEST(XmlLimits, CountTheDepthInsideTheSectionToo) {
  const std::string inside = "<Project><C><S>" + Nested(253) + "</S></C></Project>";
  EXPECT_NO_THROW(Read(inside, {"C", "S"}));
  const std::string beyond = "<Project><C><S>" + Nested(254) + "</S></C></Project>";
  EXPECT_THROW(Read(beyond, {"C", "S"}), deployment::TInputError);
}

TEST(XmlLimits, Allow1024AttributesOfOneElement) {
  EXPECT_EQ(ReadError(WithAttributes(1024)), "no error");
  EXPECT_EQ(ReadError(WithAttributes(1025)),
            "demo.vproj:2: element \"a\" has more than 1024 attributes");
  EXPECT_EQ(ReadError(WithAttributes(200'000)),
            "demo.vproj:2: element \"a\" has more than 1024 attributes");
}

TEST(XmlLimits, HoldNoNumberOfPrefixesAgainstTheReader) {
  std::string text = "<root";
  for (int i = 0; i < 1000; ++i)
    text += " xmlns:p" + std::to_string(i) + "=\"u\"";
  text += ">";
  for (int level = 0; level < 60; ++level) {
    text += "<a";
    for (int i = 0; i < 1000; ++i)
      text += " xmlns:q" + std::to_string(level) + "-" + std::to_string(i) + "=\"u\"";
    text += ">";
  }
  for (int i = 0; i < 20'000; ++i)
    text += "<p0:x/>";
  for (int level = 0; level < 60; ++level)
    text += "</a>";
  const auto start = std::chrono::steady_clock::now();
  EXPECT_EQ(ReadError(text + "<p1:x/></root>"), "no error");
  EXPECT_TRUE(ReadError(text + "<q0-0:x/></root>").ends_with("\"q0-0:x\" is not declared"));
  EXPECT_LT(std::chrono::steady_clock::now() - start, std::chrono::seconds(5));
}

TEST(XmlLimits, AllowNamesOf50000Bytes) {
  const std::string longest(50'000, 'n');
  const std::string tooLong(50'001, 'n');
  EXPECT_EQ(ReadError("<" + longest + " " + longest + "=\"\"/>"), "no error");
  EXPECT_EQ(ReadError("<a>\n<" + tooLong + "/></a>"),
            "demo.vproj:2: an element's name is longer than 50000 bytes");
  EXPECT_EQ(ReadError("<a " + tooLong + "=\"\"/>"),
            "demo.vproj:1: an attribute's name is longer than 50000 bytes");
}

TEST(XmlLimits, AllowAttributeValuesOf10MiB) {
  const std::string longest(std::size_t{10} * 1024 * 1024, 'v');
  EXPECT_EQ(ReadError("<a x=\"" + longest + "\"/>"), "no error");
  EXPECT_EQ(ReadError("<a x=\"1\" y=\"" + longest + "v\"/>"),
            "demo.vproj:1: attribute \"y\" is longer than 10485760 bytes");
}

TEST(XmlLimits, ShortenTheNameInTheMessage) {
  TXmlLimits limits;
  limits.Attributes = 0;
  EXPECT_EQ(ReadError("<" + std::string(1000, 'n') + " x=\"\"/>", limits),
            "demo.vproj:1: element \"" + std::string(80, 'n') + "...\" has more than 0 attributes");
}

TEST(XmlLimits, RefuseALargeInputBeforeItIsRead) {
  TXmlLimits limits;
  limits.Bytes = 10;
  EXPECT_EQ(ReadError("<a>123</a>", limits), "no error");
  EXPECT_EQ(ReadError("<a>123456789</a>", limits),
            "demo.vproj:0: the file is larger than 10 bytes");
  bool filled = false;
  const auto read = [&] {
    const TXmlReader reader(
        [&](const std::function<char*(std::size_t)>& reserve) -> std::size_t {
          reserve(std::size_t{1} << 40);
          filled = true;
          return 0;
        },
        "demo.vproj");
  };
  EXPECT_THROW(read(), deployment::TInputError);
  EXPECT_FALSE(filled);
}

} // namespace
} // namespace workbench
