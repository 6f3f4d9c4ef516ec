#include "tests/workbench/project/document_fixture.h"

namespace workbench {
namespace {

using testing::Edited;
using testing::TSectionModel;

const std::string Utf8Text = "<Project>\r\n  <ProjectExtensions>\r\n    <Deployment Version=\"2\">"
                             "\r\n      <E N=\"\xC3\xA4\"/>\r\n    </Deployment>\r\n"
                             "  </ProjectExtensions>\r\n</Project>\r\n";
const std::string Euro = "\xE2\x82\xAC";

std::string WithEuro(const std::string& bytes) {
  return Edited(bytes, [](TSectionModel& model) { model.Entries.push_back({Euro, Euro}); });
}

const std::string Added = "\r\n      <E N=\"\xE2\x82\xAC\">\r\n        <T>\xE2\x82\xAC</T>\r\n"
                          "      </E>";

TEST(DocumentEncoding, StaysUtf16) {
  for (const auto encoding : {TXmlEncoding::Utf16LittleEndian, TXmlEncoding::Utf16BigEndian}) {
    const bool little = encoding == TXmlEncoding::Utf16LittleEndian;
    const std::string mark = little ? "\xFF\xFE" : "\xFE\xFF";
    const std::string entry = "<E N=\"\xC3\xA4\"/>";
    EXPECT_EQ(WithEuro(mark + EncodeMarkup(Utf8Text, encoding)),
              mark + EncodeMarkup(testing::Replaced(Utf8Text, entry, entry + Added), encoding));
  }
}

TEST(DocumentEncoding, StaysLatin1WithReferencesForOtherCharacters) {
  const std::string head = "<?xml version=\"1.0\" encoding=\"iso-8859-1\"?>\r\n";
  const std::string bytes = head + EncodeMarkup(Utf8Text, TXmlEncoding::Latin1);
  EXPECT_EQ(WithEuro(bytes),
            testing::Replaced(bytes, "<E N=\"\xE4\"/>",
                              "<E N=\"\xE4\"/>\r\n      <E N=\"&#8364;\">\r\n        "
                              "<T>&#8364;</T>\r\n      </E>"));
}

TEST(DocumentEncoding, StaysAscii) {
  const std::string bytes = "<?xml version=\"1.0\" encoding=\"us-ascii\"?><Project/>";
  EXPECT_EQ(Edited(bytes,
                   [](TSectionModel& model) {
                     model = {"2", {{"\xC3\xA4", ""}}};
                   }),
            "<?xml version=\"1.0\" encoding=\"us-ascii\"?><Project><ProjectExtensions><Deployment "
            "Version=\"2\"><E N=\"&#228;\"/></Deployment></ProjectExtensions></Project>");
}

TEST(DocumentEncoding, KeepsTheByteOrderMarkOfUtf8) {
  const std::string bytes = "\xEF\xBB\xBF" + Utf8Text;
  EXPECT_EQ(WithEuro(bytes),
            testing::Replaced(bytes, "<E N=\"\xC3\xA4\"/>", "<E N=\"\xC3\xA4\"/>" + Added));
}

TEST(DocumentEncoding, ChangesOnlyBytesOfTheSectionInUtf16) {
  const auto encoding = TXmlEncoding::Utf16LittleEndian;
  TProjectDocument document("\xFF\xFE" + EncodeMarkup("<Project/>", encoding), "demo.vproj",
                            "Deployment");
  document.AddImport(Euro, "");
  document.SetBaseProperty("Name", Euro);
  const auto composed = testing::Compose(document, {});
  EXPECT_EQ(composed,
            "\xFF\xFE" + EncodeMarkup("<Project><PropertyGroup><Name>\xE2\x82\xAC</Name>"
                                      "</PropertyGroup><ProjectExtensions><Deployment "
                                      "Version=\"2\"/></ProjectExtensions><Import "
                                      "Project=\"\xE2\x82\xAC\" Condition=\"\"/></Project>",
                                      encoding));
}

} // namespace
} // namespace workbench
