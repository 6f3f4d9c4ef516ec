#include "tests/workbench/xml/xml_fixture.h"
#include "workbench/xml/xml_fingerprint.h"

#include <array>
#include <set>

namespace workbench {
namespace {

std::uint64_t Fingerprint(std::string_view text) {
  return FingerprintOf(testing::Read(text)->Root());
}

TEST(XmlFingerprint, IsTheSameWhateverTheLayout) {
  EXPECT_EQ(Fingerprint("<a x=\"1\"><b>t</b><c/></a>"),
            Fingerprint("<a  x='1' >\r\n\t<!-- c --><b ><![CDATA[t]]></b >\n<c></c>\n</a>"));
}

TEST(XmlFingerprint, IsTheSameWhateverTheOrderOfAttributes) {
  EXPECT_EQ(Fingerprint("<a x=\"1\" y=\"2\" z=\"3\"/>"),
            Fingerprint("<a z=\"3\" x=\"1\" y=\"2\"/>"));
}

TEST(XmlFingerprint, IsTheSameForEntitiesAndCharacters) {
  EXPECT_EQ(Fingerprint("<a x=\"&#65;\">&#xE4;</a>"), Fingerprint("<a x=\"A\">\xC3\xA4</a>"));
}

TEST(XmlFingerprint, DiffersForEachKindOfDifference) {
  constexpr std::array Texts{
      "<a/>",
      "<A/>",
      "<a>t</a>",
      "<a>u</a>",
      "<a>t </a>",
      "<a x=\"\"/>",
      "<a x=\"t\"/>",
      "<a y=\"t\"/>",
      "<a t=\"x\"/>",
      "<a x=\"1\" y=\"2\"/>",
      "<a x=\"2\" y=\"1\"/>",
      "<a><b/></a>",
      "<a><b/><b/></a>",
      "<a><b/><c/></a>",
      "<a><c/><b/></a>",
      "<a><b><c/></b></a>",
      "<a><b/>t</a>",
      "<a><b>t</b></a>",
      "<a><b x=\"\"/></a>",
      "<a><b>t</b><c/></a>",
      "<a><b/><c>t</c></a>",
      "<a x=\"t\"><b/></a>",
      "<a><b x=\"t\"/></a>",
  };
  std::set<std::uint64_t> values;
  for (const char* text : Texts)
    EXPECT_TRUE(values.insert(Fingerprint(text)).second) << text;
}

TEST(XmlFingerprint, OfAnElementMadeInMemoryIsThatOfTheSameInAFile) {
  TXmlTree tree("demo.vproj");
  TXmlElement& root = tree.MakeRoot("a");
  root.SetAttribute("x", "1");
  root.SetText("text");
  root.AddChild("b").SetText("\xC3\xA4");
  EXPECT_EQ(FingerprintOf(root), Fingerprint("<a x='1'>text<b>&#xE4;</b></a>"));
}

} // namespace
} // namespace workbench
