#include "tests/workbench/project/document_fixture.h"
#include "workbench/project/base_properties.h"

namespace workbench {
namespace {

const std::string Section = "<ProjectExtensions><Deployment Version=\"2\"/></ProjectExtensions>";

/// The project's bytes with properties set, given by turns as name and value.
std::string WithProperties(const std::string& content,
                           const std::vector<std::pair<std::string, std::string>>& properties) {
  const std::string text = "<Project>\n" + content + Section + "\n</Project>";
  TProjectDocument document(text, "demo.vproj", "Deployment");
  for (const auto& [name, value] : properties)
    document.SetBaseProperty(name, value);
  const std::string composed = testing::Compose(document, {}).value_or(text);
  const std::size_t start = std::string_view("<Project>\n").size();
  return composed.substr(start, composed.size() - start - std::string_view("\n</Project>").size());
}

TEST(BaseProperties, ChangeTheTextOfAPresentOne) {
  EXPECT_EQ(WithProperties("<PropertyGroup><A>old</A><B>b</B></PropertyGroup>", {{"a", "new"}}),
            "<PropertyGroup><A>new</A><B>b</B></PropertyGroup>" + Section);
}

TEST(BaseProperties, ChangeTheLastOfOneName) {
  EXPECT_EQ(WithProperties("<PropertyGroup><A>1</A></PropertyGroup>"
                           "<PropertyGroup><A>2</A></PropertyGroup>",
                           {{"A", "new"}}),
            "<PropertyGroup><A>1</A></PropertyGroup><PropertyGroup><A>new</A></PropertyGroup>" +
                Section);
}

TEST(BaseProperties, LeaveConditionalOnesAlone) {
  const std::string conditional = "<PropertyGroup Condition=\"x\"><A>1</A></PropertyGroup>"
                                  "<PropertyGroup><A Condition=\"y\">2</A>";
  EXPECT_EQ(WithProperties(conditional + "</PropertyGroup>", {{"A", "3"}}),
            conditional + "<A>3</A></PropertyGroup>" + Section);
}

TEST(BaseProperties, OpenAnElementWithoutEndTag) {
  EXPECT_EQ(WithProperties("<PropertyGroup><A /></PropertyGroup>", {{"A", "1"}}),
            "<PropertyGroup><A>1</A></PropertyGroup>" + Section);
  EXPECT_EQ(WithProperties("<PropertyGroup/>\n", {{"A", "1"}, {"B", "2"}}),
            "<PropertyGroup>\n  <A>1</A>\n  <B>2</B>\n</PropertyGroup>\n" + Section);
}

TEST(BaseProperties, GoBehindTheirNeighbours) {
  EXPECT_EQ(WithProperties("\t<PropertyGroup>\n\t\t<A>1</A>\n\t</PropertyGroup>\n",
                           {{"B", "2"}, {"C", "3"}}),
            "\t<PropertyGroup>\n\t\t<A>1</A>\n\t\t<B>2</B>\n\t\t<C>3</C>\n\t</PropertyGroup>\n" +
                Section);
}

TEST(BaseProperties, MakeAGroupWhenThereIsNone) {
  EXPECT_EQ(WithProperties("  <PropertyGroup Condition=\"x\"/>\n  ", {{"A", "1"}, {"B", "2"}}),
            "  <PropertyGroup Condition=\"x\"/>\n  " + Section +
                "\n  <PropertyGroup>\n    <A>1</A>\n    <B>2</B>\n  </PropertyGroup>");
}

TEST(BaseProperties, TakeTheLastValueOfSeveral) {
  EXPECT_EQ(WithProperties("<PropertyGroup><A>1</A></PropertyGroup>",
                           {{"A", "2"}, {"B", "x"}, {"A", "3"}, {"B", "y"}}),
            "<PropertyGroup><A>3</A><B>y</B></PropertyGroup>" + Section);
}

TEST(BaseProperties, StayUntouchedWhenTheValueIsTheSame) {
  const std::string content = "<PropertyGroup><A>&#49;</A></PropertyGroup>";
  EXPECT_EQ(WithProperties(content, {{"A", "1"}}), content + Section);
}

TEST(BaseProperties, EscapeTheirValues) {
  EXPECT_EQ(WithProperties("<PropertyGroup><A>1</A></PropertyGroup>",
                           {{"A", "<&>\r\n"}, {"B", "\xC3\xA4\"<"}}),
            "<PropertyGroup><A>&lt;&amp;&gt;&#xD;&#xA;</A><B>\xC3\xA4\"&lt;</B></PropertyGroup>" +
                Section);
}

TEST(BaseProperties, RefuseTextThatXmlCannotHold) {
  TProjectDocument document("<Project/>", "demo.vproj", "Deployment");
  document.SetBaseProperty("A", "\x02");
  EXPECT_THROW(testing::Compose(document, {}), deployment::TInputError);
}

TEST(BaseProperties, AreSeenInTheTreeAtOnce) {
  TProjectDocument document("<Project><PropertyGroup><A>1</A></PropertyGroup></Project>",
                            "demo.vproj", "Deployment");
  document.SetBaseProperty("A", "2");
  document.SetBaseProperty("B", "3");
  TXmlElement* property = document.Root().FirstChild()->FirstChild();
  EXPECT_EQ(property->Text(), "2");
  EXPECT_EQ(property->NextSibling()->NodeName(), "B");
  EXPECT_EQ(property->NextSibling()->Text(), "3");
}

TEST(BaseProperties, KeepACommentInsideAPropertyThatDoesNotChange) {
  EXPECT_EQ(
      WithProperties("<PropertyGroup><A>1<!-- c --></A><B>2</B></PropertyGroup>", {{"B", "3"}}),
      "<PropertyGroup><A>1<!-- c --></A><B>3</B></PropertyGroup>" + Section);
}

} // namespace
} // namespace workbench
