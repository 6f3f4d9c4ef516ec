#include "tests/workbench/project/document_fixture.h"

namespace workbench {
namespace {

using testing::Edited;
using testing::TSectionModel;

std::string WithEntry(std::string_view bytes) {
  return Edited(bytes, [](TSectionModel& model) {
    model.Version = "2";
    model.Entries.push_back({"n", "t"});
  });
}

TEST(SectionLayout, FollowsTabs) {
  EXPECT_EQ(WithEntry("<Project>\n\t<ProjectExtensions>\n\t\t<Deployment Version=\"2\">\n"
                      "\t\t\t<E N=\"a\"/>\n\t\t</Deployment>\n\t</ProjectExtensions>\n</Project>"),
            "<Project>\n\t<ProjectExtensions>\n\t\t<Deployment Version=\"2\">\n"
            "\t\t\t<E N=\"a\"/>\n\t\t\t<E N=\"n\">\n\t\t\t\t<T>t</T>\n\t\t\t</E>\n"
            "\t\t</Deployment>\n\t</ProjectExtensions>\n</Project>");
}

TEST(SectionLayout, FollowsCrLf) {
  EXPECT_EQ(WithEntry("<Project>\r\n <ProjectExtensions>\r\n  <Deployment Version=\"2\">\r\n"
                      "   <E N=\"a\"/>\r\n  </Deployment>\r\n </ProjectExtensions>\r\n</Project>"),
            "<Project>\r\n <ProjectExtensions>\r\n  <Deployment Version=\"2\">\r\n"
            "   <E N=\"a\"/>\r\n   <E N=\"n\">\r\n    <T>t</T>\r\n   </E>\r\n"
            "  </Deployment>\r\n </ProjectExtensions>\r\n</Project>");
}

TEST(SectionLayout, StaysOnOneLine) {
  EXPECT_EQ(WithEntry("<Project><ProjectExtensions><Deployment Version=\"2\"><E N=\"a\"/>"
                      "</Deployment></ProjectExtensions></Project>"),
            "<Project><ProjectExtensions><Deployment Version=\"2\"><E N=\"a\"/>"
            "<E N=\"n\"><T>t</T></E></Deployment></ProjectExtensions></Project>");
}

TEST(SectionLayout, StaysOnTheLineThatEntriesShare) {
  EXPECT_EQ(WithEntry("<Project>\n<ProjectExtensions>\n<Deployment Version=\"2\"><E N=\"a\"/>"
                      "</Deployment>\n</ProjectExtensions>\n</Project>"),
            "<Project>\n<ProjectExtensions>\n<Deployment Version=\"2\"><E N=\"a\"/>"
            "<E N=\"n\"><T>t</T></E></Deployment>\n</ProjectExtensions>\n</Project>");
}

TEST(SectionLayout, OpensASectionWithoutEndTag) {
  EXPECT_EQ(WithEntry("<Project>\n  <ProjectExtensions>\n    <Deployment/>\n"
                      "  </ProjectExtensions>\n</Project>\n"),
            "<Project>\n  <ProjectExtensions>\n    <Deployment Version=\"2\">\n"
            "      <E N=\"n\">\n        <T>t</T>\n      </E>\n    </Deployment>\n"
            "  </ProjectExtensions>\n</Project>\n");
}

TEST(SectionLayout, FillsAnEmptySection) {
  EXPECT_EQ(WithEntry("<Project>\n  <ProjectExtensions>\n    <Deployment Version=\"2\">\n"
                      "    </Deployment>\n  </ProjectExtensions>\n</Project>\n"),
            "<Project>\n  <ProjectExtensions>\n    <Deployment Version=\"2\">\n"
            "      <E N=\"n\">\n        <T>t</T>\n      </E>\n    </Deployment>\n"
            "  </ProjectExtensions>\n</Project>\n");
}

TEST(SectionLayout, KeepsACommentInASectionWithoutEntries) {
  EXPECT_EQ(WithEntry("<Project>\n  <ProjectExtensions>\n    <Deployment Version=\"2\">\n"
                      "      <!-- none yet -->\n    </Deployment>\n  </ProjectExtensions>\n"
                      "</Project>\n"),
            "<Project>\n  <ProjectExtensions>\n    <Deployment Version=\"2\">\n"
            "      <E N=\"n\">\n        <T>t</T>\n      </E>\n      <!-- none yet -->\n"
            "    </Deployment>\n  </ProjectExtensions>\n</Project>\n");
}

TEST(SectionLayout, AddsASectionToItsContainer) {
  EXPECT_EQ(WithEntry("<Project>\n  <ProjectExtensions>\n    <Other/>\n  </ProjectExtensions>\n"
                      "</Project>"),
            "<Project>\n  <ProjectExtensions>\n    <Other/>\n    <Deployment Version=\"2\">\n"
            "      <E N=\"n\">\n        <T>t</T>\n      </E>\n    </Deployment>\n"
            "  </ProjectExtensions>\n</Project>");
}

TEST(SectionLayout, OpensAContainerWithoutEndTag) {
  EXPECT_EQ(WithEntry("<Project>\n  <ProjectExtensions />\n</Project>"),
            "<Project>\n  <ProjectExtensions>\n    <Deployment Version=\"2\">\n"
            "      <E N=\"n\">\n        <T>t</T>\n      </E>\n    </Deployment>\n"
            "  </ProjectExtensions>\n</Project>");
}

TEST(SectionLayout, AddsTheContainerBehindTheLastChild) {
  EXPECT_EQ(WithEntry("<Project>\n  <PropertyGroup/>\n  <!-- end -->\n</Project>\n"),
            "<Project>\n  <PropertyGroup/>\n  <!-- end -->\n  <ProjectExtensions>\n"
            "    <Deployment Version=\"2\">\n      <E N=\"n\">\n        <T>t</T>\n      </E>\n"
            "    </Deployment>\n  </ProjectExtensions>\n</Project>\n");
}

TEST(SectionLayout, OpensARootWithoutEndTag) {
  EXPECT_EQ(WithEntry("<?xml version=\"1.0\"?>\n<Project/>\n"),
            "<?xml version=\"1.0\"?>\n<Project>\n  <ProjectExtensions>\n"
            "    <Deployment Version=\"2\">\n      <E N=\"n\">\n        <T>t</T>\n      </E>\n"
            "    </Deployment>\n  </ProjectExtensions>\n</Project>\n");
  EXPECT_EQ(WithEntry("<Project/>"),
            "<Project><ProjectExtensions><Deployment Version=\"2\"><E N=\"n\"><T>t</T></E>"
            "</Deployment></ProjectExtensions></Project>");
}

TEST(SectionLayout, KeepsTheNameOfTheSectionAsItIsWritten) {
  EXPECT_EQ(WithEntry("<Project><ProjectExtensions><DEPLOYMENT Version=\"1\"/>"
                      "</ProjectExtensions></Project>"),
            "<Project><ProjectExtensions><DEPLOYMENT Version=\"2\"><E N=\"n\"><T>t</T></E>"
            "</DEPLOYMENT></ProjectExtensions></Project>");
}

TEST(SectionLayout, LeavesBytesOutsideOfTheSectionAlone) {
  const std::string head = "\xEF\xBB\xBF<?xml version='1.0'?>\r\n<!-- \xC3\xA4 -->\r<Project\n"
                           "\tToolsVersion='4.0'  >\r\n<A x='&#65;&lt;'><![CDATA[ ]]></A>"
                           "<ProjectExtensions><Deployment Version=\"2\">";
  const std::string tail = "</Deployment ></ProjectExtensions>\n\n<?pi?></Project >\r<!--x-->";
  EXPECT_EQ(WithEntry(head + "<E N=\"a\"/>" + tail),
            head + "<E N=\"a\"/><E N=\"n\"><T>t</T></E>" + tail);
}

} // namespace
} // namespace workbench
