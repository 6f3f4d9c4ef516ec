#include "tests/workbench/xml/xml_fixture.h"
#include "workbench/xml/source_text.h"

namespace workbench {
namespace {

// A document and the view of its bytes, in one of the encodings.
class SourceText : public ::testing::TestWithParam<TXmlEncoding> {
protected:
  void Load(std::string_view text) {
    const bool wide = GetParam() != TXmlEncoding::Utf8;
    FReader = testing::Read(wide ? testing::Utf16(text, GetParam()) : std::string(text));
    FUnit = wide ? 2 : 1;
    FMark = wide ? 2 : 0;
    FText = text;
    FSource.emplace(FReader->Bytes(), FReader->Encoding());
  }
  /// Byte offset of a character, given by its place in the (ASCII) text.
  std::uint32_t At(std::size_t character) const {
    return FMark + FUnit * static_cast<std::uint32_t>(character);
  }
  std::uint32_t At(std::string_view piece) const { return At(FText.find(piece)); }
  TXmlElement& Root() { return FReader->Root(); }
  TXmlElement& Child() { return *Root().FirstChild(); }

  std::unique_ptr<TXmlReader> FReader;
  std::optional<TSourceText> FSource;
  std::string FText;
  std::uint32_t FUnit = 1;
  std::uint32_t FMark = 0;
};

TEST_P(SourceText, FindsTheEndTag) {
  Load("<a>text<b ></b\n><c/> </a >");
  EXPECT_EQ(FSource->EndTagStart(Root()), At("</a >"));
  EXPECT_EQ(FSource->EndTagStart(Child()), At("</b"));
  const TXmlElement& c = *Child().NextSibling();
  EXPECT_EQ(FSource->EndTagStart(c), c.Range().End);
}

TEST_P(SourceText, FindsTheEndOfAnEmptyTagWithItsBlanks) {
  Load("<a><b x=\"1\" \t/></a>");
  EXPECT_EQ(FSource->EmptyTagEnd(Child()), At(" \t/>"));
}

TEST_P(SourceText, KnowsBlanks) {
  Load("<a> \t\r\n x</a>");
  EXPECT_TRUE(FSource->IsBlank({At(3), At("x")}));
  EXPECT_TRUE(FSource->IsBlank({At(3), At(3)}));
  EXPECT_FALSE(FSource->IsBlank({At(3), At("</a>")}));
  EXPECT_EQ(FSource->BlankRunBefore(At("x")), At(3));
  EXPECT_EQ(FSource->BlankRunBefore(At("</a>")), At("</a>"));
}

TEST_P(SourceText, TellsTheIndentationOfALine) {
  Load("<a>\n \t<b/><c/>\r<d/></a>");
  EXPECT_EQ(FSource->IndentationAt(At("<b/>")), " \t");
  EXPECT_EQ(FSource->IndentationAt(At("<c/>")), std::nullopt);
  EXPECT_EQ(FSource->IndentationAt(At("<d/>")), "");
}

TEST_P(SourceText, TellsTheLineEndNearAPlace) {
  Load("<a>\r\n<b/>\n<c/>\r<d/></a>");
  EXPECT_EQ(FSource->LineEndNear(At("<a>")), "\r\n");
  EXPECT_EQ(FSource->LineEndNear(At("<b/>")), "\r\n");
  EXPECT_EQ(FSource->LineEndNear(At("<c/>")), "\n");
  EXPECT_EQ(FSource->LineEndNear(At("</a>")), "\r");
  Load("<a><b/></a>");
  EXPECT_EQ(FSource->LineEndNear(At("<b/>")), "");
}

TEST_P(SourceText, LaysANewChildOutLikeItsNeighbours) {
  Load("<a>\r\n\t<b>\r\n\t\t<c/>\r\n\t</b>\r\n</a>");
  const TChildLayout layout = LayoutForChild(*FSource, Child());
  EXPECT_EQ(layout.Layout.LineEnd, "\r\n");
  EXPECT_EQ(layout.Layout.Indent, "\t");
  EXPECT_EQ(layout.Indentation, "\t\t");
}

TEST_P(SourceText, LaysAFirstChildOutLikeItsParent) {
  Load("<a>\n    <b/>\n</a>");
  const TChildLayout layout = LayoutForChild(*FSource, Child());
  EXPECT_EQ(layout.Layout.LineEnd, "\n");
  EXPECT_EQ(layout.Indentation, "        ");
}

TEST_P(SourceText, PutsANewChildOnTheLineThatNeighboursShare) {
  Load("<a>\n<b><c/></b>\n</a>");
  EXPECT_EQ(LayoutForChild(*FSource, Child()).Layout.LineEnd, "");
}

TEST_P(SourceText, InsertsBehindTheLastChild) {
  Load("<a>\n  <b/>\n</a>");
  const TChildInsertion insertion = InsertionOfLastChild(*FSource, Root());
  EXPECT_EQ(insertion.Place.Start, At("\n</a>"));
  EXPECT_EQ(insertion.Place.End, insertion.Place.Start);
  EXPECT_EQ(insertion.Before, "");
  EXPECT_EQ(insertion.After, "");
}

TEST_P(SourceText, GivesAnEndTagToAnElementWithoutOne) {
  Load("<a>\n  <b />\n</a>");
  const TChildInsertion insertion = InsertionOfLastChild(*FSource, Child());
  EXPECT_EQ(insertion.Place.Start, At(" />"));
  EXPECT_EQ(insertion.Place.End, Child().Range().End);
  EXPECT_EQ(insertion.Before, ">");
  EXPECT_EQ(insertion.After, "\n  </b>");
}

TEST_P(SourceText, ClosesOnALineOfItsOwnWhatWasEmpty) {
  Load("<a>\n  <b></b>\n</a>");
  const TChildInsertion insertion = InsertionOfLastChild(*FSource, Child());
  EXPECT_EQ(insertion.Place.Start, At("</b>"));
  EXPECT_EQ(insertion.After, "\n  ");
}

INSTANTIATE_TEST_SUITE_P(Encodings, SourceText,
                         ::testing::Values(TXmlEncoding::Utf8, TXmlEncoding::Utf16LittleEndian,
                                           TXmlEncoding::Utf16BigEndian),
                         [](const auto& test) {
                           return test.param == TXmlEncoding::Utf8                ? "Utf8"
                                  : test.param == TXmlEncoding::Utf16LittleEndian ? "LittleEndian"
                                                                                  : "BigEndian";
                         });

} // namespace
} // namespace workbench
