#include "tests/workbench/project/document_fixture.h"

namespace workbench {
namespace {

using testing::Edited;
using testing::Replaced;
using testing::TSectionModel;

// Every entry in a layout of its own, none of which the writer would choose.
const std::string Project = R"(<Project>
  <ProjectExtensions>
    <Deployment   Version='2' >
      <!-- before a -->
      <E N='a'  ><T>1&#50;</T></E>
      <?keep me?>
      <E  N="b"/>

      <E N="c">
          <T><![CDATA[<c>]]></T>
      </E><!-- behind c -->
    </Deployment  >
    <Other/>
  </ProjectExtensions>
</Project>
)";

const std::string EntryA = "<E N='a'  ><T>1&#50;</T></E>";
const std::string EntryB = "<E  N=\"b\"/>";
const std::string EntryC = "<E N=\"c\">\n          <T><![CDATA[<c>]]></T>\n      </E>";

TEST(SectionRewrite, LeavesAnUnchangedSectionAlone) {
  TProjectDocument document(Project, "demo.vproj", "Deployment");
  EXPECT_EQ(testing::Compose(document, testing::ModelOf(Project)), std::nullopt);
}

TEST(SectionRewrite, ChangesTheBytesOfAChangedEntryOnly) {
  EXPECT_EQ(Edited(Project, [](TSectionModel& model) { model.Entries[1].Text = "new"; }),
            Replaced(Project, EntryB, "<E N=\"b\">\n        <T>new</T>\n      </E>"));
}

TEST(SectionRewrite, AddsBehindTheLastEntry) {
  EXPECT_EQ(Edited(Project,
                   [](TSectionModel& model) {
                     model.Entries.push_back({"d", ""});
                   }),
            Replaced(Project, EntryC, EntryC + "\n      <E N=\"d\"/>"));
}

TEST(SectionRewrite, AddsBetweenEntries) {
  EXPECT_EQ(Edited(Project,
                   [](TSectionModel& model) {
                     model.Entries.insert(model.Entries.begin() + 1, {"d", ""});
                   }),
            Replaced(Project, EntryA, EntryA + "\n      <E N=\"d\"/>"));
}

TEST(SectionRewrite, AddsInFrontOfTheFirstEntry) {
  EXPECT_EQ(Edited(Project,
                   [](TSectionModel& model) {
                     model.Entries.insert(model.Entries.begin(), {"d", ""});
                   }),
            Replaced(Project, "Version='2' >", "Version='2' >\n      <E N=\"d\"/>"));
}

TEST(SectionRewrite, RemovesAnEntryWithItsLine) {
  EXPECT_EQ(Edited(Project, [](TSectionModel& model) { model.Entries.pop_back(); }),
            Replaced(Project, "\n\n      " + EntryC, ""));
}

TEST(SectionRewrite, KeepsTheCommentInFrontOfARemovedEntry) {
  EXPECT_EQ(
      Edited(Project, [](TSectionModel& model) { model.Entries.erase(model.Entries.begin()); }),
      Replaced(Project, "\n      " + EntryA, ""));
  EXPECT_EQ(
      Edited(Project, [](TSectionModel& model) { model.Entries.erase(model.Entries.begin() + 1); }),
      Replaced(Project, "\n      " + EntryB, ""));
}

TEST(SectionRewrite, MovesAnEntryWithItsBytes) {
  const std::string moved = Edited(Project, [](TSectionModel& model) {
    std::rotate(model.Entries.begin(), model.Entries.begin() + 1, model.Entries.end());
  });
  EXPECT_EQ(moved, Replaced(Replaced(Project, "\n      " + EntryA, ""), EntryC,
                            EntryC + "\n      " + EntryA));
}

TEST(SectionRewrite, ReplacesEveryEntryInItsPlace) {
  const std::string changed = Edited(Project, [](TSectionModel& model) {
    for (auto& entry : model.Entries)
      entry = {entry.Name + entry.Name, ""};
  });
  EXPECT_EQ(changed,
            Replaced(Replaced(Replaced(Project, EntryA, "<E N=\"aa\"/>"), EntryB, "<E N=\"bb\"/>"),
                     EntryC, "<E N=\"cc\"/>"));
}

TEST(SectionRewrite, KeepsCommentsWhenAllEntriesGo) {
  EXPECT_EQ(Edited(Project, [](TSectionModel& model) { model.Entries.clear(); }),
            Replaced(Replaced(Replaced(Project, "\n      " + EntryA, ""), "\n      " + EntryB, ""),
                     "\n\n      " + EntryC, ""));
}

TEST(SectionRewrite, WritesAnEmptyTagWhenNothingIsLeft) {
  const std::string head = "<Project><ProjectExtensions>\n";
  const std::string tail = "\n</ProjectExtensions></Project>";
  EXPECT_EQ(Edited(head + "<Deployment  Version=\"2\">\n <E N=\"a\"/>\n</Deployment>" + tail,
                   [](TSectionModel& model) { model.Entries.clear(); }),
            head + "<Deployment Version=\"2\"/>" + tail);
}

TEST(SectionRewrite, KeepsACommentWhenOnlyAttributesChange) {
  const std::string text = "<Project><ProjectExtensions><Deployment Version=\"1\"><!-- c -->"
                           "</Deployment></ProjectExtensions></Project>";
  EXPECT_EQ(Edited(text, [](TSectionModel& model) { model.Version = "2"; }),
            Replaced(text, "\"1\"", "\"2\""));
}

TEST(SectionRewrite, WritesTheStartTagAnewWhenAttributesChange) {
  EXPECT_EQ(Edited(Project, [](TSectionModel& model) { model.Version = "3"; }),
            Replaced(Project, "<Deployment   Version='2' >", "<Deployment Version=\"3\">"));
}

TEST(SectionRewrite, EscapesWhatItWrites) {
  EXPECT_EQ(Edited(Project,
                   [](TSectionModel& model) {
                     model.Entries[1] = {"<&\"\t\r\n", "a&b\r\nc"};
                   }),
            Replaced(Project, EntryB,
                     "<E N=\"&lt;&amp;&quot;&#x9;&#xD;&#xA;\">\n        "
                     "<T>a&amp;b&#xD;&#xA;c</T>\n      </E>"));
}

TEST(SectionRewrite, RefusesTextThatXmlCannotHold) {
  TProjectDocument document(Project, "demo.vproj", "Deployment");
  EXPECT_THROW(testing::Compose(document, {"2", {{"a\x01", ""}}}), deployment::TInputError);
  EXPECT_THROW(testing::Compose(document, {"\xFF", {}}), deployment::TInputError);
}

TEST(SectionRewrite, CanBeComposedAgain) {
  TProjectDocument document(Project, "demo.vproj", "Deployment");
  const TSectionModel model{"2", {{"x", "y"}}};
  const auto first = testing::Compose(document, model);
  EXPECT_EQ(testing::Compose(document, model), first);
  EXPECT_EQ(testing::Compose(document, testing::ModelOf(Project)), std::nullopt);
  document.ForgetLargeSection();
  EXPECT_EQ(testing::Compose(document, model), first);
}

// Quadratic work on so many would take minutes.
TEST(SectionRewrite, StaysLinearForManyEqualEntries) {
  std::string text = "<Project><ProjectExtensions><Deployment Version=\"2\">";
  for (int i = 0; i < 50'000; ++i)
    text += "<E N=\"x\"/>";
  text += "</Deployment></ProjectExtensions></Project>";
  const std::string changed = Edited(text, [](TSectionModel& model) {
    model.Entries.erase(model.Entries.begin() + 10);
    model.Entries.insert(model.Entries.begin() + 20'000, {"new", ""});
    model.Entries.erase(model.Entries.begin() + 30'000, model.Entries.begin() + 40'000);
  });
  EXPECT_EQ(changed.size(), text.size() - 10'001 * 10 + 12);
}

TEST(SectionRewrite, StaysLinearWhenTheOrderIsReversed) {
  std::string text = "<Project><ProjectExtensions><Deployment Version=\"2\">\n";
  for (int i = 0; i < 50'000; ++i)
    text += "<E N=\"" + std::to_string(i) + "\"/>\n";
  text += "</Deployment></ProjectExtensions></Project>";
  Edited(text,
         [](TSectionModel& model) { std::reverse(model.Entries.begin(), model.Entries.end()); });
}

} // namespace
} // namespace workbench
